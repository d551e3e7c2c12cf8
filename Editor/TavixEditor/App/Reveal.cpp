#include "TavixEditor/App/Reveal.h"

#include "TavixEditor/App/Words.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QUrl>

namespace tavix::editor {

void revealInFolder(const std::filesystem::path& file) {
    const QUrl folder = QUrl::fromLocalFile(pathWords(file.parent_path()));
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        QDesktopServices::openUrl(folder);
        return;
    }
    // https://www.freedesktop.org/wiki/Specifications/file-manager-interface
    QDBusMessage call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"), QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("ShowItems"));
    call << QStringList{QUrl::fromLocalFile(pathWords(file)).toString()} << QString();
    auto* asked = new QDBusPendingCallWatcher(bus.asyncCall(call));
    QObject::connect(asked, &QDBusPendingCallWatcher::finished, asked, [asked, folder] {
        if (asked->isError()) QDesktopServices::openUrl(folder);
        asked->deleteLater();
    });
}

}   // namespace tavix::editor
