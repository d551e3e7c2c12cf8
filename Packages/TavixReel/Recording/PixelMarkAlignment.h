// Corrects the times of a sidecar to the marks that the recorded app put into the picture: a small square in
// a corner at each step's action and at the end of its motion.
#pragma once

#include "TavixCore/Timeline/Timeline.h"

#include <cstddef>
#include <span>

namespace tavix {
struct VideoProbe;
}

namespace tavix::PixelMarkAlignment {

struct Result {
    Timeline timeline;
    std::size_t matched = 0;    // marks whose time is now a picture's
    std::size_t expected = 0;   // marks that the sidecar speaks of
    bool operator==(const Result&) const = default;
};

// How far a mark may be from where it was thought to be, and how many marks may be missing on either side.
struct Tolerance {
    double maxOffsetSec;
    std::size_t maxGaps;
};
// What recordings are aligned with unless somebody knows better: the clocks of a run are a quarter of a
// second apart at most, and a recorder drops a mark now and then.
inline constexpr Tolerance usualTolerance{0.25, 3};

// Pairs marks and blips in order so that their distances are as small and as steady as can be; a steady
// distance counts for more. With no pairing within the tolerance nothing changes.
Result align(const Timeline& timeline, std::span<const double> blipsSec, const Tolerance& tolerance);

// The same with what was seen in the video, and on the clock that documents speak in: from where the reel
// starts. What began before that begins with it.
Result onReelClock(const Timeline& sidecar, const VideoProbe& video);

}   // namespace tavix::PixelMarkAlignment
