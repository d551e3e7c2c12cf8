#include "TavixEditor/App/ThemePortal.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <utility>

namespace tavix::editor {

namespace {

// https://flatpak.github.io/xdg-desktop-portal/docs/doc-org.freedesktop.portal.Settings.html
const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString object = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString gnome = QStringLiteral("org.gnome.desktop.interface");
const QString colorScheme = QStringLiteral("color-scheme"), contrast = QStringLiteral("contrast");
const QString animations = QStringLiteral("enable-animations");

}   // namespace

void DesktopLook::take(const QString& space, const QString& key, const QVariant& value) {
    if (space == appearance && key == colorScheme) {
        const uint told = value.toUInt();
        scheme = told == 1 ? Scheme::dark : told == 2 ? Scheme::light : Scheme::none;
    } else if (space == appearance && key == contrast) {
        isContrastHigh = value.toUInt() == 1;
    } else if (space == gnome && key == animations && value.canConvert<bool>()) {
        isMotionReduced = !value.toBool();
    }
}

ThemePortal::ThemePortal(std::function<void(const DesktopLook&)> told, QObject* parent)
    : QObject(parent), told_(std::move(told)) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    bus.connect(service, object, interface, QStringLiteral("SettingChanged"), this,
        SLOT(settingChanged(QString, QString, QDBusVariant)));
    ask(appearance, colorScheme);
    ask(appearance, contrast);
    ask(gnome, animations);
}

void ThemePortal::ask(const QString& space, const QString& key) {
    QDBusMessage call = QDBusMessage::createMethodCall(service, object, interface, QStringLiteral("Read"));
    call << space << key;
    auto* asked = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    QObject::connect(asked, &QDBusPendingCallWatcher::finished, this, [this, asked, space, key] {
        const QDBusPendingReply<QDBusVariant> reply = *asked;
        if (reply.isValid()) {
            // The older of its two forms wraps the value twice.
            QVariant value = reply.value().variant();
            if (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
            take(space, key, value);
        }
        asked->deleteLater();
    });
}

void ThemePortal::settingChanged(const QString& space, const QString& key, const QDBusVariant& value) {
    take(space, key, value.variant());
}

void ThemePortal::take(const QString& space, const QString& key, const QVariant& value) {
    const DesktopLook before = look_;
    look_.take(space, key, value);
    if (!(look_ == before)) told_(look_);
}

}   // namespace tavix::editor
