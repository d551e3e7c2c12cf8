// From named moves of the device to its placement track, and clips spliced onto both ends of a reel.
#pragma once

#include "TavixCore/Device/ChoreographyAuthor.h"
#include "TavixReel/Choreography/TeaserChoreography.h"

#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace tavix::ChoreographyAuthor {

inline constexpr double flipTapHoldSec = 0.3;    // of the tap before a flip
inline constexpr double flipResponseSec = 0.7;   // of a flip's spring
inline constexpr TrajectorySpring placementSpring{0.9, 0.85};
inline constexpr double moveLeadSec = 0.45;   // a keyframe stands this long before its move
inline constexpr double minMoveSpacingSec = 1.5;
inline constexpr double minCenterHoldSec = 3;   // a shorter return to the middle is none

struct TimedMove {
    double startSec = 0;
    PhoneMove move = PhoneMove::center;
    bool operator==(const TimedMove&) const = default;
};

// How a reel opens.
enum class Opening { standing, risingFromBelow };

std::vector<DevicePlacementKeyframe> placementTrack(
    std::vector<TimedMove> moves, Opening opening, const CanvasSize& canvas);

// Without short returns to the middle between two stays at one side.
std::vector<DevicePlacementKeyframe> smoothCenterJitter(std::span<const DevicePlacementKeyframe> keyframes);

// To the side that a text in this zone leaves free.
PhoneMove moveForZone(std::string_view zone);

struct DeviceTracks {
    std::vector<DevicePoseKeyframe> pose;
    std::vector<DevicePlacementKeyframe> placement;
};
// A reel that begins with one clip and ends with another, either of which may be missing (null). The clips
// are turned so that they meet the reel's own tilt. Nothing when the reel is too short for them.
std::optional<DeviceTracks> applyEntranceExit(const DeviceTracks& reel, const Vector3& baseTilt,
    double reelEndSec, const TeaserChoreography::Clip* entrance, const TeaserChoreography::Clip* exit);

}   // namespace tavix::ChoreographyAuthor
