#include "TavixEditor/App/Reveal.h"

#include "TavixEditor/App/Words.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QUrl>

#include <utility>

namespace tavix::editor {

namespace {

struct RevealWords {
    Q_DECLARE_TR_FUNCTIONS(Reveal)
};

void openFolder(const std::filesystem::path& file, const std::function<void(const QString&)>& onFailure) {
    const bool isOpen = QDesktopServices::openUrl(QUrl::fromLocalFile(pathWords(file.parent_path())));
    if (!isOpen && onFailure)
        onFailure(RevealWords::tr("No file manager answers. The file is “%1”.").arg(pathWords(file)));
}

}   // namespace

void revealInFolder(
    const std::filesystem::path& file, std::function<void(const QString& sentence)> onFailure) {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return openFolder(file, onFailure);
    // https://www.freedesktop.org/wiki/Specifications/file-manager-interface
    QDBusMessage call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"), QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("ShowItems"));
    const QUrl url = QUrl::fromLocalFile(pathWords(file));
    call << QStringList{QString::fromLatin1(url.toEncoded())} << QString();
    auto* asked = new QDBusPendingCallWatcher(bus.asyncCall(call));
    QObject::connect(
        asked, &QDBusPendingCallWatcher::finished, asked, [asked, file, onFailure = std::move(onFailure)] {
            if (asked->isError()) openFolder(file, onFailure);
            asked->deleteLater();
        });
}

}   // namespace tavix::editor
