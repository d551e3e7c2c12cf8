#include "TavixCore/Geometry/DeviceGizmoMath.h"

#include <cmath>
#include <numbers>

namespace tavix::DeviceGizmoMath {
namespace {

constexpr double radPerDeg = std::numbers::pi / 180;
constexpr double oppositeCosine = -0.9999;   // beyond it the axis of the shortest turn is not known well

// A point of the view on the unit ball: the front half, or the rim for a point outside.
Vector3 onBall(const PixelPoint& point, const Arcball& ball) {
    const double x = (point.x - ball.center.x) / ball.radiusPx;
    const double y = -(point.y - ball.center.y) / ball.radiusPx;
    const double squared = x * x + y * y;
    if (squared <= 1) return {x, y, std::sqrt(1 - squared)};
    const double length = std::sqrt(squared);
    return {x / length, y / length, 0};
}

// The shortest turn from one direction to another.
Quaternion turn(const Vector3& a, const Vector3& b) {
    const double cosine = a.x * b.x + a.y * b.y + a.z * b.z;
    if (cosine < oppositeCosine) return {0, 0, 0, 1};
    return Quaternion{1 + cosine, a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x}
        .normalized();
}

}   // namespace

Quaternion orientation(const Vector3& tiltDeg) {
    return Quaternion::about({0, 0, 1}, -tiltDeg.z * radPerDeg) *
           Quaternion::about({0, 1, 0}, tiltDeg.y * radPerDeg) *
           Quaternion::about({1, 0, 0}, -tiltDeg.x * radPerDeg);
}

// Five entries of the rotation matrix, named by row and column from 0, carry all three angles.
Vector3 tilt(const Quaternion& q) {
    const double r00 = 1 - 2 * (q.y * q.y + q.z * q.z), r10 = 2 * (q.x * q.y + q.w * q.z);
    const double r20 = 2 * (q.x * q.z - q.w * q.y), r21 = 2 * (q.y * q.z + q.w * q.x);
    const double r22 = 1 - 2 * (q.x * q.x + q.y * q.y);
    return {-std::atan2(r21, r22) / radPerDeg, std::atan2(-r20, std::hypot(r00, r10)) / radPerDeg,
        -std::atan2(r10, r00) / radPerDeg};
}

Vector3 arcballTilt(
    const Vector3& baseDeg, const PixelPoint& start, const PixelPoint& current, const Arcball& ball) {
    if (!(ball.radiusPx > 0)) return baseDeg;
    return tilt(turn(onBall(start, ball), onBall(current, ball)) * orientation(baseDeg));
}

}   // namespace tavix::DeviceGizmoMath
