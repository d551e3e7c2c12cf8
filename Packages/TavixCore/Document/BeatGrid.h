// The beats of a composition's music on its global clock.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <type_traits>

namespace tavix {

struct BeatGrid {
    double bpm = 100;       // beats per minute
    double offsetSec = 0;   // of beat 0

    double beatDuration() const;   // seconds; a tempo below 1 counts as 1
    double timeOfBeat(double beat) const;
    // The time of the beat next to a time; halfway between two it is the later one's.
    double nearestBeat(double toSec) const;
    bool operator==(const BeatGrid&) const = default;
};

const Fields<BeatGrid>& fieldsOf(std::type_identity<BeatGrid>);

}   // namespace tavix
