// A rotation in space: w + xi + yj + zk.
#pragma once

#include "TavixCore/Values/Vector3.h"

#include <cmath>

namespace tavix {

struct Quaternion {
    double w = 1, x = 0, y = 0, z = 0;

    // About an axis of length 1, counter-clockwise as seen from its tip.
    static Quaternion about(const Vector3& axis, double angleRad) {
        const double s = std::sin(angleRad / 2);
        return {std::cos(angleRad / 2), axis.x * s, axis.y * s, axis.z * s};
    }

    // The right factor acts first.
    Quaternion operator*(const Quaternion& q) const {
        return {w * q.w - x * q.x - y * q.y - z * q.z, w * q.x + x * q.w + y * q.z - z * q.y,
            w * q.y - x * q.z + y * q.w + z * q.x, w * q.z + x * q.y - y * q.x + z * q.w};
    }

    double length() const { return std::sqrt(w * w + x * x + y * y + z * z); }

    // Of length 1; no rotation when there is no direction to keep.
    Quaternion normalized() const {
        const double l = length();
        return l > 0 ? Quaternion{w / l, x / l, y / l, z / l} : Quaternion{};
    }
    bool operator==(const Quaternion&) const = default;
};

}   // namespace tavix
