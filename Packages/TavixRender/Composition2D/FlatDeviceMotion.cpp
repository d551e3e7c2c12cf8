#include "TavixRender/Composition2D/FlatDeviceMotion.h"

#include "TavixCore/Device/PlacementProjection2D.h"

#include <cmath>

namespace tavix::FlatDeviceMotion {
namespace {

constexpr double placementTolerance = 1e-9;

bool isAtRest(const DevicePlacementTrajectory::Placement& placement) {
    return std::abs(placement.offset.x) <= placementTolerance &&
           std::abs(placement.offset.y) <= placementTolerance &&
           std::abs(placement.scale - 1) <= placementTolerance;
}

}   // namespace

DevicePlacementTrajectory trajectoryOf(
    const DeviceContent& content, const imaging::Rect& canvas, double framesPerSec) {
    const DevicePlacementSpec placement = content.placement.value_or(DevicePlacementSpec{});
    const auto sameTime = [](double tSec) { return tSec; };
    return DevicePlacementTrajectory::chasing(placement.resolvedTrack(canvas.width, canvas.height, sameTime),
        framesPerSec, {placement.responseSec, placement.damping});
}

CameraFrameTransform moveAt(const DevicePlacementTrajectory& trajectory, double localSec,
    const PixelRect& frameRect, double canvasHeight) {
    const auto placement = trajectory.sample(localSec);
    if (isAtRest(placement)) return {};
    return PlacementProjection2D::transform(frameRect, placement, canvasHeight);
}

}   // namespace tavix::FlatDeviceMotion
