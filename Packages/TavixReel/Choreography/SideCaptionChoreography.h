// On a landscape reel the device steps aside, so that captions have room beside it. This decides when it goes
// to which side, keeps its moves off transitions, and finds the middle of the margin that it leaves.
#pragma once

#include "TavixReel/Choreography/PlacementTrack.h"
#include "TavixReel/Document/EffectsSpec.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::SideCaptionChoreography {

using ChoreographyAuthor::Opening;
using ChoreographyAuthor::PhoneMove;
using ChoreographyAuthor::TimedMove;

inline constexpr double centerReturnDelaySec = 0.2;   // after the last caption of a cluster

// Whether a keyframe's tag says that it belongs to a spliced clip.
bool isSpliceTag(std::string_view move);

// The indices of the windows, gathered where no pause is longer than `gapSec`.
std::vector<std::vector<std::size_t>> clusters(std::span<const TimeRangeSec> windows, double gapSec);

// Aside for each cluster, by turns left and right, and back to the middle after it.
std::vector<TimedMove> moves(std::span<const TimeRangeSec> windows, double gapSec, bool firstParkLeft);

// Moves that would run into a transition go before it, returns to the middle after it.
std::vector<TimedMove> avoidTransitions(
    std::vector<TimedMove> moves, std::span<const ScreenTransition> transitions, double minKeyframeSec);

std::vector<TimedMove> planMoves(std::span<const TimeRangeSec> windows, const SideCaptionSettings& settings,
    std::span<const ScreenTransition> transitions, Opening opening);

// Whether nobody but the planner has placed the device.
bool isAutoTrack(const std::optional<DevicePlacementSpec>& placement);

// The side at which the device stands in the middle of a window, if it stands at one.
std::optional<PhoneMove> parkMove(
    std::span<const DevicePlacementKeyframe> keyframes, const TimeRangeSec& duringWindow);

// The middle of the margin beside a parked device, as a fraction of the canvas width, 0.05 to 0.95.
double parkedMarginCenterX(PhoneMove park, const EffectsSpec& spec);

// Where a plain caption stands instead of its own place because the device is parked.
std::optional<NormalizedPoint> effectivePosition(const TimeRangeSec& window, const EffectsSpec& spec);

// The zone of a moving caption for which its author named none.
std::string_view defaultKineticZone(
    std::size_t captionIndex, std::span<const TimeRangeSec> windows, const EffectsSpec& spec);

// Whether a reel starts to the left: a coin that falls the same way for the same texts.
std::string seed(const Narration& narration);
bool seededFirstParkLeft(std::string_view seed);

// Plans the device's moves anew, unless they were set by hand; clips spliced onto the ends stay.
void replanForLandscape(EffectsSpec& spec);
// Takes all of that back.
void resetForPortrait(EffectsSpec& spec);
// Puts moving captions into the margins beside the device.
void reseatKineticBesideParks(EffectsSpec& spec);

}   // namespace tavix::SideCaptionChoreography
