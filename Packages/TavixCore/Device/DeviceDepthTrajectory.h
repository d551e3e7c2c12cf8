// The depth of a device at a time: a spline through its keyframes, held at both ends.
#pragma once

#include "TavixCore/Device/DeviceKeyframes.h"

#include <optional>
#include <span>

namespace tavix::DeviceDepthTrajectory {

// Nothing without keyframes. The track is in rising time.
std::optional<double> sample(std::span<const DeviceScalarKeyframe> track, double atSec);

}   // namespace tavix::DeviceDepthTrajectory
