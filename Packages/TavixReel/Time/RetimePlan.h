// What of a recording is left after its cuts, in pieces of one pace each.
#pragma once

#include "TavixReel/Document/ReelTimes.h"

#include <span>
#include <vector>

namespace tavix {

// No pace is slower: wherever a length is divided by a speed, this is the least divisor.
constexpr double slowestSpeed = 0.01;

// Kept footage at a constant speed.
struct RetimedSegment {
    TimeRangeSec range;   // pre-cut clock
    double speed = 1;

    double compositionDurationSec() const;
    bool operator==(const RetimedSegment&) const = default;
};

namespace VideoPostProcess {

// What survives of 0 to `preCutDurationSec`, in order and apart. Cuts may overlap, reach out at either end
// and come in any order; one whose end is not after its start does nothing.
std::vector<TimeRangeSec> keptRanges(double preCutDurationSec, std::span<const Cut> cuts);

}   // namespace VideoPostProcess

namespace RetimePlan {

// The kept ranges, divided wherever the pace changes. Where retimes overlap, the one that starts first holds.
// A retime without length or with a speed that is not above 0 does nothing.
std::vector<RetimedSegment> segments(
    std::span<const TimeRangeSec> keptRanges, std::span<const RetimeSegment> retime);

}   // namespace RetimePlan

}   // namespace tavix
