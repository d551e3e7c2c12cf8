#include "TavixEditor/Stage/StageTool.h"

#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "Editor/EditorDesignSystem/Style/Style.h"
#include "Editor/EditorDomain/Stage/StageViewport.h"
#include "TavixEditor/App/Studio.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Stage/QtPoints.h"

#include <QPainter>

#include <cmath>
#include <numbers>
#include <utility>

namespace tavix::editor {

using namespace StageEdits;

namespace {

constexpr double handlePx = 8, reachPx = 9, snapPx = 6, beginPx = 3, turnArmPx = 26, turnStepDeg = 15;
constexpr StageHandle handles[] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}, {0, -1}, {1, 0}, {0, 1}, {-1, 0}};

QPointF handlePoint(const QRectF& box, StageHandle handle) {
    return box.center() + QPointF(handle.x * box.width() / 2, handle.y * box.height() / 2);
}
double distance(QPointF a, QPointF b) { return std::hypot(a.x() - b.x(), a.y() - b.y()); }
double degreesOf(QPointF arm) { return std::atan2(arm.y(), arm.x()) * 180 / std::numbers::pi; }
const char* stepName(bool isGrown, bool isTurned) {
    return isGrown ? "Scale layer" : isTurned ? "Rotate layer" : "Move layer";
}

}   // namespace

StageTool::StageTool(Studio& studio, const StageViewport& viewport)
    : studio_(studio), model_(studio.model), viewport_(viewport) {
    EditorState& state = model_.state;
    connections_.push_back(show([this] { mapDocument(); }, state.edited, state.isLoaded));
    connections_.push_back(watch(
        [this] {
            if (onChange && hasSelection()) onChange();
        },
        state.currentTime));
}

StageTool::~StageTool() = default;

// One at a time; what changes meanwhile is mapped after it.
void StageTool::mapDocument() {
    const EditorState& state = model_.state;
    if (!state.isLoaded()) {
        map_.reset();
        hovered_.reset();
        drag_.reset();
    }
    if (onChange) onChange();
    isStale_ = state.isLoaded();
    if (isMapping_ || !isStale_) return;
    isMapping_ = true;
    isStale_ = false;
    system::runThere(
        studio_.workers(), studio_.main(),
        [edited = state.edited.shared(), root = state.bundle()] {
            return std::make_shared<const StageMap>(edited->spec, root);
        },
        lifeline_.guard([this](system::Outcome<std::shared_ptr<const StageMap>>& outcome) {
            isMapping_ = false;
            if (!outcome.hasFailed() && model_.state.isLoaded()) map_ = outcome.value();
            // What is under the pointer may have another size now.
            if (hovered_ && map_) hovered_ = map_->layer(hovered_->place, model_.state.currentTime());
            if (isStale_) return mapDocument();
            if (onChange) onChange();
        }));
}

bool StageTool::hasSelection() const { return model_.state.edited().selection.layer.has_value(); }

std::optional<StageLayer> StageTool::selected() const {
    const Selection& selection = model_.state.edited().selection;
    if (!map_ || !selection.scene || !selection.layer) return std::nullopt;
    auto found = map_->layer({*selection.scene, *selection.layer}, model_.state.currentTime());
    if (found && drag_) found->box = drag_->box;
    return found;
}

std::optional<StageLayer> StageTool::layerUnder(QPointF at) const {
    if (!map_) return std::nullopt;
    return map_->hit(viewport_.toCanvas(pointOf(at)), model_.state.currentTime());
}

std::vector<StageLayer> StageTool::layers() const {
    return map_ ? map_->layersAt(model_.state.currentTime()) : std::vector<StageLayer>();
}

std::optional<StageLayer> StageTool::deviceUnder(QPointF at) const {
    const auto isDevice = [this](const StageLayer& layer) {
        return model_.state.edited().content<DeviceContent>(layer.place.scene, layer.place.layer) != nullptr;
    };
    const auto under = layerUnder(at);
    return under && isDevice(*under) ? under : std::nullopt;
}

QRectF StageTool::inView(const PixelRect& box) const { return qRect(viewport_.rectInView(box)); }

QPointF StageTool::turnHandle(const QRectF& box) const { return {box.center().x(), box.top() - turnArmPx}; }

std::optional<StageTool::Grip> StageTool::gripAt(QPointF at) const {
    const auto layer = selected();
    if (!layer) return std::nullopt;
    const QRectF box = inView(layer->box);
    if (distance(at, turnHandle(box)) <= reachPx) return Grip{Kind::turn, {}};
    for (const StageHandle handle : handles)
        if (distance(at, handlePoint(box, handle)) <= reachPx) return Grip{Kind::grow, handle};
    if (box.contains(at)) return Grip{Kind::move, {}};
    return std::nullopt;
}

