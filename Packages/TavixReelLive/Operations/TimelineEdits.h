// Edits of what a reel does to its recording in time: the camera, cuts, paces and transitions. Times are the
// pre-cut clock's, and stay within 0 and the reel's length of it. An index that is not there is passed over.
#pragma once

#include "TavixReel/Document/EffectsSpec.h"

#include <cstddef>
#include <optional>

namespace tavix {

// Where an edit happens: the length of the recording's part that is used, at least `leastLengthSec`, and the
// playhead.
struct ReelClock {
    static constexpr double leastLengthSec = 0.1;

    static ReelClock of(double trimStartSec, double trimEndSec, double playheadSec);

    double lengthSec = leastLengthSec;
    double playheadSec = 0;
};

namespace TimelineEdits {

// Both keep the track in time.
void addKeyframe(EffectsSpec& spec, const ReelClock& clock, PixelPoint middleOfVideoPx);
void moveKeyframe(EffectsSpec& spec, std::size_t index, double toSec, const ReelClock& clock);
void removeKeyframe(EffectsSpec& spec, std::size_t index);

// A half second around the playhead; half of that at the start of the reel.
void addCut(EffectsSpec& spec, const ReelClock& clock);
// With its length.
void moveCut(EffectsSpec& spec, std::size_t index, double toStartSec, const ReelClock& clock);
void removeCut(EffectsSpec& spec, std::size_t index);

// A second around the playhead, twice as fast.
void addRetime(EffectsSpec& spec, const ReelClock& clock);
void moveRetime(EffectsSpec& spec, std::size_t index, double toStartSec, const ReelClock& clock);
void setRetimeSpeed(EffectsSpec& spec, std::size_t index, double speedFactor);
void removeRetime(EffectsSpec& spec, std::size_t index);

// These go through `EffectsSpec::setTransitions`, which gives each the time that it needs.
void addTransition(EffectsSpec& spec, const ReelClock& clock);
void moveTransition(EffectsSpec& spec, std::size_t index, double toSec, const ReelClock& clock);
void setTransitionReveal(EffectsSpec& spec, std::size_t index, double toSec, const ReelClock& clock);
void setTransitionStyle(EffectsSpec& spec, std::size_t index, TransitionStyle style);
void setTransitionTiming(
    EffectsSpec& spec, std::size_t index, const std::optional<TransitionTimingSpec>& timing);
void removeTransition(EffectsSpec& spec, std::size_t index);

}   // namespace TimelineEdits

}   // namespace tavix
