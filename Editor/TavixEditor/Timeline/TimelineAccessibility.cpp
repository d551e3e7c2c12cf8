#include "TavixEditor/Timeline/TimelineAccessibility.h"

#include "TavixEditor/Timeline/TimelineCanvas.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include <algorithm>
#include <map>
#include <numeric>
#include <optional>
#include <vector>

namespace tavix::editor {

namespace {

QString words(const char* text) { return QCoreApplication::translate("Timeline", text); }

// Children stand in the order of the document: which bar is drawn last changes with the selection.
std::optional<std::size_t> barOfChild(const TimelineCanvas& canvas, int child) {
    const auto& bars = canvas.scene().bars;
    if (child < 0 || std::size_t(child) >= bars.size()) return std::nullopt;
    std::vector<std::size_t> order(bars.size());
    std::iota(order.begin(), order.end(), 0u);
    std::ranges::sort(order, {}, [&](std::size_t i) { return bars[i].place; });
    return order[std::size_t(child)];
}

class BarInterface final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    BarInterface(TimelineCanvas* canvas, int index) : canvas_(canvas), index_(index) {}

    bool isValid() const override { return barOfChild(*canvas_, index_).has_value(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(canvas_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.selectable = state.focusable = true;
        if (isValid()) state.selected = bar().isSelected;
        return state;
    }
    QRect rect() const override {
        if (!isValid()) return {};
        const QRect inWidget = canvas_->rectOf(*barOfChild(*canvas_, index_));
        return {canvas_->mapToGlobal(inWidget.topLeft()), inWidget.size()};
    }
    QString text(QAccessible::Text kind) const override {
        if (!isValid()) return {};
        if (kind == QAccessible::Name) return QString::fromStdString(bar().label);
        if (kind != QAccessible::Description) return {};
        return words("%1 to %2 seconds, %n keyframes")
            .arg(bar().startSec, 0, 'f', 1)
            .arg(bar().endSec, 0, 'f', 1)
            .replace(QStringLiteral("%n"), QString::number(bar().keyframesSec.size()));
    }
    void setText(QAccessible::Text, const QString&) override {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override {
        if (isValid() && name == pressAction()) canvas_->activateBar(*barOfChild(*canvas_, index_));
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    const timeline::Bar& bar() const { return canvas_->scene().bars[*barOfChild(*canvas_, index_)]; }

    TimelineCanvas* canvas_;
    int index_;
};

class CanvasInterface final : public QAccessibleWidget {
public:
    explicit CanvasInterface(TimelineCanvas* canvas)
        : QAccessibleWidget(canvas, QAccessible::List), canvas_(canvas) {}
    ~CanvasInterface() override {
        for (const auto& [index, id] : ids_) QAccessible::deleteAccessibleInterface(id);
    }
    int childCount() const override { return int(canvas_->scene().bars.size()); }
    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= childCount()) return nullptr;
        const auto [place, isNew] = ids_.try_emplace(index, 0);
        if (isNew) place->second = QAccessible::registerAccessibleInterface(new BarInterface(canvas_, index));
        return QAccessible::accessibleInterface(place->second);
    }
    int indexOfChild(const QAccessibleInterface* wanted) const override {
        for (const auto& [index, id] : ids_)
            if (QAccessible::accessibleInterface(id) == wanted) return index;
        return -1;
    }

private:
    TimelineCanvas* canvas_;
    mutable std::map<int, QAccessible::Id> ids_;
};

}   // namespace

void installTimelineAccessibility() {
    static const bool isInstalled = [] {
        QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
            auto* const canvas = dynamic_cast<TimelineCanvas*>(object);
            return canvas ? new CanvasInterface(canvas) : nullptr;
        });
        return true;
    }();
    (void)isInstalled;
}

}   // namespace tavix::editor
