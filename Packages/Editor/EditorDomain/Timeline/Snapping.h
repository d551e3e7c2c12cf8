// Where things that are dragged along the timeline stick.
#pragma once

#include "TavixLive/Operations/EditState.h"

#include <optional>
#include <span>

namespace tavix::timeline {

inline constexpr double snapPoints = 6;

// The candidate nearest to a time, the first of equals, if it lies closer than six points; the time itself
// otherwise.
double nearest(double sec, std::span<const double> candidates, double pps);

// What a layer's start sticks to, on its scene's clock: the scene's start, the playhead, both ends of the
// other layers, and the nearest beat.
double snapped(const EditState& state, const LayerPlace& place, double playheadSec, double pps, double toSec);
// What an end of a layer sticks to: the scene's ends and the nearest beat.
double snappedEdge(const EditState& state, std::size_t scene, double pps, double toSec);
// What a keyframe sticks to, since its layer's start: the window's ends, the playhead and the nearest beat.
double snappedKeyframe(
    const EditState& state, const LayerPlace& place, double playheadSec, double pps, double toSec);
// What a cut or a sound sticks to, on the film's clock: the nearest beat.
double snappedToBeat(const EditState& state, double pps, double toSec);

}   // namespace tavix::timeline
