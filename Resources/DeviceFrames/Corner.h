// The corner of a phone's screen: a superellipse, whose curvature grows from the straight edge without a
// step. All outlines of the phone are parallel to it, so everything is told by the distance from it.
#pragma once

#include <array>
#include <cstddef>

namespace tavix::deviceframes {

// How far a place lies outside the opening, in pixels (inside is negative), and in which direction out is.
struct Offset {
    float distance;
    float outX, outY;   // of length 1
};

class Corner {
public:
    // Its points keep |u|^n + |v|^n = reach^n: between a circle and the square. With a larger n the opening
    // would leave the circle of the measured radius, by which screens are masked.
    static constexpr double exponent = 2.4;

    // Made so that the edge is reached, to within a pixel, that many rows below the top.
    explicit Corner(double measuredRadiusPx);

    double reachPx() const { return reach_; }   // from where the curve begins to the corner of its square
    // Of a place told from the middle of the curvature, both coordinates positive towards the corner.
    Offset offsetAt(float u, float v) const;

private:
    static constexpr std::size_t pointCount = 1025;
    struct Point {
        float x, y;
    };

    double reach_;
    std::array<Point, pointCount> curve_;   // from (reach, 0) to (0, reach)
};

}   // namespace tavix::deviceframes
