#include "TavixRender/DeviceScene/DeviceMotionBlur.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tavix {

namespace {

constexpr double slowestPx = 6;        // of motion per frame
constexpr double narrowestPx = 0.75;   // of radius
constexpr double widestPx = 32;

double sineOfDegrees(double degrees) { return std::sin(degrees * std::numbers::pi / 180); }

}   // namespace

std::optional<DeviceMotionBlur> motionBlurOf(const BlurredDevice& device, double gain, double atSec) {
    if (!(gain > 0)) return std::nullopt;
    const double beforeSec = std::max(atSec - 1 / std::max(device.fps, 1.0), 0.0);
    const Vector3 now = device.motion.posed(atSec), before = device.motion.posed(beforeSec);
    double vx = sineOfDegrees(now.y - before.y) * device.deviceWidth / 2;
    double vy = sineOfDegrees(now.x - before.x) * device.deviceHeight / 2;
    const auto to = device.motion.placement(atSec), from = device.motion.placement(beforeSec);
    if (to && from) {
        vx += (to->offset.x - from->offset.x) * device.outputHeight;
        vy += (to->offset.y - from->offset.y) * device.outputHeight;
    }
    const double speedPx = std::sqrt(vx * vx + vy * vy);
    if (!(speedPx > slowestPx)) return std::nullopt;
    const double radiusPx = std::min((speedPx - slowestPx) * gain, widestPx);
    if (!(radiusPx > narrowestPx)) return std::nullopt;
    return DeviceMotionBlur{radiusPx, -std::atan2(vy, vx)};   // offsets run downwards, pictures upwards
}

}   // namespace tavix
