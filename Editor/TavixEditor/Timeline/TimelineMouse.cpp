// What the mouse and the trackpad do to the timeline.
#include "TavixEditor/Timeline/TimelineCanvas.h"

#include "Editor/EditorDomain/Timeline/TimelineCommands.h"
#include "TavixLive/Model/CompositionEditorModel.h"

#include <QMouseEvent>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace tavix::editor {

using namespace timeline;

namespace {

constexpr double playheadReach = 6, wheelStepPoints = 60, autoScrollMargin = 24;

bool snapsWith(Qt::KeyboardModifiers modifiers) { return !(modifiers & Qt::ControlModifier); }

Qt::CursorShape cursorOver(Part part) {
    switch (part) {
    case Part::bandEnd:
    case Part::transitionStart:
    case Part::barStart:
    case Part::barEnd: return Qt::SizeHorCursor;
    case Part::keyframe:
    case Part::cue: return Qt::PointingHandCursor;
    default: return Qt::ArrowCursor;
    }
}

}   // namespace

Hit TimelineCanvas::hitAt(const QPointF& inWidget) const {
    const QPointF at = contentPoint(inWidget);
    return layout_.hit(scene_, at.x(), at.y());
}

void TimelineCanvas::scrub(double contentX) {
    model_.seek(layout_.scale.secOf(contentX));
    const double margin = autoScrollMargin;
    const double x = contentX - scrollX_;
    if (x < 0 || x > width())
        setScroll(scrolledToShow(layout_.scale, scrollX_, model_.state.currentTime(), margin), scrollY_);
}

void TimelineCanvas::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const QPointF at = contentPoint(event->position());
    const Hit hit = layout_.hit(scene_, at.x(), at.y());
    press_ = Press{hit, at, event->modifiers()};
    // The line of the playhead can be held between the bars, its knob anywhere in the ruler.
    const bool isOnLine =
        std::abs(event->position().x() - playheadX()) <= playheadReach && hit.part == Part::nothing;
    if (hit.part == Part::ruler || hit.part == Part::sound || isOnLine) {
        isScrubbing_ = true;
        scrub(at.x());
    }
}

void TimelineCanvas::mouseMoveEvent(QMouseEvent* event) {
    if (!press_) return hover(event->position());
    const QPointF at = contentPoint(event->position());
    if (isScrubbing_) return scrub(at.x());
    if (!drag_ && !rubberBand_) {
        const double across = std::abs(at.x() - press_->at.x()), down = std::abs(at.y() - press_->at.y());
        const bool isToRow = press_->hit.part == Part::barBody && down > Layout::rowHeight / 2.0;
        const bool isBand = press_->hit.part == Part::nothing && down > dragThresholdPoints;
        if (across <= dragThresholdPoints && !isToRow && !isBand) return;
        startDrag();
    }
    if (drag_)
        pullDrag(at, event->modifiers());
    else if (rubberBand_)
        stretchBand(at);
}

void TimelineCanvas::startDrag() {
    const Hit& hit = press_->hit;
    if (hit.part == Part::nothing || hit.part == Part::keyframeRow) {
        rubberBand_ = QRectF(press_->at, QSizeF());
        return;
    }
    const bool isBar = hit.part == Part::barBody || hit.part == Part::barStart || hit.part == Part::barEnd;
    if (isBar) {
        const LayerPlace place = scene_.bars[hit.index].place;
        if (!model_.state.edited().selection.contains(place)) {
            const Hit pressed = hit;
            model_.selectLayer(place.scene, place.layer);
            // Selecting may raise the scene, and so number its bars anew.
            for (std::size_t i = 0; i < scene_.bars.size(); ++i)
                if (scene_.bars[i].place == place) press_->hit = {pressed.part, i, 0};
        }
    }
    if (hit.part == Part::keyframe &&
        std::ranges::find(marks_, Drag::MarkPlace{hit.index, hit.mark}) == marks_.end())
        marks_ = {{hit.index, hit.mark}};
    drag_ = Drag::of(model_.state.edited(), scene_, press_->hit, layout_.scale.secOf(press_->at.x()), marks_);
    if (drag_) model_.beginGesture(drag_->stepName());
}

void TimelineCanvas::pullDrag(const QPointF& content, Qt::KeyboardModifiers modifiers) {
    press_->isAcross = press_->isAcross || std::abs(content.x() - press_->at.x()) > dragThresholdPoints;
    const Drag::Pull pull{.toSec = layout_.scale.secOf(press_->isAcross ? content.x() : press_->at.x()),
        .playheadSec = model_.state.currentTime(),
        .pps = layout_.scale.pps(),
        .isSnapping = press_->isAcross && isSnapping_ && snapsWith(modifiers),
        .stretches = modifiers.testFlag(Qt::AltModifier),
        .row = rowAt(content)};
    model_.update(drag_->stepName(), [&](EditState& state) { state = drag_->at(pull); });
}

