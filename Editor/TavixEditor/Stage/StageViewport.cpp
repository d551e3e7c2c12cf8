#include "TavixEditor/Stage/StageViewport.h"

#include <algorithm>
#include <cmath>

namespace tavix::editor {

double StageViewport::fittedScale() const {
    const double wide = (view_.width() - 2 * marginPx) / canvas_.width();
    const double high = (view_.height() - 2 * marginPx) / canvas_.height();
    return std::max(std::min(wide, high), leastScale / 4);
}

double StageViewport::scale() const { return zoom_ ? zoom_->scale : fittedScale(); }

QRectF StageViewport::canvasRect() const {
    const double s = scale();
    const QPointF center = zoom_ ? zoom_->center : QPointF(canvas_.width() / 2, canvas_.height() / 2);
    return {QPointF(view_.width() / 2 - center.x() * s, view_.height() / 2 - center.y() * s), canvas_ * s};
}

QRect StageViewport::drawnRect() const {
    const QRectF rect = canvasRect();
    const QPoint corner(int(std::lround(rect.x())), int(std::lround(rect.y())));
    return {corner,
        QSize(std::max(int(std::lround(rect.width())), 1), std::max(int(std::lround(rect.height())), 1))};
}

QPointF StageViewport::toView(QPointF canvas) const {
    const QRectF rect = canvasRect();
    return {rect.x() + canvas.x() * rect.width() / canvas_.width(),
        rect.y() + canvas.y() * rect.height() / canvas_.height()};
}

QPointF StageViewport::toCanvas(QPointF view) const {
    const QRectF rect = canvasRect();
    return {(view.x() - rect.x()) * canvas_.width() / rect.width(),
        (view.y() - rect.y()) * canvas_.height() / rect.height()};
}

void StageViewport::fit() { zoom_.reset(); }

void StageViewport::zoomTo(double scale) {
    zoomAbout({view_.width() / 2, view_.height() / 2}, scale / this->scale());
}

void StageViewport::zoomAbout(QPointF view, double factor) {
    const double now = scale();
    const double then = std::clamp(now * factor, leastScale, mostScale);
    const QPointF center = zoom_ ? zoom_->center : QPointF(canvas_.width() / 2, canvas_.height() / 2);
    const QPointF off(view.x() - view_.width() / 2, view.y() - view_.height() / 2);
    const QPointF under = center + off / now;
    zoom_ = Zoom{then, under - off / then};
    hold();
}

void StageViewport::pan(QPointF byView) {
    if (!zoom_) zoom_ = Zoom{scale(), {canvas_.width() / 2, canvas_.height() / 2}};
    zoom_->center -= byView / zoom_->scale;
    hold();
}

void StageViewport::hold() {
    const double x = view_.width() / 2 / zoom_->scale, y = view_.height() / 2 / zoom_->scale;
    const double keep = 2 * marginPx / zoom_->scale;
    zoom_->center.setX(std::clamp(zoom_->center.x(), keep - x, canvas_.width() + x - keep));
    zoom_->center.setY(std::clamp(zoom_->center.y(), keep - y, canvas_.height() + y - keep));
}

}   // namespace tavix::editor
