// Points and directions of the modelling program, and places where plane drawings stand in space.
#pragma once

#include "TavixBase/Vec3.h"

#include <cmath>
#include <compare>

namespace tavix::phone {

struct Vec2 {
    double x = 0, y = 0;

    bool operator==(const Vec2&) const = default;
    auto operator<=>(const Vec2&) const = default;
    friend Vec2 operator+(Vec2 a, Vec2 b) { return {a.x + b.x, a.y + b.y}; }
    friend Vec2 operator-(Vec2 a, Vec2 b) { return {a.x - b.x, a.y - b.y}; }
    friend Vec2 operator*(Vec2 a, double s) { return {a.x * s, a.y * s}; }
};

inline double dot(Vec2 a, Vec2 b) { return a.x * b.x + a.y * b.y; }
// Positive when b lies to the left of a.
inline double cross(Vec2 a, Vec2 b) { return a.x * b.y - a.y * b.x; }
inline double length(Vec2 a) { return std::hypot(a.x, a.y); }
inline Vec2 normalized(Vec2 a) { return a * (1 / length(a)); }
// A quarter turn to the right.
inline Vec2 rightOf(Vec2 a) { return {a.y, -a.x}; }

using Vec3 = Vec3Of<double>;
inline double length(Vec3 a) { return std::sqrt(dot(a, a)); }
inline Vec3 normalized(Vec3 a) { return a * (1 / length(a)); }

// A right-handed frame: a plane with its own two directions, and the direction up from it.
struct Placement {
    Vec3 origin, along, across, up;

    Vec3 at(Vec2 point, double height) const {
        return origin + along * point.x + across * point.y + up * height;
    }
    Vec3 direction(Vec2 inPlane, double upward) const {
        return along * inPlane.x + across * inPlane.y + up * upward;
    }
    // The same frame with its origin elsewhere in the plane.
    Placement moved(Vec2 by, double height = 0) const { return {at(by, height), along, across, up}; }
};

}   // namespace tavix::phone
