// A device motion as its author writes it, in the seconds of its own natural length. Playing it at another
// length stretches every time.
#pragma once

#include "TavixCore/Animation/ChannelTrajectory.h"
#include "TavixCore/Choreography/DeviceMotion.h"

#include <optional>
#include <string>
#include <vector>

namespace tavix {

struct MotionScript {
    struct Place {
        double tSec = 0;
        double x = 0, y = 0;   // fractions of the canvas height from the middle
        double scale = 1;
        std::optional<std::string> move = {};
    };

    double naturalSec = 0;
    double fovDegrees = 24;
    double motionBlur = 0.1;
    TrajectorySpring poseSpring = {0.5, 0.7};
    TrajectorySpring placeSpring = {0.9, 0.85};
    Vector3 tiltDegrees = {8, -14, 0};   // of a device without poses
    double lightIntensity = 1;
    Vector3 keyLightDegrees = {-35, 30, 0};
    std::vector<DevicePoseKeyframe> poses = {};
    std::vector<DeviceScalarKeyframe> depths = {};
    std::vector<Place> places = {};
    std::optional<KineticPhase> enter = {};

    // With every time multiplied by a factor.
    DeviceMotion play(double timeFactor) const;
};

// A time on the stretched clock, to the millisecond.
double stretchedSec(double tSec, double timeFactor);

}   // namespace tavix
