// The pose of a device, frame by frame. Immutable once built; any thread may sample it.
#pragma once

#include "TavixCore/Animation/ChannelTrajectory.h"
#include "TavixCore/Device/DeviceKeyframes.h"

#include <vector>

namespace tavix {

struct DevicePoseTrajectory {
    std::vector<Vector3> frames;   // frame i is the pose at i / fps
    double fps = 0;

    static DevicePoseTrajectory chasing(
        const std::vector<DevicePoseKeyframe>& track, double fps, const TrajectorySpring& spring);
    static DevicePoseTrajectory smooth(const std::vector<DevicePoseKeyframe>& track, double fps);

    Vector3 sample(double atSec) const;   // the nearest frame; without frames all zero
};

}   // namespace tavix
