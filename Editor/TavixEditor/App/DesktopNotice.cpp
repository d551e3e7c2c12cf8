#include "TavixEditor/App/DesktopNotice.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QPointer>
#include <QVariantMap>
#include <QWidget>

namespace tavix::editor {

// https://specifications.freedesktop.org/notification-spec/latest/
void showDesktopNotice(const QString& title, const QString& text, QWidget* window) {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return QApplication::alert(window);
    const QString name = QStringLiteral("org.freedesktop.Notifications");
    QDBusMessage call = QDBusMessage::createMethodCall(
        name, QStringLiteral("/org/freedesktop/Notifications"), name, QStringLiteral("Notify"));
    const QVariantMap hints{{QStringLiteral("desktop-entry"), QGuiApplication::desktopFileName()}};
    constexpr uint replacesNone = 0;
    constexpr int asLongAsUsual = -1;
    call << QGuiApplication::applicationDisplayName() << replacesNone << QGuiApplication::desktopFileName()
         << title << text.toHtmlEscaped() << QStringList() << hints << asLongAsUsual;
    auto* asked = new QDBusPendingCallWatcher(bus.asyncCall(call));
    QObject::connect(
        asked, &QDBusPendingCallWatcher::finished, asked, [asked, window = QPointer<QWidget>(window)] {
            if (asked->isError() && window) QApplication::alert(window);
            asked->deleteLater();
        });
}

}   // namespace tavix::editor
