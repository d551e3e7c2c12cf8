// What a reel leaves out of its recording, and what it plays faster or slower.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <type_traits>

namespace tavix {

// Seconds of the pre-cut clock, which starts where the reel's trim of the recording starts.
struct TimeRangeSec {
    double startSec = 0, endSec = 0;
    bool operator==(const TimeRangeSec&) const = default;
};

struct Cut {
    enum class Kind { trim };

    Kind kind = Kind::trim;
    TimeRangeSec dropRange;
    bool operator==(const Cut&) const = default;
};

struct RetimeSegment {
    TimeRangeSec range;
    double speedFactor = 1;   // above 1 is faster

    // Whether it changes the pace at all.
    bool isRamp() const;
    bool operator==(const RetimeSegment&) const = default;
};

// What a frame of retimed footage shows: the picture of its time, as a player would; or a mix of all that
// pass in its time, and of two where there are less.
enum class RetimeFrames { pick, blend };

const Fields<TimeRangeSec>& fieldsOf(std::type_identity<TimeRangeSec>);
const Names<Cut::Kind>& namesOf(std::type_identity<Cut::Kind>);
const Fields<Cut>& fieldsOf(std::type_identity<Cut>);
const Names<RetimeFrames>& namesOf(std::type_identity<RetimeFrames>);
const Fields<RetimeSegment>& fieldsOf(std::type_identity<RetimeSegment>);

}   // namespace tavix
