// Directions and colours of light, three numbers each.
#pragma once

#include <cmath>

namespace tavix::deviceframes {

struct Vector {
    float x = 0, y = 0, z = 0;

    friend Vector operator+(const Vector& a, const Vector& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
    friend Vector operator-(const Vector& a, const Vector& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
    friend Vector operator*(const Vector& a, float s) { return {a.x * s, a.y * s, a.z * s}; }
    friend Vector operator*(const Vector& a, const Vector& b) { return {a.x * b.x, a.y * b.y, a.z * b.z}; }
};

inline float dot(const Vector& a, const Vector& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline Vector normalized(const Vector& v) { return v * (1 / std::sqrt(dot(v, v))); }
inline Vector mixed(const Vector& a, const Vector& b, float share) { return a + (b - a) * share; }

// 0 up to `from`, 1 from `to` on, and a smooth step between them.
inline float smoothStep(float from, float to, float value) {
    const float t = std::fmin(std::fmax((value - from) / (to - from), 0.0f), 1.0f);
    return t * t * (3 - 2 * t);
}

}   // namespace tavix::deviceframes
