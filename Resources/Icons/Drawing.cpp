#include "Icons/Drawing.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <utility>

namespace tavix::icons {

namespace {

double dot(const Point& a, const Point& b) { return a.x * b.x + a.y * b.y; }
Point operator-(const Point& a, const Point& b) { return {a.x - b.x, a.y - b.y}; }

std::string number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.4g", value);
    return text;
}

std::string hex(const Level& level) {
    char text[8];
    const auto byte = [](double part) { return int(std::lround(std::clamp(part, 0.0, 1.0) * 255)); };
    std::snprintf(text, sizeof text, "#%02x%02x%02x", byte(level.red), byte(level.green), byte(level.blue));
    return text;
}

std::string gradient(const Ramp& ramp, std::size_t index) {
    std::string text = "<linearGradient id=\"fill" + std::to_string(index) +
                       "\" gradientUnits=\"userSpaceOnUse\" x1=\"" + number(ramp.from.x) + "\" y1=\"" +
                       number(ramp.from.y) + "\" x2=\"" + number(ramp.to.x) + "\" y2=\"" + number(ramp.to.y) +
                       "\">";
    for (const Ramp::Stop& stop : ramp.stops)
        text += "<stop offset=\"" + number(stop.at) + "\" stop-color=\"" + hex(stop.level) + "\"/>";
    return text + "</linearGradient>\n";
}

std::string polygon(const Rounded& shape, const std::string& paint) {
    std::string points;
    for (const Point& point : shape.points)
        points += (points.empty() ? "" : " ") + number(point.x) + "," + number(point.y);
    return "<polygon points=\"" + points + "\" fill=\"" + paint + "\" stroke=\"" + paint +
           "\" stroke-width=\"" + number(2 * shape.radius) + "\" stroke-linejoin=\"round\"/>\n";
}

}   // namespace

Level Ramp::at(const Point& point) const {
    const Point along = to - from;
    const double length = dot(along, along);
    const double where = length > 0 ? std::clamp(dot(point - from, along) / length, 0.0, 1.0) : 0;
    for (std::size_t i = 1; i < stops.size(); ++i) {
        if (where > stops[i].at && i + 1 < stops.size()) continue;
        const Stop &a = stops[i - 1], &b = stops[i];
        const double part = std::clamp((where - a.at) / (b.at - a.at), 0.0, 1.0);
        return {std::lerp(a.level.red, b.level.red, part), std::lerp(a.level.green, b.level.green, part),
            std::lerp(a.level.blue, b.level.blue, part)};
    }
    return stops.at(0).level;
}

double Rounded::distance(const Point& point) const {
    double nearest = std::numeric_limits<double>::infinity();
    bool isLeft = true, isRight = true;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Point &a = points[i], &b = points[(i + 1) % points.size()];
        const Point edge = b - a, to = point - a;
        const double part = std::clamp(dot(to, edge) / std::max(dot(edge, edge), 1e-12), 0.0, 1.0);
        nearest = std::min(nearest, std::hypot(to.x - part * edge.x, to.y - part * edge.y));
        const double turn = edge.x * to.y - edge.y * to.x;
        isLeft = isLeft && turn > 0;   // of a polygon that is a line, nothing is inside
        isRight = isRight && turn < 0;
    }
    return (isLeft || isRight ? -nearest : nearest) - radius;
}

Rounded roundedBox(double left, double top, double right, double bottom, double radius, Ramp fill) {
    return {{{left + radius, top + radius}, {right - radius, top + radius}, {right - radius, bottom - radius},
                {left + radius, bottom - radius}},
        radius, std::move(fill)};
}

imaging::Bitmap Drawing::drawn(int sidePx) const {
    imaging::Bitmap picture({sidePx, sidePx});
    const imaging::BitmapView view = picture.view();
    const double scale = side / sidePx;   // of the units in a pixel
    for (int y = 0; y < sidePx; ++y)
        for (int x = 0; x < sidePx; ++x) {
            const Point point{(x + 0.5) * scale, (y + 0.5) * scale};
            double blue = 0, green = 0, red = 0, alpha = 0;
            for (const Rounded& shape : shapes) {
                const double cover = std::clamp(0.5 - shape.distance(point) / scale, 0.0, 1.0);
                const Level level = shape.fill.at(point);
                blue += cover * (level.blue - blue);
                green += cover * (level.green - green);
                red += cover * (level.red - red);
                alpha += cover * (1 - alpha);
            }
            std::uint8_t* const pixel = view.row(y) + 4 * x;
            const double parts[] = {blue, green, red, alpha};
            for (int i = 0; i < 4; ++i) pixel[i] = std::uint8_t(std::lround(parts[i] * 255));
        }
    return picture;
}

std::string Drawing::svg() const {
    std::string defs, body;
    for (std::size_t i = 0; i < shapes.size(); ++i) {
        const bool isPlain = shapes[i].fill.stops.size() == 1;
        if (!isPlain) defs += gradient(shapes[i].fill, i);
        body += polygon(
            shapes[i], isPlain ? hex(shapes[i].fill.stops[0].level) : "url(#fill" + std::to_string(i) + ")");
    }
    const std::string length = number(side);
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + length + "\" height=\"" + length +
           "\" viewBox=\"0 0 " + length + " " + length + "\">\n<defs>\n" + defs + "</defs>\n" + body +
           "</svg>\n";
}

}   // namespace tavix::icons
