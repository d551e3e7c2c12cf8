#include "TavixReel/Cards/TitleCardResolver.h"

#include <algorithm>
#include <cmath>

namespace tavix::TitleCardResolver {
namespace {

double anchorSec(const TitleCardAnchor& anchor, const std::map<std::int64_t, StepTime>& stepTimes,
    double outputDurationSec) {
    if (std::holds_alternative<AtEnd>(anchor)) return outputDurationSec;
    const auto* afterStep = std::get_if<AfterStep>(&anchor);
    if (!afterStep) return 0;
    const auto step = stepTimes.find(afterStep->index);
    if (step == stepTimes.end()) return 0;
    const StepTime& time = step->second;
    return time.tSec + double(time.dwellBeforeMs) / 1000 + double(time.dwellAfterMs) / 1000;
}

double snappedToCuts(double sec, std::span<const Cut> cuts) {
    constexpr double reachSec = 0.35;
    double best = sec, bestAwaySec = reachSec;
    bool hasSnapped = false;
    for (const Cut& cut : cuts)
        for (const double end : {cut.dropRange.startSec, cut.dropRange.endSec}) {
            const double awaySec = std::abs(end - sec);
            if (hasSnapped ? awaySec < bestAwaySec : awaySec <= bestAwaySec) {
                best = end;
                bestAwaySec = awaySec;
                hasSnapped = true;
            }
        }
    return best;
}

double nearerEnd(double sec, const TimeRangeSec& range) {
    return sec - range.startSec < range.endSec - sec ? range.startSec : range.endSec;
}

}   // namespace

double insertionSec(const TitleCardAnchor& anchor, const std::map<std::int64_t, StepTime>& stepTimes,
    std::span<const Cut> cuts, std::span<const RetimeSegment> retime,
    std::span<const TimeRangeSec> captionWindows, double outputDurationSec) {
    double sec = snappedToCuts(anchorSec(anchor, stepTimes, outputDurationSec), cuts);
    for (const RetimeSegment& segment : retime)
        if (segment.isRamp() && segment.range.startSec < sec && sec < segment.range.endSec)
            sec = nearerEnd(sec, segment.range);
    for (const TimeRangeSec& window : captionWindows)
        if (window.startSec <= sec && sec <= window.endSec) sec = nearerEnd(sec, window);
    return std::clamp(sec, 0.0, std::max(outputDurationSec, 0.0));
}

}   // namespace tavix::TitleCardResolver
