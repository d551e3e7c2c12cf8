// Edits of the keyframes of a layer's properties. Times are seconds since the layer's start.
#pragma once

#include "TavixLive/Operations/EditState.h"

#include <span>

namespace tavix::TrackOperations {

// Where the values of a property may lie, and the one that changes nothing.
struct ValueRange {
    double rest, least, most;
    bool operator==(const ValueRange&) const = default;
};
ValueRange trackValueRange(AnimProperty property);

// Where in the document a track is.
struct Place {
    std::size_t scene, layer, track;
};

// One track a property, and of a device with a placement none that the placement owns.
bool canAddTrack(const CompositionSpec& spec, std::size_t scene, std::size_t layer, AnimProperty property);
void addTrack(EditState& state, std::size_t scene, std::size_t layer, AnimProperty property);
void removeTrack(EditState& state, const Place& place);
// With the value that the track has there, on the nearest time that is free.
void addKeyframe(EditState& state, const Place& place, double atSec);
void removeKeyframe(EditState& state, const Place& place, std::size_t keyframe);
void setKeyframeTime(EditState& state, const Place& place, std::size_t keyframe, double toSec);
void setKeyframeValue(EditState& state, const Place& place, std::size_t keyframe, double toValue);
void setKeyframeEase(EditState& state, const Place& place, std::size_t keyframe, const TimingCurve& ease);

// A time from 0 to the window that no keyframe is nearer to than 0.02 s: the one that is wanted, or the next
// one in steps of that size, later ones first, or the middle of the widest gap. Nothing where all is taken.
std::optional<double> freeTime(
    std::span<const CompositionKeyframe> avoiding, double nearSec, double windowSec);

}   // namespace tavix::TrackOperations
