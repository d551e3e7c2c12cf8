// Three numbers along the axes of space.
#pragma once

#include <compare>

namespace tavix {

template <class Number> struct Vec3Of {
    Number x = 0, y = 0, z = 0;

    bool operator==(const Vec3Of&) const = default;
    auto operator<=>(const Vec3Of&) const = default;
    friend constexpr Vec3Of operator+(Vec3Of a, Vec3Of b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
    friend constexpr Vec3Of operator-(Vec3Of a, Vec3Of b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
    friend constexpr Vec3Of operator*(Vec3Of a, Number s) { return {a.x * s, a.y * s, a.z * s}; }
    friend constexpr Number dot(Vec3Of a, Vec3Of b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
    // Right-handed.
    friend constexpr Vec3Of cross(Vec3Of a, Vec3Of b) {
        return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
    }
};

}   // namespace tavix
