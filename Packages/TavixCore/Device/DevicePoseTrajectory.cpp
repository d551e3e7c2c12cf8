#include "TavixCore/Device/DevicePoseTrajectory.h"

namespace tavix {
namespace {

std::vector<ChannelKeyframe> channelsOf(const std::vector<DevicePoseKeyframe>& track) {
    std::vector<ChannelKeyframe> result;
    for (const DevicePoseKeyframe& keyframe : track)
        result.push_back(
            {keyframe.tSec, {keyframe.tiltDegrees.x, keyframe.tiltDegrees.y, keyframe.tiltDegrees.z}});
    return result;
}

DevicePoseTrajectory trajectoryOf(const std::vector<Channels>& rows, double fps) {
    DevicePoseTrajectory result{.frames = {}, .fps = fps};
    result.frames.reserve(rows.size());
    for (const Channels& row : rows) result.frames.push_back({row[0], row[1], row[2]});
    return result;
}

}   // namespace

DevicePoseTrajectory DevicePoseTrajectory::chasing(
    const std::vector<DevicePoseKeyframe>& track, double fps, const TrajectorySpring& spring) {
    return trajectoryOf(springTrajectory(channelsOf(track), fps, spring), fps);
}

DevicePoseTrajectory DevicePoseTrajectory::smooth(const std::vector<DevicePoseKeyframe>& track, double fps) {
    return trajectoryOf(splineTrajectory(channelsOf(track), fps, 0), fps);
}

Vector3 DevicePoseTrajectory::sample(double atSec) const {
    return frames.empty() ? Vector3{} : frames[nearestFrame(atSec, fps, frames.size())];
}

}   // namespace tavix
