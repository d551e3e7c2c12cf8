// What the desktop prefers, asked of the settings portal, which also tells when it changes. This version of
// Qt knows no colour scheme of its own.
#pragma once

#include <QObject>
#include <QVariant>

#include <functional>

class QDBusVariant;

namespace tavix::editor {

struct DesktopLook {
    enum class Scheme { none, dark, light };
    Scheme scheme = Scheme::none;
    bool isContrastHigh = false, isMotionReduced = false;
    bool operator==(const DesktopLook&) const = default;

    // A setting of the portal; others and nonsense change nothing.
    void take(const QString& space, const QString& key, const QVariant& value);
};

// The one class with a slot that the bus calls by its name.
class ThemePortal final : public QObject {
    Q_OBJECT
public:
    // Asks at once; `told` is called for every change, on the main thread. Without a portal nothing is told.
    explicit ThemePortal(std::function<void(const DesktopLook&)> told, QObject* parent = nullptr);

private Q_SLOTS:
    void settingChanged(const QString& space, const QString& key, const QDBusVariant& value);

private:
    void ask(const QString& space, const QString& key);
    void take(const QString& space, const QString& key, const QVariant& value);

    std::function<void(const DesktopLook&)> told_;
    DesktopLook look_;
};

}   // namespace tavix::editor
