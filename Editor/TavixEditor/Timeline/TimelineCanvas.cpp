#include "TavixEditor/Timeline/TimelineCanvas.h"

#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "Editor/EditorDesignSystem/Style/Style.h"
#include "TavixEditor/App/AccessibleParts.h"
#include "TavixEditor/Timeline/TimelineAccessibility.h"
#include "TavixLive/Model/CompositionEditorModel.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tavix::editor {

using namespace design;
using namespace timeline;

namespace {

constexpr int playheadReach = 5;   // of its knob, to either side

}   // namespace

TimelineCanvas::TimelineCanvas(CompositionEditorModel& model, QWidget* parent)
    : QWidget(parent), model_(model), nudging_(model) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setMinimumSize(200, Layout::headHeight + 2 * Layout::rowHeight);
    setAccessibleName(tr("Timeline"));
    tellTimeline(this);
    connections_.push_back(watch([this] { showDocument(); }, model_.state.edited));
    connections_.push_back(
        watch([this] { update(0, Layout::rulerHeight - 2, width(), 2); }, model_.state.cachedRanges));
    connections_.push_back(watch([this] { movePlayhead(); }, model_.state.currentTime));
    shownSec_ = model_.state.currentTime();
    showDocument();
}

void TimelineCanvas::showDocument() {
    Scene scene = sceneOf(model_.state.edited(), collapsed_);
    if (scene == scene_) return;
    if (const Selection& selected = model_.state.edited().selection; !(selected == toldSelection_)) {
        toldSelection_ = selected;
        QMetaObject::invokeMethod(
            this, [this] { tellSelectedPart(this); }, Qt::QueuedConnection);
    }
    // Where only bars changed, only they are painted again.
    const bool keepsShape =
        scene.bands == scene_.bands && scene.rows == scene_.rows && scene.cues == scene_.cues &&
        scene.bars.size() == scene_.bars.size() && scene.hasMusic == scene_.hasMusic &&
        scene.beats == scene_.beats && scene.musicStartsAtSec == scene_.musicStartsAtSec &&
        scene.keyframeRows.size() == scene_.keyframeRows.size() && scene.layer == scene_.layer;
    if (scene.layer != scene_.layer || scene.keyframeRows.size() != scene_.keyframeRows.size())
        marks_.clear();
    painter_.forget();
    if (!keepsShape) {
        scene_ = std::move(scene);
        updateScale();
        update();
        if (onView) onView();
        return;
    }
    const auto updateBar = [&](std::size_t i) { update(rectOf(i).adjusted(-4, -2, 4, 2)); };
    std::vector<std::size_t> changed;
    for (std::size_t i = 0; i < scene.bars.size(); ++i)
        if (!(scene.bars[i] == scene_.bars[i])) changed.push_back(i);
    for (const std::size_t i : changed) updateBar(i);
    const bool rowsChanged =
        scene.keyframeRows != scene_.keyframeRows || scene.layerStartSec != scene_.layerStartSec;
    scene_ = std::move(scene);
    for (const std::size_t i : changed) updateBar(i);
    if (rowsChanged) update(0, int(viewY(layout_.keyframesTop(scene_))), width(), height());
    if (onView) onView();
}

void TimelineCanvas::updateScale() {
    // While something is dragged the scale stands still, or it would run away under the pointer.
    const double total = drag_ ? layout_.scale.totalSec : scene_.totalSec;
    layout_.scale = Scale::of(total, width(), zoom_);
    scrollX_ = layout_.scale.clampedScroll(scrollX_);
    scrollY_ = std::clamp(scrollY_, 0, mostScrollY());
}

int TimelineCanvas::lanesBottom() const {
    const double foot = layout_.footHeight(scene_, height());
    if (foot <= 0) return height();
    // Where there is room for everything the foot follows the layers.
    return int(std::min(height() - foot, layout_.soundTop(scene_)));
}

int TimelineCanvas::mostScrollY() const {
    const bool hasFoot = lanesBottom() < height();
    const double content = hasFoot ? layout_.soundTop(scene_) : layout_.contentHeight(scene_);
    return std::max(0, int(std::ceil(content)) - lanesBottom());
}

double TimelineCanvas::viewY(double contentY) const {
    const bool isInFoot = lanesBottom() < height() && contentY >= layout_.soundTop(scene_);
    return isInFoot ? lanesBottom() + contentY - layout_.soundTop(scene_) : contentY - scrollY_;
}

void TimelineCanvas::resizeEvent(QResizeEvent*) {
    updateScale();
    if (onView) onView();
}

void TimelineCanvas::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange && event->type() != QEvent::StyleChange) return;
    painter_.forget();
    update();
}

void TimelineCanvas::setZoom(double zoom) {
    const double head = layout_.scale.xOf(model_.state.currentTime()) - scrollX_;
    const double kept = head >= 0 && head <= width() ? head : width() / 2.0;
    const View view = zoomedAt(layout_.scale, scrollX_, kept, zoom / zoom_);
    zoom_ = view.zoom;
    scrollX_ = view.scrollX;
    updateScale();
    update();
    if (onView) onView();
}

