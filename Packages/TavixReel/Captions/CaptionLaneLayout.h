// The rows in which an editor shows captions, so that none lies on another.
#pragma once

#include "TavixReel/Document/ReelTimes.h"

#include <cstddef>
#include <map>
#include <span>

namespace tavix::CaptionLaneLayout {

struct Window {
    std::size_t index = 0;   // of the caption
    TimeRangeSec range;
};

// A row, from 0, for each index. Every window takes the lowest row that is free when it starts; a pinned one
// stays where it is pinned.
std::map<std::size_t, std::size_t> rowAssignment(
    std::span<const Window> windows, const std::map<std::size_t, std::size_t>& pinnedRow);

// How many ranges there are at once at most. Ranges that touch do not overlap.
std::size_t maxConcurrent(std::span<const TimeRangeSec> ranges);

}   // namespace tavix::CaptionLaneLayout
