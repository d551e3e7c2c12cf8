#include "TavixReel/Recording/PixelMarkAlignment.h"

#include "TavixReel/Recording/VideoProbe.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <vector>

namespace tavix::PixelMarkAlignment {
namespace {

using Event = Timeline::Event;

struct Mark {
    std::size_t event;
    enum class Kind { action, end } kind;
    double sec;
};

std::vector<Mark> marksOf(const Timeline& timeline) {
    std::vector<Mark> marks;
    for (std::size_t i = 0; i < timeline.events.size(); ++i) {
        const Event& event = timeline.events[i];
        if (event.actionSec) marks.push_back({i, Mark::Kind::action, *event.actionSec});
        if (event.endSec) marks.push_back({i, Mark::Kind::end, *event.endSec});
    }
    std::ranges::stable_sort(marks, {}, &Mark::sec);
    return marks;
}

// The cheapest way to walk both lists in step, leaving out items of the longer one. What a pair costs depends
// on the pair before it alone, so the best way to each pair is found from the best ways to those before.
class Pairing {
public:
    Pairing(const std::vector<Mark>& marks, const std::vector<double>& blips, double maxOffsetSec)
        : marks_(marks), blips_(blips), maxOffsetSec_(maxOffsetSec),
          pairCount_(std::min(marks.size(), blips.size())),
          gaps_(std::max(marks.size(), blips.size()) - pairCount_) {}

    // For each pair, how many items were left out before it; nothing when some pair is always too far apart.
    std::optional<std::vector<std::size_t>> best() const {
        constexpr double never = std::numeric_limits<double>::infinity();
        std::vector<std::vector<Way>> ways(pairCount_, std::vector<Way>(gaps_ + 1, Way{never, 0}));
        for (std::size_t pair = 0; pair < pairCount_; ++pair)
            for (std::size_t left = 0; left <= gaps_; ++left) {
                const double offset = offsetSec(pair, left);
                if (std::abs(offset) > maxOffsetSec_) continue;
                Way& way = ways[pair][left];
                if (pair == 0) way.cost = size * std::abs(offset);
                for (std::size_t before = 0; pair > 0 && before <= left; ++before) {
                    const double cost = ways[pair - 1][before].cost + size * std::abs(offset) +
                                        std::abs(offset - offsetSec(pair - 1, before));
                    if (cost < way.cost) way = {cost, before};
                }
            }
        const auto last = std::ranges::min_element(ways.back(), {}, &Way::cost);
        if (last->cost == never) return std::nullopt;
        std::vector<std::size_t> leftOut(pairCount_);
        leftOut.back() = std::size_t(last - ways.back().begin());
        for (std::size_t pair = pairCount_ - 1; pair > 0; --pair)
            leftOut[pair - 1] = ways[pair][leftOut[pair]].before;
        return leftOut;
    }

    const Mark& mark(std::size_t pair, std::size_t leftOut) const {
        return marks_[pair + (marks_.size() > blips_.size() ? leftOut : 0)];
    }
    double blipSec(std::size_t pair, std::size_t leftOut) const {
        return blips_[pair + (blips_.size() > marks_.size() ? leftOut : 0)];
    }

private:
    struct Way {
        double cost;
        std::size_t before;   // items left out before the pair before
    };
    static constexpr double size =
        0.05;   // what a second of distance costs, where a second of change costs 1

    double offsetSec(std::size_t pair, std::size_t leftOut) const {
        return blipSec(pair, leftOut) - mark(pair, leftOut).sec;
    }

    const std::vector<Mark>& marks_;
    const std::vector<double>& blips_;
    double maxOffsetSec_;
    std::size_t pairCount_, gaps_;
};

struct Paired {
    bool action = false, end = false;
};

void setAction(Event& event, const Event& was, double sec) {
    event.actionSec = sec;
    event.tSec = sec - (*was.actionSec - was.tSec);
}

// An end that is no longer after its action moves along with it; where both were seen in the wrong order,
// they are somebody else's marks. Gives how many marks are taken back.
std::size_t repair(Event& event, const Event& was, const Paired& paired) {
    constexpr double leastSpanSec = 0.01;
    if (!event.actionSec || !event.endSec || *event.endSec > *event.actionSec) return 0;
    const double spanSec = std::max(*was.endSec - *was.actionSec, leastSpanSec);
    if (paired.action && !paired.end)
        event.endSec = *event.actionSec + spanSec;
    else if (paired.end && !paired.action)
        setAction(event, was, *event.endSec - spanSec);
    else {
        event = was;
        return 1;
    }
    return 0;
}

}   // namespace

Result align(const Timeline& timeline, std::span<const double> blipsSec, const Tolerance& tolerance) {
    const std::vector<Mark> marks = marksOf(timeline);
    std::vector<double> blips(blipsSec.begin(), blipsSec.end());
    std::ranges::sort(blips);
    Result result{timeline, 0, marks.size()};
    if (marks.empty() || blips.empty()) return result;
    const std::size_t gaps = std::max(marks.size(), blips.size()) - std::min(marks.size(), blips.size());
    if (gaps > tolerance.maxGaps) return result;
    const Pairing pairing(marks, blips, tolerance.maxOffsetSec);
    const auto leftOut = pairing.best();
    if (!leftOut) return result;

    std::vector<Paired> paired(timeline.events.size());
    for (std::size_t pair = 0; pair < leftOut->size(); ++pair) {
        const Mark& mark = pairing.mark(pair, (*leftOut)[pair]);
        const double blipSec = pairing.blipSec(pair, (*leftOut)[pair]);
        Event& event = result.timeline.events[mark.event];
        if (mark.kind == Mark::Kind::action) {
            setAction(event, timeline.events[mark.event], blipSec);
            paired[mark.event].action = true;
        } else {
            event.endSec = blipSec;
            paired[mark.event].end = true;
        }
    }
    std::size_t reverted = 0;
    for (std::size_t i = 0; i < paired.size(); ++i)
        reverted += repair(result.timeline.events[i], timeline.events[i], paired[i]);
    result.matched = leftOut->size() - std::min(reverted, leftOut->size());
    return result;
}

Result onReelClock(const Timeline& sidecar, const VideoProbe& video) {
    Result result = align(sidecar, video.markBlipSeconds, usualTolerance);
    const auto moved = [startSec = video.trimStartSec()](
                           double sec) { return std::max(sec - startSec, 0.0); };
    for (Timeline::Event& event : result.timeline.events) {
        event.tSec = moved(event.tSec);
        if (event.actionSec) event.actionSec = moved(*event.actionSec);
        if (event.endSec) event.endSec = moved(*event.endSec);
    }
    return result;
}

}   // namespace tavix::PixelMarkAlignment
