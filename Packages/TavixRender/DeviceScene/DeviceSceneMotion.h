// Where the device of a scene is and how it turns, at any time: pure numbers, before anything is drawn.
#pragma once

#include "TavixCore/Device/DevicePlacementTrajectory.h"
#include "TavixCore/Device/DevicePoseTrajectory.h"
#include "TavixCore/Device/DeviceScene.h"

#include <functional>
#include <optional>

namespace tavix {

// From the seconds of a track to the seconds of the output.
using TimeRemap = std::function<double(double)>;

// How tracks become trajectories, the same for the life of a renderer.
struct DeviceMotionRules {
    double outputWidth = 0, outputHeight = 0;   // pixels
    double fps = 30;
    bool smoothPose = false;     // a spline through the keyframes instead of a spring that chases them
    bool parkPoseTurn = false;   // a device that is parked at a side turns towards the text beside it
    TimeRemap timeRemap;         // none: as it is
};

// Immutable; any thread may ask.
class DeviceSceneMotion {
public:
    using Placement = DevicePlacementTrajectory::Placement;

    DeviceSceneMotion(
        const DeviceScene& scene, const DevicePlacementSpec& placement, const DeviceMotionRules& rules);

    // Pitch, yaw and roll in degrees, with the slow sway and the turn of a parked device.
    Vector3 posed(double atSec) const;
    // The same without the turn of a parked device.
    Vector3 swayed(double atSec) const;
    // What the tracks say alone; nothing without a track.
    std::optional<Vector3> tracked(double atSec) const;
    // Nothing when the device stays in the middle at its own size.
    std::optional<Placement> placement(double atSec) const;

private:
    double sway(double atSec) const;   // -1 to 1
    Vector3 parked(const Vector3& pose, double offsetX, double atSec) const;

    Vector3 tiltDegrees_;
    double driftDegrees_, driftPeriodSec_;
    bool parkPoseTurn_;
    std::optional<DevicePoseTrajectory> pose_;
    std::optional<DevicePlacementTrajectory> placement_;
};

// The placement that a scene carries itself: its track, and how it responds.
DevicePlacementSpec placementOf(const DeviceScene& scene);

}   // namespace tavix
