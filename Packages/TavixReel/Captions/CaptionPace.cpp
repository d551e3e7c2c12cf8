#include "TavixReel/Captions/CaptionPace.h"

#include "TavixReel/Document/EffectsSpec.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace tavix::CaptionPace {
namespace {

// A shorter piece at another pace, or a shorter cut, is seen as a stumble.
constexpr double leastPieceSec = 0.5;

// The range without the windows, which come in the order of their starts.
std::vector<TimeRangeSec> without(const TimeRangeSec& range, const std::vector<TimeRangeSec>& windows) {
    std::vector<TimeRangeSec> pieces;
    double fromSec = range.startSec;
    const auto add = [&](double toSec) {
        if (toSec - fromSec >= leastPieceSec) pieces.push_back({fromSec, toSec});
    };
    for (const TimeRangeSec& window : windows) {
        if (!(window.endSec > fromSec) || !(window.startSec < range.endSec)) continue;
        add(window.startSec);
        fromSec = window.endSec;
    }
    add(range.endSec);
    return pieces;
}

bool isTouched(const TimeRangeSec& range, const std::vector<TimeRangeSec>& windows) {
    return std::ranges::any_of(windows, [&](const TimeRangeSec& window) {
        return window.startSec < range.endSec && range.startSec < window.endSec;
    });
}

// `rangeOf` is the member with the range of an edit.
template <class Edit>
void keepOut(std::vector<Edit>& edits, TimeRangeSec Edit::*rangeOf, const std::vector<TimeRangeSec>& windows,
    bool (*hurries)(const Edit&)) {
    std::vector<Edit> kept;
    for (const Edit& edit : edits) {
        if (!hurries(edit) || !isTouched(edit.*rangeOf, windows)) {
            kept.push_back(edit);
            continue;
        }
        for (const TimeRangeSec& piece : without(edit.*rangeOf, windows)) {
            kept.push_back(edit);
            kept.back().*rangeOf = piece;
        }
    }
    edits = std::move(kept);
}

}   // namespace

void keepUnderCaptions(EffectsSpec& spec) {
    if (!spec.narration) return;
    std::vector<TimeRangeSec> windows = spec.narration->windows();
    std::ranges::stable_sort(windows, {}, &TimeRangeSec::startSec);
    keepOut<Cut>(spec.cuts, &Cut::dropRange, windows, [](const Cut&) { return true; });
    keepOut<RetimeSegment>(spec.retimeTrack, &RetimeSegment::range, windows,
        [](const RetimeSegment& segment) { return segment.speedFactor > 1; });
}

}   // namespace tavix::CaptionPace