void TimelineCanvas::stretchBand(const QPointF& content) {
    const QRectF before = rubberBand_->normalized();
    rubberBand_ = QRectF(press_->at, content).normalized();
    const QRectF touched = (before | *rubberBand_).translated(-scrollX_, -scrollY_);
    update(touched.toAlignedRect().adjusted(-2, -2, 2, 2));
    std::vector<LayerPlace> places;
    const QRectF& box = *rubberBand_;
    for (const std::size_t bar : layout_.barsIn(scene_, {box.x(), box.y(), box.width(), box.height()}))
        places.push_back(scene_.bars[bar].place);
    if (places.empty()) return;
    std::ranges::sort(places);
    model_.update({}, [&](EditState& state) { selectLayers(state, places); });
}

void TimelineCanvas::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !press_) return;
    const Press press = *press_;
    press_.reset();
    isScrubbing_ = false;
    if (drag_) {
        drag_.reset();
        model_.endGesture();
        updateScale();
        update();
        if (onView) onView();
    } else if (rubberBand_) {
        rubberBand_.reset();
        update();
    } else {
        click(press);
    }
    hover(event->position());
}

void TimelineCanvas::cancelDrag() {
    if (drag_) {
        const EditState before = drag_->before;
        drag_.reset();
        model_.update({}, [&](EditState& state) { state = before; });
        model_.endGesture();
    }
    press_.reset();
    rubberBand_.reset();
    updateScale();
    update();
}

void TimelineCanvas::click(const Press& press) {
    const std::size_t index = press.hit.index;
    switch (press.hit.part) {
    case Part::chevron:
        if (!collapsed_.erase(index)) collapsed_.insert(index);
        return showDocument();
    case Part::bandBody:
    case Part::bandEnd:
    case Part::transition:
    case Part::transitionStart: return model_.selectScene(index, true);
    case Part::barBody:
    case Part::barStart:
    case Part::barEnd: {
        const LayerPlace place = scene_.bars[index].place;
        if (press.modifiers & (Qt::ControlModifier | Qt::ShiftModifier)) {
            const Extend extend = press.modifiers & Qt::ShiftModifier ? Extend::range : Extend::toggle;
            return model_.update({}, [&](EditState& state) { timeline::selectLayer(state, place, extend); });
        }
        return model_.selectLayer(place.scene, place.layer);
    }
    case Part::keyframe: return clickMark(press);
    case Part::nothing:
        if (!isScrubbing_) model_.clearSelection();
        return;
    default: return;
    }
}

void TimelineCanvas::clickMark(const Press& press) {
    const Drag::MarkPlace place{press.hit.index, press.hit.mark};
    if (press.modifiers & (Qt::ControlModifier | Qt::ShiftModifier)) {
        if (std::erase(marks_, place) == 0) marks_.push_back(place);
    } else {
        marks_ = {place};
        model_.seek(scene_.layerStartSec + scene_.keyframeRows[place.row].marks[place.mark].sec);
    }
    update();
}

void TimelineCanvas::mouseDoubleClickEvent(QMouseEvent* event) {
    const Hit hit = hitAt(event->position());
    if (hit.part == Part::keyframeRow) {
        model_.seek(layout_.scale.secOf(contentPoint(event->position()).x()));
        return addKeyframeAtPlayhead(hit.index);
    }
    mousePressEvent(event);
}

void TimelineCanvas::hover(const QPointF& inWidget) {
    const Hit hit = rect().contains(inWidget.toPoint()) ? hitAt(inWidget) : Hit{};
    setCursor(cursorOver(hit.part));
    if (hit == hover_) return;
    const auto isBar = [](const Hit& one) {
        return one.part == Part::barBody || one.part == Part::barStart || one.part == Part::barEnd;
    };
    const bool samePlace = isBar(hit) && isBar(hover_) && hit.index == hover_.index;
    const Hit before = std::exchange(hover_, hit);
    if (samePlace) return;
    for (const Hit& one : {before, hit}) {
        if (isBar(one) && one.index < scene_.bars.size()) update(rectOf(one.index).adjusted(-2, -2, 2, 2));
        if (one.part == Part::transition || one.part == Part::transitionStart)
            update(0, 0, width(), Layout::headHeight);
        if (one.part == Part::cue)
            update(0, int(viewY(layout_.soundTop(scene_))), width(), Layout::cueHeight);
    }
}

void TimelineCanvas::leaveEvent(QEvent*) { hover({-1, -1}); }

void TimelineCanvas::wheelEvent(QWheelEvent* event) {
    const QPoint pixels = event->pixelDelta(), degrees = event->angleDelta();
    if (event->modifiers() & Qt::ControlModifier) {
        const double factor = std::pow(2.0, degrees.y() / 120.0 / 3);
        const View view = zoomedAt(layout_.scale, scrollX_, event->position().x(), factor);
        zoom_ = view.zoom;
        scrollX_ = view.scrollX;
        updateScale();
        update();
        if (onView) onView();
        return event->accept();
    }
    QPointF by = pixels.isNull() ? QPointF(degrees) / 120 * wheelStepPoints : QPointF(pixels);
    // A wheel without a second axis goes along the film where there is nothing below.
    if (by.x() == 0 && (mostScrollY() == 0 || event->modifiers() & Qt::ShiftModifier)) by = {by.y(), 0};
    setScroll(scrollX_ - by.x(), scrollY_ - int(std::lround(by.y())));
    event->accept();
}

}   // namespace tavix::editor
