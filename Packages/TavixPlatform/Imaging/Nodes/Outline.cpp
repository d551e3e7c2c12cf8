#include "TavixPlatform/Imaging/Nodes/Outline.h"

#include "TavixPlatform/Imaging/Kernels/Kernels.h"

#include <algorithm>
#include <cmath>

namespace tavix::imaging {

namespace {

Span intersection(Span a, Span b) { return {std::max(a.lo, b.lo), std::min(a.hi, b.hi)}; }

}   // namespace

Span Edge::where(double least, double y, Span within) const {
    const double rest = fromY * y + constant - least;   // fromX x + rest >= 0
    if (std::abs(fromX) < 1e-12) return rest >= 0 ? within : Span{within.lo, within.lo};
    const double bound = std::clamp(-rest / fromX - 0.5, within.lo - 1.0, within.hi + 1.0);
    return fromX > 0 ? intersection(within, {int(std::ceil(bound)), within.hi})
                     : intersection(within, {within.lo, int(std::floor(bound)) + 1});
}

Outline Outline::through(const std::array<Point, 4>& corners) {
    double doubleArea = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        const Point a = corners[i], b = corners[(i + 1) % 4];
        doubleArea += a.x * b.y - b.x * a.y;
    }
    const double turn = doubleArea < 0 ? -1 : 1;   // so that the inside lies to the left of each edge
    std::array<Edge, 4> edges{};
    for (std::size_t i = 0; i < 4; ++i) {
        const Point a = corners[i], b = corners[(i + 1) % 4];
        const double length = turn * std::max(std::hypot(b.x - a.x, b.y - a.y), 1e-12);
        const double fromX = (a.y - b.y) / length, fromY = (b.x - a.x) / length;
        edges[i] = {fromX, fromY, -(fromX * a.x + fromY * a.y)};
    }
    return Outline(edges);
}

Span Outline::touched(int y, Span within) const {
    Span span = within;
    for (const Edge& edge : edges_) span = intersection(span, edge.where(-0.5 + 1e-6, y + 0.5, within));
    return span.isEmpty() ? Span{within.lo, within.lo} : span;
}

void Outline::soften(std::uint32_t* out, int y, Span span) const {
    const double middle = y + 0.5;
    Span inside = span;
    for (const Edge& edge : edges_) inside = intersection(inside, edge.where(0.5 - 1e-6, middle, span));
    if (inside.isEmpty()) inside = {span.hi, span.hi};
    const auto softenRun = [&](int from, int to) {
        for (int x = from; x < to; ++x) {
            double covered = 1;
            for (const Edge& edge : edges_) covered *= std::clamp(edge.at(x + 0.5, middle) + 0.5, 0.0, 1.0);
            kernels().fade(out + (x - span.lo), out + (x - span.lo), 1, unsigned(std::lround(covered * 255)));
        }
    };
    softenRun(span.lo, inside.lo);
    softenRun(inside.hi, span.hi);
}

}   // namespace tavix::imaging
