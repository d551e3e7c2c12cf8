// Where a title card stands among the footage: at its anchor, moved away from cuts, ramps and captions.
#pragma once

#include "TavixReel/Document/ReelTimes.h"
#include "TavixReel/Document/TitleCard.h"

#include <cstdint>
#include <map>
#include <span>

namespace tavix::TitleCardResolver {

struct StepTime {
    double tSec = 0;
    std::int64_t dwellBeforeMs = 0, dwellAfterMs = 0;
};

// On the pre-cut clock. A cut end close by attracts the card; one that is in the middle of a ramp or of a
// caption moves to the nearer end of it.
double insertionSec(const TitleCardAnchor& anchor, const std::map<std::int64_t, StepTime>& stepTimes,
    std::span<const Cut> cuts, std::span<const RetimeSegment> retime,
    std::span<const TimeRangeSec> captionWindows, double outputDurationSec);

}   // namespace tavix::TitleCardResolver
