#include "TavixReel/Choreography/PlacementTrack.h"

#include "TavixCore/Support/Names.h"

#include <algorithm>

namespace tavix::ChoreographyAuthor {
namespace {

using Clip = TeaserChoreography::Clip;

DevicePlacementKeyframe keyframe(double tSec, PhoneMove move, const CanvasSize& canvas) {
    const ResolvedPlacement placed = resolvePlacement(move, canvas);
    return {.tSec = tSec,
        .offset = {placed.offsetX, placed.offsetY},
        .scale = std::max(placed.scale, leastPlacementScale),
        .move = std::string(nameOf(move)),
        .atMark = {}};
}

bool isPark(const std::optional<std::string>& move) {
    return move == nameOf(PhoneMove::parkLeft) || move == nameOf(PhoneMove::parkRight);
}

void turn(std::vector<DevicePoseKeyframe>& pose, const Vector3& by) {
    for (DevicePoseKeyframe& key : pose) key.tiltDegrees = key.tiltDegrees + by;
}

// The clip at the start, what the reel has between the two, the clip at the end.
template <class Keyframe>
std::vector<Keyframe> spliced(const std::vector<Keyframe>& entrance, const std::vector<Keyframe>& reel,
    const std::vector<Keyframe>& exit, double fromSec, double toSec) {
    std::vector<Keyframe> track = entrance;
    std::ranges::copy_if(reel, std::back_inserter(track),
        [&](const Keyframe& key) { return fromSec < key.tSec && key.tSec < toSec; });
    track.insert(track.end(), exit.begin(), exit.end());
    return track;
}

}   // namespace

std::vector<DevicePlacementKeyframe> placementTrack(
    std::vector<TimedMove> moves, Opening opening, const CanvasSize& canvas) {
    constexpr double earliestSec = 0.05;
    std::ranges::stable_sort(moves, {}, &TimedMove::startSec);
    std::vector<DevicePlacementKeyframe> track{
        keyframe(0, opening == Opening::standing ? PhoneMove::center : PhoneMove::offscreenBottom, canvas)};
    for (const TimedMove& move : moves)
        track.push_back(keyframe(std::max(move.startSec - moveLeadSec, earliestSec), move.move, canvas));
    return smoothCenterJitter(track);
}

std::vector<DevicePlacementKeyframe> smoothCenterJitter(std::span<const DevicePlacementKeyframe> keyframes) {
    std::vector<DevicePlacementKeyframe> kept;
    for (std::size_t i = 0; i < keyframes.size(); ++i) {
        const bool isBetween = keyframes[i].move == nameOf(PhoneMove::center) && !kept.empty() &&
                               i + 1 < keyframes.size() && isPark(kept.back().move) &&
                               keyframes[i + 1].move == kept.back().move;
        if (isBetween && keyframes[i + 1].tSec - kept.back().tSec < minCenterHoldSec)
            ++i;   // the park after it is the one before it
        else
            kept.push_back(keyframes[i]);
    }
    return kept;
}

PhoneMove moveForZone(std::string_view zone) {
    if (zone == "right") return PhoneMove::parkLeft;
    if (zone == "left") return PhoneMove::parkRight;
    return PhoneMove::center;
}

std::optional<DeviceTracks> applyEntranceExit(const DeviceTracks& reel, const Vector3& baseTilt,
    double reelEndSec, const Clip* entrance, const Clip* exit) {
    constexpr double leastReelSec = 0.5;
    Clip in = entrance ? *entrance : Clip{};
    const double lengths = in.durationSec + (exit ? exit->durationSec : 0);
    if (!(lengths + leastReelSec < reelEndSec)) return std::nullopt;
    const double exitSec = reelEndSec - (exit ? exit->durationSec : 0);
    Clip out = exit ? exit->shifted(exitSec) : Clip{};
    if (!in.pose.empty()) turn(in.pose, baseTilt - in.pose.back().tiltDegrees);
    if (!out.pose.empty()) turn(out.pose, baseTilt - out.pose.front().tiltDegrees);
    return DeviceTracks{spliced(in.pose, reel.pose, out.pose, in.durationSec, exitSec),
        spliced(in.placement, reel.placement, out.placement, in.durationSec, exitSec)};
}

}   // namespace tavix::ChoreographyAuthor
