#include "TavixEditor/Stage/StageView.h"

#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "Editor/EditorDesignSystem/Style/Style.h"
#include "TavixEditor/App/AccessibleParts.h"
#include "TavixEditor/App/Studio.h"
#include "TavixEditor/App/Words.h"
#include "TavixEditor/Stage/QtPoints.h"
#include "TavixEditor/Stage/TextInPlace.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWheelEvent>

#include <cmath>

namespace tavix::editor {

using design::Style;

namespace {

// The image borrows the pixels and keeps them alive. RGB32: no alpha to blend.
QImage borrowed(const imaging::BitmapRef& pixels, double ratio) {
    auto* keep = new imaging::BitmapRef(pixels);
    const imaging::ConstBitmapView view = pixels->view();
    QImage image(
        view.pixels, view.size.width, view.size.height, qsizetype(view.strideBytes), QImage::Format_RGB32,
        [](void* kept) { delete static_cast<imaging::BitmapRef*>(kept); }, keep);
    image.setDevicePixelRatio(ratio);
    return image;
}

// Titles stay within nine tenths of a frame, what happens within 93 parts of a hundred (SMPTE RP 2046-1).
constexpr double titleSafe = 0.90, actionSafe = 0.93;

}   // namespace

StageView::StageView(Studio& studio, QWidget* parent)
    : QWidget(parent), model_(studio.model), tool_(studio, viewport_), nudging_(studio.model) {
    tool_.onChange = [this] { update(); };
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setMinimumSize(240, 200);
    setAccessibleName(QCoreApplication::translate("StageView", "Stage"));
    tellParts(this, QAccessible::Canvas, [this] { return accessibleLayers(); });
    model_.setStageSink([this](const StagePicture& picture) { show(picture); });
    connections_.push_back(
        tavix::show([this] { showDocument(); }, model_.state.edited, model_.state.isLoaded));
}

std::vector<AccessiblePart> StageView::accessibleLayers() const {
    std::vector<AccessiblePart> parts;
    for (const StageLayer& layer : tool_.layers()) {
        const StagePlace place = layer.place;
        AccessiblePart part;
        part.role = QAccessible::Graphic;
        part.name = words(layer.name);
        part.about = QCoreApplication::translate("StageView", "%1 × %2 pixels at %3, %4")
                         .arg(std::lround(layer.box.width))
                         .arg(std::lround(layer.box.height))
                         .arg(std::lround(layer.box.x))
                         .arg(std::lround(layer.box.y));
        part.box = tool_.inView(layer.box).toAlignedRect();
        part.isSelected = model_.state.edited().selection.contains({place.scene, place.layer});
        part.press = [this, place] { model_.selectLayer(place.scene, place.layer); };
        parts.push_back(std::move(part));
    }
    return parts;
}

StageView::~StageView() { model_.setStageSink({}); }

void StageView::showDocument() {
    const CompositionOutput& output = model_.state.edited().spec.output;
    if (!model_.state.isLoaded()) image_ = {};
    const StageViewport::Extent canvas{double(output.widthPx), double(output.heightPx)};
    if (!(canvas == viewport_.canvas())) {
        viewport_.setCanvas(canvas);
        moved();
    }
}

void StageView::show(const StagePicture& picture) {
    image_ = borrowed(picture.pixels, devicePixelRatioF());
    update(drawnRect());
}

void StageView::tellRoom() {
    const QSizeF canvas = QSizeF(drawnRect().size()) * devicePixelRatioF();
    const QSize room(int(std::lround(canvas.width())), int(std::lround(canvas.height())));
    if (room == room_ || room.isEmpty()) return;
    room_ = room;
    model_.setStageRoom({room.width(), room.height()});
}

void StageView::moved() {
    tellRoom();
    update();
}

void StageView::fit() {
    viewport_.fit();
    moved();
}
void StageView::zoomBy(double factor) {
    viewport_.zoomTo(viewport_.scale() * factor);
    moved();
}
void StageView::zoomToActualPixels() {
    viewport_.zoomTo(1 / devicePixelRatioF());
    moved();
}
void StageView::setSafeAreasShown(bool areShown) {
    showsSafeAreas_ = areShown;
    update();
}

void StageView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QRect canvas = drawnRect();
    for (const QRect& rect : event->region() - QRegion(canvas)) painter.fillRect(rect, Style::theme().stage);
    painter.setClipRegion(event->region());
    if (image_.isNull()) {
        painter.fillRect(canvas, Qt::black);
    } else if (image_.size() == room_) {
        painter.drawImage(canvas.topLeft(), image_);
    } else {   // magnified, or for the moment until a frame of the new size comes
        painter.setRenderHint(QPainter::SmoothPixmapTransform, viewport_.scale() <= 1);
        painter.drawImage(canvas, image_, image_.rect());
    }
    if (showsSafeAreas_) drawSafeAreas(painter);
    if (!model_.state.isLoaded()) return;
    tool_.paint(painter);
    drawDropTarget(painter);
    drawHoverText(painter);
}

void StageView::drawSafeAreas(QPainter& painter) const {
    const QRectF canvas = drawnRect();
    painter.setBrush(Qt::NoBrush);
    for (const double part : {actionSafe, titleSafe}) {
        QRectF area(0, 0, canvas.width() * part, canvas.height() * part);
        area.moveCenter(canvas.center());
        painter.setPen(QPen(QColor(0, 0, 0, 110), 3));
        painter.drawRect(area);
        painter.setPen(QPen(QColor(255, 255, 255, 190), 1));
        painter.drawRect(area);
    }
}

