// The gradient of CameraRenderer, drawn on the processor: it is drawn once and kept.
#include "TavixRender/Compositor/CameraRenderer.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <numbers>
#include <utility>
#include <vector>

namespace tavix::CameraRenderer {

namespace {

using imaging::Bitmap;
using imaging::Color;
using imaging::Image;
using imaging::Size;

using Pixel = std::array<std::uint8_t, 4>;   // blue, green, red, alpha, premultiplied

std::uint8_t byteOf(double fraction) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(fraction, 0.0, 1.0) * 255));
}

// The colours along the axis, 0 at its start and 1 at its end, holding the last colour past either.
class Ramp {
public:
    explicit Ramp(const LinearGradient& gradient) {
        for (const GradientStop& stop : gradient.stops)
            stops_.push_back({std::clamp(stop.location, 0.0, 1.0), colorOf(stop.color)});
        if (stops_.empty()) stops_ = {{0, Color::black()}, {1, Color::black()}};
        std::ranges::stable_sort(stops_, {}, &Stop::location);
    }

    Pixel at(double t) const {
        const auto next = std::ranges::upper_bound(stops_, t, {}, &Stop::location);
        if (next == stops_.begin()) return pixelOf(stops_.front().color);
        if (next == stops_.end()) return pixelOf(stops_.back().color);
        const Stop& from = *(next - 1);
        const double u = (t - from.location) / (next->location - from.location);
        return pixelOf({std::lerp(from.color.r, next->color.r, u), std::lerp(from.color.g, next->color.g, u),
            std::lerp(from.color.b, next->color.b, u), std::lerp(from.color.a, next->color.a, u)});
    }

private:
    struct Stop {
        double location;
        Color color;
    };

    static Pixel pixelOf(const Color& c) {
        const double a = std::clamp(c.a, 0.0, 1.0);
        const auto premultiplied = [a](double channel) { return byteOf(std::clamp(channel, 0.0, 1.0) * a); };
        return {premultiplied(c.b), premultiplied(c.g), premultiplied(c.r), byteOf(a)};
    }

    std::vector<Stop> stops_;
};

// Where along the axis a pixel lies: `atOrigin` for the centre of the bottom-left pixel.
struct AxisPosition {
    double atOrigin, perColumn, perRow;
};

AxisPosition axisPosition(double angleDeg, Size size) {
    const double angle = std::fmod(angleDeg, 360) * std::numbers::pi / 180;
    // The sine of half a turn is not quite 0 in floating point; a gradient along an edge shall be exact.
    const auto clean = [](double x) { return std::abs(x) < 1e-12 ? 0 : x; };
    const double dx = clean(std::sin(angle)), dy = clean(std::cos(angle));
    const double length = std::abs(dx * size.width) + std::abs(dy * size.height);
    const double perColumn = dx / length, perRow = dy / length;
    return {
        0.5 + perColumn * (0.5 - size.width / 2.0) + perRow * (0.5 - size.height / 2.0), perColumn, perRow};
}

void fillRow(std::uint8_t* row, int count, double first, double perColumn, const Ramp& ramp) {
    const Pixel only = ramp.at(first);
    for (int x = 0; x < count; ++x) {
        const Pixel pixel = perColumn == 0 ? only : ramp.at(first + x * perColumn);
        std::memcpy(row + 4 * x, pixel.data(), pixel.size());
    }
}

}   // namespace

Image renderGradient(const LinearGradient& gradient, const imaging::Rect& bounds) {
    const auto side = [](double length) {
        return static_cast<int>(std::lround(std::clamp(length, 1.0, double(Bitmap::maxSidePx))));
    };
    const Size size{side(bounds.width), side(bounds.height)};
    const AxisPosition axis = axisPosition(gradient.angleDegrees, size);
    const Ramp ramp(gradient);
    Bitmap pixels(size);
    const imaging::BitmapView view = pixels.view();
    for (int up = 0; up < size.height; ++up) {
        std::uint8_t* row = view.row(size.height - 1 - up);
        if (axis.perRow == 0 && up > 0)
            std::memcpy(row, view.row(size.height - 1), 4 * std::size_t(size.width));
        else
            fillRow(row, size.width, axis.atOrigin + up * axis.perRow, axis.perColumn, ramp);
    }
    pixels.indexCoverage();
    return Image::bitmap(std::make_shared<const Bitmap>(std::move(pixels)), {bounds.x, bounds.y});
}

}   // namespace tavix::CameraRenderer
