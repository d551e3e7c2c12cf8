// Ready clips of a device in space, to be spliced onto a reel.
#pragma once

#include "TavixCore/Animation/ChannelTrajectory.h"
#include "TavixCore/Device/DeviceKeyframes.h"
#include "TavixCore/Device/DevicePlacement.h"

#include <map>
#include <string>
#include <vector>

namespace tavix::TeaserChoreography {

// The springs that a spliced track is meant for.
inline constexpr TrajectorySpring poseSpring{0.6, 0.8};
inline constexpr TrajectorySpring placementSpring{0.65, 0.8};

struct Clip {
    double durationSec = 0;
    std::vector<DevicePoseKeyframe> pose;
    std::vector<DevicePlacementKeyframe> placement;   // the first bears the clip's key as its `move`

    // Begins later by so many seconds; the length stays.
    Clip shifted(double bySec) const;
    bool operator==(const Clip&) const = default;
};

// By the key that tags a spliced clip. Three chain without a jump of the pose: hero-rise, scroll-lean,
// exit-up.
const std::map<std::string, Clip, std::less<>>& all();

const Clip& heroRise();
const Clip& scrollLean();
const Clip& exitUp();
const Clip& growFromDepth();
const Clip& tiltAwayExit();
const Clip& presentPairLeft();

}   // namespace tavix::TeaserChoreography