void StageView::resizeEvent(QResizeEvent*) {
    viewport_.setView({double(width()), double(height())});
    moved();
}

void StageView::wheelEvent(QWheelEvent* event) {
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        viewport_.zoomAbout(pointOf(event->position()), std::exp(event->angleDelta().y() / 480.0));
    } else {
        const QPoint step = event->hasPixelDelta() ? event->pixelDelta() : event->angleDelta() / 2;
        if (viewport_.isFitted()) return event->ignore();
        viewport_.pan(pointOf(event->modifiers().testFlag(Qt::ShiftModifier) ? step.transposed() : step));
    }
    event->accept();
    moved();
}

void StageView::drawHoverText(QPainter& painter) const {
    const QString text = tool_.hoverText();
    if (text.isEmpty() || tool_.isDragging()) return;
    painter.setFont(design::fontOf(design::TextSize::caption));
    const QSize words = painter.fontMetrics().size(Qt::TextSingleLine, text);
    const QRectF box(design::space::small, height() - words.height() - design::space::large,
        words.width() + 2 * design::space::small, words.height() + design::space::small);
    design::drawBox(painter, box, design::radius::field, design::withAlpha(Style::theme().panel, 0.92));
    painter.setPen(Style::theme().secondary);
    painter.drawText(box, Qt::AlignCenter, text);
}

void StageView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton) {
        panFrom_ = event->position();
        setCursor(Qt::ClosedHandCursor);
    } else if (event->button() == Qt::LeftButton) {
        tool_.press(event->position());
    } else {
        QWidget::mousePressEvent(event);
    }
}

void StageView::mouseMoveEvent(QMouseEvent* event) {
    if (panFrom_) {
        viewport_.pan(pointOf(event->position() - *panFrom_));
        panFrom_ = event->position();
        moved();
    } else if (tool_.isDragging()) {
        tool_.drag(event->position(), event->modifiers());
    } else {
        tool_.hover(event->position());
        setCursor(tool_.cursorAt(event->position()));
    }
}

void StageView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton) {
        panFrom_.reset();
        unsetCursor();
    } else if (event->button() == Qt::LeftButton) {
        tool_.release();
    }
}

void StageView::mouseDoubleClickEvent(QMouseEvent* event) {
    tool_.release();
    if (const auto layer = tool_.layerUnder(event->position())) editText(layer->place);
}

void StageView::leaveEvent(QEvent*) { tool_.leave(); }

void StageView::keyPressEvent(QKeyEvent* event) {
    const double step = event->modifiers().testFlag(Qt::ShiftModifier) ? 10 : 1;
    const auto selected = tool_.selected();
    switch (event->key()) {
    case Qt::Key_Left: return nudge(-step, 0);
    case Qt::Key_Right: return nudge(step, 0);
    case Qt::Key_Up: return nudge(0, -step);
    case Qt::Key_Down: return nudge(0, step);
    case Qt::Key_Escape:
        if (tool_.isDragging()) return tool_.cancel();
        if (!model_.state.edited().selection.scene) break;
        return model_.clearSelection();
    case Qt::Key_Return:
        if (selected) return editText(selected->place);
        break;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        if (selected && onRemove) return onRemove();
        break;
    default: break;
    }
    QWidget::keyPressEvent(event);
}

void StageView::nudge(double dxPx, double dyPx) {
    if (tool_.selected()) nudging_.press("Nudge layer");
    tool_.nudge(dxPx, dyPx);
}

void StageView::keyReleaseEvent(QKeyEvent* event) {
    if (!event->isAutoRepeat()) nudging_.letGo();
    QWidget::keyReleaseEvent(event);
}

void StageView::focusOutEvent(QFocusEvent* event) {
    nudging_.letGo();
    QWidget::focusOutEvent(event);
}

void StageView::editText(const StagePlace& place) {
    const auto layer = tool_.selected();
    if (!layer || !(layer->place == place) ||
        !model_.state.edited().content<TextContent>(place.scene, place.layer))
        return;
    auto* field = new TextInPlace(model_, place, this);
    field->settleBeside(tool_.inView(layer->box).toAlignedRect());
}

QRect StageView::drawnRect() const { return qRect(viewport_.drawnRect()).toRect(); }

std::optional<StagePlace> StageView::showDropAt(std::optional<QPointF> at) {
    const auto device = at ? tool_.deviceUnder(*at) : std::nullopt;
    dropBox_ = device ? std::optional(device->box) : std::nullopt;
    update();
    return device ? std::optional(device->place) : std::nullopt;
}

void StageView::drawDropTarget(QPainter& painter) const {
    if (!dropBox_) return;
    const QColor focus = Style::theme().focus;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(focus, 3));
    painter.setBrush(design::withAlpha(focus, 0.25));
    painter.drawRoundedRect(tool_.inView(*dropBox_), design::radius::card, design::radius::card);
}

bool StageView::event(QEvent* event) {
    if (event->type() == QEvent::NativeGesture) {
        const auto* gesture = static_cast<QNativeGestureEvent*>(event);
        if (gesture->gestureType() == Qt::ZoomNativeGesture) {
            viewport_.zoomAbout(pointOf(gesture->position()), 1 + gesture->value());
            moved();
            return true;
        }
    }
    if (event->type() == QEvent::ScreenChangeInternal) tellRoom();   // other device pixels
    return QWidget::event(event);
}

}   // namespace tavix::editor
