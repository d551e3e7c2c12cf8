#include "Editor/EditorDomain/Stage/StageViewport.h"

#include <algorithm>
#include <cmath>

namespace tavix {

double StageViewport::fittedScale() const {
    const double wide = (view_.width - 2 * marginPx) / canvas_.width;
    const double high = (view_.height - 2 * marginPx) / canvas_.height;
    return std::max(std::min(wide, high), leastScale / 4);
}

StageViewport::Zoom StageViewport::now() const {
    return zoom_.value_or(Zoom{fittedScale(), {canvas_.width / 2, canvas_.height / 2}});
}

double StageViewport::scale() const { return now().scale; }

PixelRect StageViewport::canvasRect() const {
    const auto [s, center] = now();
    return {view_.width / 2 - center.x * s, view_.height / 2 - center.y * s, canvas_.width * s,
        canvas_.height * s};
}

PixelRect StageViewport::drawnRect() const {
    const PixelRect rect = canvasRect();
    return {std::round(rect.x), std::round(rect.y), std::max(std::round(rect.width), 1.0),
        std::max(std::round(rect.height), 1.0)};
}

PixelPoint StageViewport::toView(PixelPoint canvas) const {
    const PixelRect rect = canvasRect();
    return {rect.x + canvas.x * rect.width / canvas_.width, rect.y + canvas.y * rect.height / canvas_.height};
}

PixelPoint StageViewport::toCanvas(PixelPoint view) const {
    const PixelRect rect = canvasRect();
    return {(view.x - rect.x) * canvas_.width / rect.width, (view.y - rect.y) * canvas_.height / rect.height};
}

PixelRect StageViewport::rectInView(const PixelRect& canvas) const {
    const PixelPoint corner = toView(PixelPoint{canvas.x, canvas.y});
    return {corner.x, corner.y, canvas.width * scale(), canvas.height * scale()};
}

void StageViewport::fit() { zoom_.reset(); }

void StageViewport::zoomTo(double scale) {
    zoomAbout({view_.width / 2, view_.height / 2}, scale / this->scale());
}

void StageViewport::zoomAbout(PixelPoint view, double factor) {
    const auto [before, center] = now();
    const double after = std::clamp(before * factor, leastScale, mostScale);
    const double stays = 1 / before - 1 / after;
    zoom_ = Zoom{after,
        {center.x + (view.x - view_.width / 2) * stays, center.y + (view.y - view_.height / 2) * stays}};
    hold();
}

void StageViewport::pan(PixelPoint byView) {
    zoom_ = now();
    zoom_->center.x -= byView.x / zoom_->scale;
    zoom_->center.y -= byView.y / zoom_->scale;
    hold();
}

void StageViewport::hold() {
    const double x = view_.width / 2 / zoom_->scale, y = view_.height / 2 / zoom_->scale;
    const double keep = 2 * marginPx / zoom_->scale;
    // A view that is narrower than what is to be kept shows the middle.
    const auto held = [&](double center, double half, double canvas) {
        return std::clamp(
            center, std::min(keep - half, canvas / 2), std::max(canvas + half - keep, canvas / 2));
    };
    zoom_->center = {held(zoom_->center.x, x, canvas_.width), held(zoom_->center.y, y, canvas_.height)};
}

}   // namespace tavix
