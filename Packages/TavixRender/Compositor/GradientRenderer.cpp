// The gradient of CanvasDrawing.
#include "TavixRender/Compositor/CanvasDrawing.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>
#include <vector>

namespace tavix::CanvasDrawing {

imaging::Image gradientAcross(const LinearGradient& gradient, const imaging::Rect& bounds) {
    std::vector<imaging::ColorStop> stops;
    for (const GradientStop& stop : gradient.stops)
        stops.push_back({std::clamp(stop.location, 0.0, 1.0), colorOf(stop.color)});
    if (stops.empty()) stops.push_back({0, imaging::Color::black()});
    std::ranges::stable_sort(stops, {}, &imaging::ColorStop::location);
    const double angle = std::fmod(gradient.angleDegrees, 360) * std::numbers::pi / 180;
    // The sine of half a turn is not quite 0 in floating point; a gradient along an edge shall be exact.
    const auto clean = [](double x) { return std::abs(x) < 1e-12 ? 0 : x; };
    const double dx = clean(std::sin(angle)), dy = clean(std::cos(angle));
    const double half = (std::abs(dx * bounds.width) + std::abs(dy * bounds.height)) / 2;
    const imaging::Point middle = bounds.center();
    return imaging::Image::linearGradient({middle.x - dx * half, middle.y - dy * half},
        {middle.x + dx * half, middle.y + dy * half}, std::move(stops));
}

}   // namespace tavix::CanvasDrawing
