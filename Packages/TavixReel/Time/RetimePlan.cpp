#include "TavixReel/Time/RetimePlan.h"

#include <algorithm>

namespace tavix {
namespace {

// Where a kept range begins, ends and changes its pace; rising, each once.
std::vector<double> boundariesIn(const TimeRangeSec& kept, const std::vector<RetimeSegment>& retime) {
    std::vector<double> boundaries{kept.startSec, kept.endSec};
    for (const RetimeSegment& segment : retime)
        for (const double sec : {segment.range.startSec, segment.range.endSec})
            if (kept.startSec < sec && sec < kept.endSec) boundaries.push_back(sec);
    std::ranges::sort(boundaries);
    boundaries.erase(std::unique(boundaries.begin(), boundaries.end()), boundaries.end());
    return boundaries;
}

double speedAt(double sec, const std::vector<RetimeSegment>& retime) {
    const auto holding = std::ranges::find_if(retime, [sec](const RetimeSegment& segment) {
        return segment.range.startSec <= sec && sec < segment.range.endSec;
    });
    return std::max(holding == retime.end() ? 1 : holding->speedFactor, slowestSpeed);
}

}   // namespace

double RetimedSegment::compositionDurationSec() const {
    return std::max(range.endSec - range.startSec, 0.0) / std::max(speed, slowestSpeed);
}

std::vector<TimeRangeSec> VideoPostProcess::keptRanges(double preCutDurationSec, std::span<const Cut> cuts) {
    std::vector<TimeRangeSec> dropped;
    for (const Cut& cut : cuts) {
        const TimeRangeSec range{
            std::max(cut.dropRange.startSec, 0.0), std::min(cut.dropRange.endSec, preCutDurationSec)};
        if (range.startSec < range.endSec) dropped.push_back(range);
    }
    std::ranges::stable_sort(dropped, {}, &TimeRangeSec::startSec);

    std::vector<TimeRangeSec> kept;
    double cursor = 0;
    for (const TimeRangeSec& range : dropped) {
        if (cursor < range.startSec) kept.push_back({cursor, range.startSec});
        cursor = std::max(cursor, range.endSec);
    }
    if (cursor < preCutDurationSec) kept.push_back({cursor, preCutDurationSec});
    return kept;
}

std::vector<RetimedSegment> RetimePlan::segments(
    std::span<const TimeRangeSec> keptRanges, std::span<const RetimeSegment> retime) {
    std::vector<RetimeSegment> usable;
    for (const RetimeSegment& segment : retime)
        if (segment.speedFactor > 0 && segment.range.endSec > segment.range.startSec)
            usable.push_back(segment);
    std::ranges::stable_sort(usable, {}, [](const RetimeSegment& s) { return s.range.startSec; });

    std::vector<RetimedSegment> pieces;
    for (const TimeRangeSec& kept : keptRanges) {
        if (!(kept.endSec > kept.startSec)) continue;
        const std::vector<double> boundaries = boundariesIn(kept, usable);
        for (std::size_t i = 0; i + 1 < boundaries.size(); ++i) {
            const double from = boundaries[i], to = boundaries[i + 1];
            pieces.push_back({{from, to}, speedAt((from + to) * 0.5, usable)});
        }
    }
    return pieces;
}

}   // namespace tavix
