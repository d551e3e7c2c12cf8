#include "TavixCore/Device/DevicePlacementTrajectory.h"

#include <algorithm>
#include <cmath>

namespace tavix {
namespace {

using Placement = DevicePlacementTrajectory::Placement;

std::vector<ChannelKeyframe> channelsOf(const std::vector<DevicePlacementKeyframe>& track) {
    constexpr double leastScale = 1e-6;   // keeps the logarithm finite
    std::vector<ChannelKeyframe> result;
    for (const DevicePlacementKeyframe& keyframe : track)
        result.push_back({keyframe.tSec,
            {keyframe.offset.x, keyframe.offset.y, std::log(std::max(keyframe.scale, leastScale))}});
    return result;
}

std::vector<Placement> placementsOf(const std::vector<Channels>& rows) {
    std::vector<Placement> result;
    result.reserve(rows.size());
    for (const Channels& row : rows) result.push_back({{row[0], row[1]}, std::exp(row[2])});
    return result;
}

}   // namespace

DevicePlacementTrajectory DevicePlacementTrajectory::chasing(
    const std::vector<DevicePlacementKeyframe>& track, double fps, const TrajectorySpring& spring) {
    return {placementsOf(springTrajectory(channelsOf(track), fps, spring)), fps};
}

DevicePlacementTrajectory DevicePlacementTrajectory::smooth(
    const std::vector<DevicePlacementKeyframe>& track, double fps) {
    constexpr double tailSec = 0.4;   // a placement outlasts its last keyframe a little
    std::vector<Placement> frames = placementsOf(splineTrajectory(channelsOf(track), fps, tailSec));
    for (Placement& frame : frames) frame.scale = std::max(frame.scale, leastPlacementScale);
    return {std::move(frames), fps};
}

Placement DevicePlacementTrajectory::sample(double atSec) const {
    return frames.empty() ? Placement{} : frames[nearestFrame(atSec, fps, frames.size())];
}

}   // namespace tavix
