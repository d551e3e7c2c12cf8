// The outline of a picture with four straight edges, as target pixels see it: which of them it touches, and
// how much of those that an edge crosses lies inside.
#pragma once

#include "TavixPlatform/Imaging/Geometry.h"

#include <array>
#include <cstdint>

namespace tavix::imaging {

// Pixels lo <= x < hi of a row.
struct Span {
    int lo, hi;
    bool isEmpty() const { return hi <= lo; }
};

// Distance, in target pixels, from one edge of the source; linear along a row and positive inside.
struct Edge {
    double fromX, fromY, constant;   // distance at a point of the target
    double at(double x, double y) const { return fromX * x + fromY * y + constant; }
    // The pixels of a row whose centres are at least `least` inside.
    Span where(double least, double y, Span within) const;
};

class Outline {
public:
    explicit Outline(const std::array<Edge, 4>& edges) : edges_(edges) {}
    // Of a convex quadrilateral, whose corners follow one another round it.
    static Outline through(const std::array<Point, 4>& corners);

    // The pixels of a row that lie inside at least in part.
    Span touched(int y, Span within) const;
    // Pixels of a row that the outline crosses get the part of their alpha that lies inside. `out` is the
    // pixel at span.lo.
    void soften(std::uint32_t* out, int y, Span span) const;

private:
    std::array<Edge, 4> edges_;
};

}   // namespace tavix::imaging
