#include "TavixEditor/App/AccessibleParts.h"

#include <QAccessibleWidget>
#include <QHash>
#include <QWidget>

#include <algorithm>
#include <map>

namespace tavix::editor {

namespace {

struct Told {
    QAccessible::Role role;
    std::function<std::vector<AccessiblePart>()> parts;
};

// Filled and read on the main thread alone; a widget takes its entry with it.
QHash<QObject*, Told>& toldWidgets() {
    static QHash<QObject*, Told> widgets;
    return widgets;
}

std::vector<AccessiblePart> partsOf(QObject* widget) {
    const auto told = toldWidgets().constFind(widget);
    return told == toldWidgets().constEnd() ? std::vector<AccessiblePart>() : told->parts();
}

int selectedPart(QObject* widget) {
    const auto all = partsOf(widget);
    const auto found = std::ranges::find(all, true, &AccessiblePart::isSelected);
    return found == all.end() ? -1 : int(found - all.begin());
}

class PartInterface final : public QAccessibleInterface,
                            public QAccessibleActionInterface,
                            public QAccessibleValueInterface {
public:
    PartInterface(QWidget* widget, int index) : widget_(widget), index_(std::size_t(index)) {}

    bool isValid() const override { return part().has_value(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(widget_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override {
        const auto now = part();
        return now ? now->role : QAccessible::NoRole;
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        const auto now = part();
        state.invalid = !now;
        state.selectable = state.focusable = now && now->press;
        state.selected = now && now->isSelected;
        state.focused = state.selected && widget_->hasFocus();
        state.offscreen = now && !widget_->rect().intersects(now->box);
        return state;
    }
    QRect rect() const override {
        const auto now = part();
        return now ? QRect(widget_->mapToGlobal(now->box.topLeft()), now->box.size()) : QRect();
    }
    QString text(QAccessible::Text kind) const override {
        const auto now = part();
        if (!now) return {};
        return kind == QAccessible::Name          ? now->name
               : kind == QAccessible::Description ? now->about
                                                  : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        const auto now = part();
        if (type == QAccessible::ActionInterface && now && now->press)
            return static_cast<QAccessibleActionInterface*>(this);
        if (type == QAccessible::ValueInterface && now && now->value)
            return static_cast<QAccessibleValueInterface*>(this);
        return nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override {
        const auto now = part();
        if (now && now->press && name == pressAction()) now->press();
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

    QVariant currentValue() const override { return value().now; }
    QVariant minimumValue() const override { return 0.0; }
    QVariant maximumValue() const override { return value().most; }
    QVariant minimumStepSize() const override { return 0.0; }
    void setCurrentValue(const QVariant& to) override {
        if (const auto now = value(); now.set) now.set(to.toDouble());
    }

private:
    std::optional<AccessiblePart> part() const {
        std::vector<AccessiblePart> all = partsOf(widget_);
        return index_ < all.size() ? std::optional(std::move(all[index_])) : std::nullopt;
    }
    AccessiblePart::Value value() const {
        const auto now = part();
        return now && now->value ? *now->value : AccessiblePart::Value{};
    }

    QWidget* widget_;
    std::size_t index_;
};

class WidgetInterface final : public QAccessibleWidget {
public:
    WidgetInterface(QWidget* widget, QAccessible::Role role) : QAccessibleWidget(widget, role) {}
    ~WidgetInterface() override {
        for (const auto& [index, id] : ids_) QAccessible::deleteAccessibleInterface(id);
    }
    // Widgets in the widget, as a text that is edited in place, come behind its parts.
    int childCount() const override { return partCount() + QAccessibleWidget::childCount(); }
    QAccessibleInterface* child(int index) const override {
        const int count = partCount();
        if (index < 0) return nullptr;
        if (index >= count) return QAccessibleWidget::child(index - count);
        const auto [place, isNew] = ids_.try_emplace(index, 0);
        if (isNew)
            place->second = QAccessible::registerAccessibleInterface(new PartInterface(widget(), index));
        return QAccessible::accessibleInterface(place->second);
    }
    int indexOfChild(const QAccessibleInterface* wanted) const override {
        for (const auto& [index, id] : ids_)
            if (QAccessible::accessibleInterface(id) == wanted) return index;
        const int among = QAccessibleWidget::indexOfChild(wanted);
        return among < 0 ? among : among + partCount();
    }
    QAccessibleInterface* focusChild() const override {
        const int selected = selectedPart(object());
        return selected < 0 ? QAccessibleWidget::focusChild() : child(selected);
    }

private:
    int partCount() const { return int(partsOf(object()).size()); }

    mutable std::map<int, QAccessible::Id> ids_;
};

QAccessibleInterface* interfaceOf(const QString&, QObject* object) {
    const auto told = toldWidgets().constFind(object);
    return told == toldWidgets().constEnd() ? nullptr
                                            : new WidgetInterface(static_cast<QWidget*>(object), told->role);
}

}   // namespace

void tellParts(QWidget* widget, QAccessible::Role role, std::function<std::vector<AccessiblePart>()> parts) {
    if (toldWidgets().isEmpty()) QAccessible::installFactory(interfaceOf);   // once more does no harm
    toldWidgets().insert(widget, {role, std::move(parts)});
    // Naming the widget may have made a plain interface for it.
    if (QAccessibleInterface* const plain = QAccessible::queryAccessibleInterface(widget);
        plain && !dynamic_cast<WidgetInterface*>(plain))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(plain));
    QObject::connect(widget, &QObject::destroyed, [](QObject* gone) { toldWidgets().remove(gone); });
}

void tellSelectedPart(QWidget* widget) {
    if (!QAccessible::isActive()) return;
    const int selected = selectedPart(widget);
    if (selected < 0) return;
    QAccessibleEvent event(widget, widget->hasFocus() ? QAccessible::Focus : QAccessible::Selection);
    event.setChild(selected);
    QAccessible::updateAccessibility(&event);
}

}   // namespace tavix::editor