Qt::CursorShape StageTool::cursorAt(QPointF at) const {
    const auto grip = gripAt(at);
    if (!grip) return Qt::ArrowCursor;
    if (grip->kind == Kind::turn) return Qt::CrossCursor;
    if (grip->kind == Kind::move) return Qt::SizeAllCursor;
    if (grip->handle.x == 0) return Qt::SizeVerCursor;
    if (grip->handle.y == 0) return Qt::SizeHorCursor;
    return grip->handle.x == grip->handle.y ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor;
}

// A press on the selected layer or a handle takes hold of it; elsewhere it selects what lies there.
void StageTool::press(QPointF at) {
    if (!map_) return;
    auto grip = gripAt(at);
    const auto under = layerUnder(at);
    const auto now = selected();
    const bool isOther = under && (!now || !(under->place == now->place));
    if (!grip || (grip->kind == Kind::move && isOther)) {
        if (!under) return model_.clearSelection();
        model_.selectLayer(under->place.scene, under->place.layer);
        grip = Grip{Kind::move, {}};
    }
    const auto layer = selected();
    if (!layer) return;
    const EditState& edited = model_.state.edited();
    const CompositionLayer* before = edited.layer(layer->place.scene, layer->place.layer);
    if (!before) return;
    drag_ = Drag{grip->kind, grip->handle, *layer, at, *before, layer->box};
}

void StageTool::drag(QPointF to, Qt::KeyboardModifiers keys) {
    if (!drag_) return;
    if (!drag_->hasMoved) {
        if (distance(to, drag_->from) < beginPx) return;
        drag_->hasMoved = true;
        const StagePlace place = drag_->layer.place;
        model_.beginDeviceDrag(place.scene, place.layer);
        if (!model_.deviceDragStart())
            model_.beginGesture(stepName(drag_->kind == Kind::grow, drag_->kind == Kind::turn));
    }
    if (std::holds_alternative<DeviceContent>(drag_->before.content))
        dragDevice(to, keys);
    else
        dragLayer(to, keys);
    if (onChange) onChange();
}

void StageTool::change(const std::function<void(CompositionLayer&)>& mutate) {
    const StagePlace place = drag_->layer.place;
    model_.update("Move layer", [&](EditState& state) {
        CompositionLayer* layer = state.layer(place.scene, place.layer);
        if (!layer) return;
        CompositionLayer changed = drag_->before;
        mutate(changed);
        *layer = std::move(changed);
    });
}

void StageTool::dragLayer(QPointF to, Qt::KeyboardModifiers keys) {
    double dx = (to.x() - drag_->from.x()) / viewport_.scale();
    double dy = (to.y() - drag_->from.y()) / viewport_.scale();
    const PixelRect& box = drag_->layer.box;
    const StageStand& stand = drag_->layer.stand;
    drag_->guides.clear();
    if (drag_->kind == Kind::grow) {
        const StageGrowth by = growth(box, drag_->handle, dx, dy);
        drag_->box = grown(box, by);
        change([&](CompositionLayer& layer) { growLayer(layer, by, drag_->handle, stand); });
    } else if (drag_->kind == Kind::turn) {
        const QPointF middle = inView(box).center();
        double degrees = degreesOf(to - middle) - degreesOf(drag_->from - middle);
        if (keys.testFlag(Qt::ShiftModifier)) degrees = std::round(degrees / turnStepDeg) * turnStepDeg;
        change([&](CompositionLayer& layer) { turnLayer(layer, degrees, stand.windowSec); });
    } else {
        if (keys.testFlag(Qt::ShiftModifier)) (std::abs(dx) > std::abs(dy) ? dy : dx) = 0;
        SnappedMove move{dx, dy, {}};
        if (!keys.testFlag(Qt::ControlModifier)) {
            std::vector<PixelRect> others;
            for (const StageLayer& layer : map_->layersAt(model_.state.currentTime()))
                if (!(layer.place == drag_->layer.place)) others.push_back(layer.box);
            move = snappedMove(box, dx, dy, {0, 0, stand.canvasWidthPx, stand.canvasHeightPx}, others,
                snapPx / viewport_.scale());
        }
        drag_->guides = move.guides;
        drag_->box = {box.x + move.dxPx, box.y + move.dyPx, box.width, box.height};
        change([&](CompositionLayer& layer) { moveLayer(layer, move.dxPx, move.dyPx, stand); });
    }
}

