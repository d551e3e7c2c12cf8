#include "TavixRender/Judge/PaintAt.h"

#include "TavixBase/Overloaded.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tavix::PaintAt {
namespace {

RGBAColor mixed(const RGBAColor& a, const RGBAColor& b, double share) {
    return {std::lerp(a.r, b.r, share), std::lerp(a.g, b.g, share), std::lerp(a.b, b.b, share),
        std::lerp(a.a, b.a, share)};
}

// Angle 0 runs from bottom to top, 90 from left to right, through the middle and as far as the corners.
double positionOn(double angleDegrees, imaging::Point point, const imaging::Rect& canvas) {
    const double angle = angleDegrees * std::numbers::pi / 180;
    const double dx = std::sin(angle), dy = std::cos(angle);
    const double length = std::abs(dx * canvas.width) + std::abs(dy * canvas.height);
    const imaging::Point middle = canvas.center();
    return length > 0 ? 0.5 + (dx * (point.x - middle.x) + dy * (point.y - middle.y)) / length : 0.5;
}

RGBAColor gradientAt(LinearGradient gradient, double position) {
    if (gradient.stops.empty()) return RGBAColor::black;
    std::ranges::stable_sort(gradient.stops, {}, &GradientStop::location);
    const GradientStop* before = &gradient.stops.front();
    for (const GradientStop& stop : gradient.stops) {
        if (stop.location > position) {
            const double span = stop.location - before->location;
            const double share = span > 0 ? std::clamp((position - before->location) / span, 0.0, 1.0) : 0;
            return mixed(before->color, stop.color, share);
        }
        before = &stop;
    }
    return before->color;
}

}   // namespace

std::optional<RGBAColor> colorOf(const Paint& paint, imaging::Point point, const imaging::Rect& canvas) {
    using Seen = std::optional<RGBAColor>;
    return std::visit(Overloaded{
                          [](std::monostate) -> Seen { return std::nullopt; },
                          [](const RGBAColor& color) -> Seen { return color; },
                          [&](const LinearGradient& gradient) -> Seen {
                              return gradientAt(gradient, positionOn(gradient.angleDegrees, point, canvas));
                          },
                      },
        paint);
}

Paint paintOf(const BackgroundFill& fill) {
    return std::visit(Overloaded{
                          [](const RGBAColor& color) -> Paint { return color; },
                          [](const LinearGradient& gradient) -> Paint { return gradient; },
                          [](const BackgroundImage&) -> Paint { return {}; },
                      },
        fill);
}

RGBAColor over(const RGBAColor& color, const RGBAColor& ground) {
    RGBAColor mix = mixed(ground, color, std::clamp(color.a, 0.0, 1.0));
    mix.a = 1;
    return mix;
}

}   // namespace tavix::PaintAt
