// From sparse keyframes of a few numbers to one row of numbers per frame: what poses and placements share.
#pragma once

#include "TavixCore/Animation/SpringStep.h"

#include <array>
#include <cstddef>
#include <vector>

namespace tavix {

using Channels = std::array<double, 3>;

struct ChannelKeyframe {
    double tSec;
    Channels values;
};

// No trajectory is longer: at 60 frames per second this is more than four hours. Beyond it the last frame
// holds.
constexpr std::size_t longestTrajectoryFrames = 1'000'000;
// How many frames a trajectory that ends there has; at least 1.
std::size_t trajectoryFrames(double endSec, double framesPerSec);

// A spring chases the keyframes, a step at a time but by its closed form, so there is no integration error.
// The row for frame i is the state at i / framesPerSec, until the spring has settled on the last keyframe.
std::vector<Channels> springTrajectory(
    std::vector<ChannelKeyframe> track, double framesPerSec, const TrajectorySpring& spring);

// A spline through the keyframes, for tracks that carry the motion already and need no lag. It goes on for
// `tailSec` after the last keyframe.
std::vector<Channels> splineTrajectory(
    std::vector<ChannelKeyframe> track, double framesPerSec, double tailSec);

// Index of the frame nearest to a time; the count is at least 1.
std::size_t nearestFrame(double atSec, double framesPerSec, std::size_t count);

}   // namespace tavix