void TimelineCanvas::setScroll(double x, int y) {
    x = std::round(layout_.scale.clampedScroll(x));
    y = std::clamp(y, 0, mostScrollY());
    const int dx = int(std::lround(scrollX_ - x)), dy = scrollY_ - y;
    if (dx == 0 && dy == 0) return;
    scrollX_ = x;
    scrollY_ = y;
    const QRect lanes(0, Layout::headHeight, width(), lanesBottom() - Layout::headHeight);
    if (dy == 0) {
        scroll(dx, 0);   // moves the pixels, and asks to paint only what came into view
    } else {
        // The head stays, and the playhead goes through both.
        scroll(0, dy, lanes);
        if (dx != 0) update();
        update(playheadRect());
    }
    if (onView) onView();
}

void TimelineCanvas::setMusic(
    std::shared_ptr<const Waveform> wave, const std::optional<BeatAnalysis>& heard) {
    painter_.setMusic(std::move(wave), heard);
    update();
}

double TimelineCanvas::playheadX() const { return std::round(layout_.scale.xOf(shownSec_) - scrollX_); }

QRect TimelineCanvas::playheadRect() const {
    return {int(playheadX()) - playheadReach, 0, 2 * playheadReach + 1, height()};
}

void TimelineCanvas::movePlayhead() {
    const QRect before = playheadRect();
    shownSec_ = model_.state.currentTime();
    // A film that plays turns the page where the playhead leaves the view.
    if (model_.state.isPlaying() && !press_) {
        const double x = layout_.scale.xOf(shownSec_) - scrollX_;
        if (x < 0 || x > width()) setScroll(layout_.scale.xOf(shownSec_) - 24, scrollY_);
    }
    const QRect after = playheadRect();
    if (after == before) return;   // less than a point
    update(before);
    update(after);
}

QRect TimelineCanvas::rectOf(std::size_t bar) const {
    const Box box = layout_.barBox(scene_.bars[bar]);
    return QRectF(box.x - scrollX_, box.y - scrollY_, box.width, box.height).toAlignedRect();
}

QPointF TimelineCanvas::contentPoint(const QPointF& inWidget) const {
    const double x = inWidget.x() + scrollX_, y = inWidget.y();
    if (y < Layout::headHeight) return {x, y};
    return {x, y < lanesBottom() ? y + scrollY_ : y - lanesBottom() + layout_.soundTop(scene_)};
}

// Of the layers, where the pointer is over them; beyond the last one it is the one below all.
std::optional<int> TimelineCanvas::rowAt(const QPointF& content) const {
    if (content.y() < Layout::headHeight || content.y() >= layout_.soundTop(scene_)) return std::nullopt;
    return int((content.y() - layout_.laneTop(0)) / (Layout::rowHeight + Layout::rowSpacing));
}

void TimelineCanvas::paintPart(QPainter& painter, const QRect& rect, Strip strip) {
    const TimelinePainter::Shown shown{
        scene_, layout_, marks_, hover_, model_.state.cachedRanges(), devicePixelRatioF()};
    const int dy = strip == Strip::head    ? 0
                   : strip == Strip::lanes ? scrollY_
                                           : int(layout_.soundTop(scene_)) - lanesBottom();
    painter.save();
    painter.setClipRect(rect);
    painter.translate(-scrollX_, -dy);
    const QRect content = rect.translated(int(scrollX_), dy);
    if (strip == Strip::head)
        painter_.paintHead(painter, shown, content);
    else
        painter_.paintBody(painter, shown, content);
    painter.restore();
    if (strip == Strip::foot && lanesBottom() < height())
        painter.fillRect(QRect(rect.x(), lanesBottom(), rect.width(), 1) & rect, Style::theme().hairline);
}

void TimelineCanvas::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QRect head(0, 0, width(), Layout::headHeight),
        lanes(0, Layout::headHeight, width(), lanesBottom() - Layout::headHeight);
    const QRect foot(0, lanesBottom(), width(), height() - lanesBottom());
    // Two far strips must not become one wide rectangle, so each part of the region is painted by itself.
    for (const QRect& rect : event->region()) {
        if (const QRect part = rect & head; !part.isEmpty()) paintPart(painter, part, Strip::head);
        if (const QRect part = rect & lanes; !part.isEmpty()) paintPart(painter, part, Strip::lanes);
        if (const QRect part = rect & foot; !part.isEmpty()) paintPart(painter, part, Strip::foot);
    }
    const QColor red = Style::theme().playhead;
    const double x = playheadX();
    painter.fillRect(QRectF(x, 4, 1, height() - 4), red);
    painter.setRenderHint(QPainter::Antialiasing);
    drawBox(painter, QRectF(x - 4, 3, 9, 11), 2.5, red);
    if (rubberBand_) {
        const QRectF box = rubberBand_->translated(-scrollX_, -scrollY_);
        drawBox(painter, box, 2, withAlpha(Style::theme().accent, 0.15), Style::theme().accent);
    }
}

void TimelineCanvas::focusInEvent(QFocusEvent*) {
    if (onFocus) onFocus(true);
}

void TimelineCanvas::focusOutEvent(QFocusEvent*) {
    nudging_.letGo();
    if (onFocus) onFocus(false);
}

double TimelineCanvas::frameSec() const {
    const double rate = double(model_.state.edited().spec.output.fps);
    return rate > 0 ? 1 / rate : 1.0 / 30;
}

}   // namespace tavix::editor