// Devices move by their keyframes, and those in space are drawn at once without the document.
void StageTool::dragDevice(QPointF to, Qt::KeyboardModifiers keys) {
    const auto& start = model_.deviceDragStart();
    if (!start) return;   // something else was done meanwhile
    QPointF by = to - drag_->from;
    const PixelRect& from = drag_->layer.box;
    if (drag_->kind == Kind::move) {
        auto axis = DeviceOperations::DeviceMoveAxis::free;
        if (keys.testFlag(Qt::ShiftModifier)) {
            const bool isAcross = std::abs(by.x()) > std::abs(by.y());
            axis = isAcross ? DeviceOperations::DeviceMoveAxis::x : DeviceOperations::DeviceMoveAxis::y;
            (isAcross ? by.ry() : by.rx()) = 0;
        }
        model_.dragDeviceMove(by.x(), by.y(), viewport_.canvasRect().height, axis);
        drag_->box = {from.x + by.x() / viewport_.scale(), from.y + by.y() / viewport_.scale(), from.width,
            from.height};
    } else if (drag_->kind == Kind::turn) {
        const QRectF box = inView(from);
        model_.dragDeviceRotate(pointOf(drag_->from), pointOf(to),
            {pointOf(box.center()), std::hypot(box.width(), box.height()) / 2});
    } else {
        const double sign = drag_->handle.y == 0 ? -drag_->handle.x : drag_->handle.y;
        const double travel = drag_->handle.y == 0 ? -by.x() : by.y();
        const double dyPoints = sign < 0 ? travel : -travel;
        model_.dragDeviceScale(dyPoints);
        const double factor =
            DeviceOperations::scaled(*start, dyPoints).scale / std::max(start->state.scale, 1e-6);
        drag_->box = grown(from, {factor, factor, from.center()});
    }
}

void StageTool::release() {
    if (!drag_) return;
    const bool hasMoved = drag_->hasMoved;
    drag_.reset();
    if (hasMoved) {
        model_.endDeviceDrag();
        model_.endGesture();
    }
    if (onChange) onChange();
}

void StageTool::cancel() {
    if (!drag_) return;
    const bool hasMoved = drag_->hasMoved;
    drag_.reset();
    if (hasMoved) model_.cancelGesture();
    if (onChange) onChange();
}

void StageTool::nudge(double dxPx, double dyPx) {
    const auto layer = selected();
    if (!layer) return;
    const auto [scene, index] = layer->place;
    const EditState& edited = model_.state.edited();
    if (const auto start = DeviceOperations::dragStart(edited, scene, index, model_.state.currentTime())) {
        const auto moved = DeviceOperations::moved(
            *start, dxPx, dyPx, {viewport_.canvas().height, 1}, DeviceOperations::DeviceMoveAxis::free);
        model_.update("Nudge device", [&](EditState& state) {
            DeviceKeyframes::upsertUnifiedKeyframe(
                *state.content<DeviceContent>(start->scene, start->layer), start->atSec, moved);
        });
        return;
    }
    model_.update("Nudge layer", [&](EditState& state) {
        if (auto* held = state.layer(layer->place.scene, layer->place.layer))
            moveLayer(*held, dxPx, dyPx, layer->stand);
    });
}

void StageTool::hover(QPointF at) {
    const auto before = hovered_;
    hovered_ = layerUnder(at);
    const bool isSame = before.has_value() == hovered_.has_value() &&
                        (!before || (before->place == hovered_->place && before->box == hovered_->box));
    if (!isSame && onChange) onChange();
}

void StageTool::leave() {
    if (!std::exchange(hovered_, std::nullopt)) return;
    if (onChange) onChange();
}

QString StageTool::hoverText() const {
    if (!hovered_) return {};
    return tr("%1 · %2 × %3")
        .arg(words(hovered_->name))
        .arg(std::lround(hovered_->box.width))
        .arg(std::lround(hovered_->box.height));
}

void StageTool::paint(QPainter& painter) const {
    const design::Theme& theme = design::Style::theme();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    const auto now = selected();
    if (hovered_ && !drag_ && !(now && hovered_->place == now->place)) {
        painter.setPen(QPen(design::withAlpha(theme.focus, 0.7), 1));
        painter.drawRect(inView(hovered_->box));
    }
    if (!now || model_.state.isPlaying()) return;
    const QRectF box = inView(now->box);
    painter.setPen(QPen(QColor(0, 0, 0, 90), 3));
    painter.drawRect(box);
    painter.setPen(QPen(theme.focus, 1.5));
    painter.drawRect(box);
    painter.drawLine(QPointF(box.center().x(), box.top()), turnHandle(box));
    painter.setPen(QPen(theme.focus, 1.25));
    painter.setBrush(Qt::white);
    painter.drawEllipse(turnHandle(box), handlePx / 2, handlePx / 2);
    for (const StageHandle handle : handles) {
        const QPointF at = handlePoint(box, handle);
        painter.drawRoundedRect(
            QRectF(at.x() - handlePx / 2, at.y() - handlePx / 2, handlePx, handlePx), 2, 2);
    }
    if (!drag_) return;
    const QRectF canvas = qRect(viewport_.canvasRect());
    painter.setPen(QPen(theme.playhead, 1));
    for (const StageGuide& guide : drag_->guides) {
        const QPointF at = qPoint(viewport_.toView(PixelPoint{guide.atPx, guide.atPx}));
        if (guide.axis == StageGuide::Axis::vertical)
            painter.drawLine(QPointF(at.x(), canvas.top()), QPointF(at.x(), canvas.bottom()));
        else
            painter.drawLine(QPointF(canvas.left(), at.y()), QPointF(canvas.right(), at.y()));
    }
}

}   // namespace tavix::editor
