// The place and size of a device, frame by frame. Immutable once built; any thread may sample it.
#pragma once

#include "TavixCore/Animation/ChannelTrajectory.h"
#include "TavixCore/Device/DevicePlacement.h"

#include <vector>

namespace tavix {

struct DevicePlacementTrajectory {
    struct Placement {
        NormalizedVec2 offset;
        double scale = 1;
        bool operator==(const Placement&) const = default;
    };

    std::vector<Placement> frames;   // frame i is the placement at i / fps
    double fps = 0;

    // Size moves on a logarithmic scale, so that growing and shrinking look equally quick.
    static DevicePlacementTrajectory chasing(
        const std::vector<DevicePlacementKeyframe>& track, double fps, const TrajectorySpring& spring);
    static DevicePlacementTrajectory smooth(const std::vector<DevicePlacementKeyframe>& track, double fps);

    Placement sample(double atSec) const;   // the nearest frame; without frames the middle at scale 1
};

}   // namespace tavix
