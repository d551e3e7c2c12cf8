#include "Engine/Sheet/StrokeDigits.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <vector>

namespace tavix::engine {

namespace {

using imaging::Point;
using Stroke = std::vector<Point>;

// A digit is one high and `digitWidth` wide, y down; pen and spaces are in the same unit.
constexpr double digitWidth = 0.56, markWidth = 0.1, spacing = 0.24, penRadius = 0.062;

struct Glyph {
    double width = digitWidth;
    std::vector<Stroke> strokes;
};

// Part of an ellipse as points; 0 degrees is at its right, 90 at its bottom.
Stroke arc(Point center, double radiusX, double radiusY, double fromDeg, double toDeg) {
    constexpr int steps = 20;
    Stroke stroke;
    for (int i = 0; i <= steps; ++i) {
        const double angle = (fromDeg + (toDeg - fromDeg) * i / steps) * std::numbers::pi / 180;
        stroke.push_back({center.x + radiusX * std::cos(angle), center.y + radiusY * std::sin(angle)});
    }
    return stroke;
}

Stroke joined(Stroke first, const Stroke& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

Stroke dot(double y) { return {{markWidth / 2, y}, {markWidth / 2, y}}; }

Glyph glyphOf(char character) {
    switch (character) {
    case '0': return {digitWidth, {arc({0.28, 0.5}, 0.28, 0.5, 0, 360)}};
    case '1': return {digitWidth, {{{0.1, 0.2}, {0.32, 0}, {0.32, 1}}}};
    case '2': return {digitWidth, {joined(arc({0.28, 0.28}, 0.27, 0.28, 190, 400), {{0, 1}, {0.56, 1}})}};
    case '3':
        return {
            digitWidth, {arc({0.27, 0.25}, 0.25, 0.25, 205, 450), arc({0.27, 0.75}, 0.29, 0.25, 270, 515)}};
    case '4': return {digitWidth, {{{0.42, 1}, {0.42, 0}, {0, 0.7}, {0.58, 0.7}}}};
    case '5':
        return {digitWidth,
            {joined({{0.5, 0}, {0.1, 0}, {0.06, 0.45}}, arc({0.27, 0.68}, 0.29, 0.32, 224, 515))}};
    case '6':
        return {digitWidth, {arc({0.28, 0.69}, 0.28, 0.31, 0, 360), arc({0.56, 0.69}, 0.56, 0.69, 180, 257)}};
    case '7': return {digitWidth, {{{0, 0}, {0.56, 0}, {0.2, 1}}}};
    case '8':
        return {digitWidth, {arc({0.28, 0.24}, 0.24, 0.24, 0, 360), arc({0.28, 0.74}, 0.28, 0.26, 0, 360)}};
    case '9': return {digitWidth, {arc({0.28, 0.31}, 0.28, 0.31, 0, 360), arc({0, 0.31}, 0.56, 0.69, 0, 77)}};
    case ':': return {markWidth, {dot(0.3), dot(0.8)}};
    case '.': return {markWidth, {dot(0.97)}};
    default: return {-spacing, {}};
    }
}

double distanceTo(Point p, Point a, Point b) {
    const double dx = b.x - a.x, dy = b.y - a.y, lengthSquared = dx * dx + dy * dy;
    const double along = lengthSquared > 0 ? ((p.x - a.x) * dx + (p.y - a.y) * dy) / lengthSquared : 0;
    const double t = std::clamp(along, 0.0, 1.0);
    return std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy);
}

double distanceTo(Point p, const std::vector<Stroke>& strokes) {
    double nearest = 1e9;
    for (const Stroke& stroke : strokes)
        for (std::size_t i = 1; i < stroke.size(); ++i)
            nearest = std::min(nearest, distanceTo(p, stroke[i - 1], stroke[i]));
    return nearest;
}

// All strokes of a text, moved to their places.
Glyph typeset(std::string_view text) {
    Glyph line{penRadius, {}};
    for (const char character : text) {
        const Glyph glyph = glyphOf(character);
        for (Stroke stroke : glyph.strokes) {
            for (Point& point : stroke) point = {point.x + line.width, point.y + penRadius};
            line.strokes.push_back(std::move(stroke));
        }
        line.width += glyph.width + spacing;
    }
    line.width += penRadius - spacing;
    return line;
}

}   // namespace

imaging::Image strokeDigits(std::string_view text, double heightPx, const imaging::Color& color) {
    const Glyph line = typeset(text);
    const double unitPx = heightPx / (1 + 2 * penRadius);
    const imaging::Size size{static_cast<int>(std::ceil(std::max(line.width, 0.0) * unitPx)),
        static_cast<int>(std::ceil(heightPx))};
    auto bitmap = std::make_shared<imaging::Bitmap>(size);
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x) {
            const double distance = distanceTo({(x + 0.5) / unitPx, (y + 0.5) / unitPx}, line.strokes);
            const double coverage = std::clamp((penRadius - distance) * unitPx + 0.5, 0.0, 1.0);
            const double channels[] = {color.b * coverage, color.g * coverage, color.r * coverage, coverage};
            for (int c = 0; c < 4; ++c)
                bitmap->view().row(y)[4 * x + c] =
                    static_cast<std::uint8_t>(std::lround(channels[c] * color.a * 255));
        }
    bitmap->indexCoverage();
    return imaging::Image::bitmap(std::move(bitmap));
}

}   // namespace tavix::engine
