// The units in which a film counts its time, such that every frame stands at a whole number of them.
#pragma once

#include "TavixCore/Document/FrameRate.h"

#include <cstdint>

namespace tavix {

struct FrameClock {
    // The fewest units a second: enough for the times of the sound beside the frames.
    static constexpr int usualTimescale = 600;

    int timescale = usualTimescale;   // units per second
    int frameDuration = 20;           // of each frame, in units

    // Of a rate from 1 to 600 frames a second; one outside is held there. Rates that divide 600 have that
    // many units a second, the others the least multiple of their own that is not below.
    static FrameClock of(const FrameRate& rate);

    std::int64_t timeOf(std::int64_t frame) const { return frame * frameDuration; }
};

}   // namespace tavix
