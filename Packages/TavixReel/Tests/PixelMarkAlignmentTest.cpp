#include "TavixReel/Recording/PixelMarkAlignment.h"

#include "TavixCore/Values/SeededRandom.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace tavix {
namespace {

using PixelMarkAlignment::align;

Timeline::Event event(double tSec, std::optional<double> actionSec, std::optional<double> endSec = {}) {
    Timeline::Event made;
    made.type = "tap";
    made.tSec = tSec;
    made.actionSec = actionSec;
    made.endSec = endSec;
    return made;
}

Timeline timelineOf(std::vector<Timeline::Event> events) { return {{100, 200, 60}, std::move(events)}; }

TEST(PixelMarkAlignment, MovesStepsToWhatThePixelsShow) {
    const Timeline timeline = timelineOf({event(1, 1.2, 1.8), event(3, 3.1), event(5, {})});
    const auto result = align(timeline, std::vector{1.25, 1.9, 3.2}, {0.25, 0});
    EXPECT_EQ(result.expected, 3u);
    EXPECT_EQ(result.matched, 3u);
    const auto& events = result.timeline.events;
    EXPECT_NEAR(events[0].tSec, 1.05, 1e-12);
    EXPECT_EQ(events[0].actionSec, 1.25);
    EXPECT_EQ(events[0].endSec, 1.9);
    EXPECT_NEAR(events[1].tSec, 3.1, 1e-12);
    EXPECT_EQ(events[2], timeline.events[2]);
}

TEST(PixelMarkAlignment, LeavesASidecarAloneThatItCannotMatch) {
    const Timeline timeline = timelineOf({event(1, 1.2), event(3, 3.1)});
    const std::vector<std::vector<double>> hopeless{{}, {1.2, 2, 3, 3.1}, {1.2, 3.36}};
    for (const auto& blips : hopeless)
        EXPECT_EQ(align(timeline, blips, {0.25, 1}), (PixelMarkAlignment::Result{timeline, 0, 2}));
    EXPECT_EQ(align(timeline, std::vector{1.22, 3.12}, {0.01, 1}).matched, 0u);
    EXPECT_EQ(align(timelineOf({event(1, {})}), std::vector{1.0}, {1, 1}).expected, 0u);
}

TEST(PixelMarkAlignment, ASteadyDistanceBeatsASmallerOne) {
    // The blip of the second mark was dropped: all others are 0.2 late.
    const Timeline timeline =
        timelineOf({event(1, 1), event(1.1, 1.2), event(1.3, 1.4), event(2, 2), event(3, 3)});
    const auto result = align(timeline, std::vector{1.2, 1.6, 2.2, 3.2}, {0.25, 1});
    EXPECT_EQ(result.matched, 4u);
    const double expected[] = {1.2, 1.2, 1.6, 2.2, 3.2};
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_NEAR(*result.timeline.events[i].actionSec, expected[i], 1e-12) << i;
    // And a blip too many.
    const auto extra = align(timeline, std::vector{0.9, 1.1, 1.3, 1.45, 1.9, 2.9}, {0.25, 1});
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_NEAR(*extra.timeline.events[i].actionSec, *timeline.events[i].actionSec - 0.1, 1e-12) << i;
}

TEST(PixelMarkAlignment, KeepsAnEndAfterItsAction) {
    const Timeline timeline = timelineOf({event(1, 1.2, 1.4)});
    // One blip: it is the action's, and passes the end.
    auto result = align(timeline, std::vector{1.28}, {0.25, 1});
    EXPECT_EQ(result.timeline.events[0].actionSec, 1.28);
    result = align(timeline, std::vector{1.43}, {0.25, 1});
    EXPECT_EQ(result.timeline.events[0].endSec, 1.43);   // nearer to the end
    const Timeline tight = timelineOf({event(1, 1.2, 1.25), event(2, 2.2)});
    result = align(tight, std::vector{1.3, 2.3}, {0.25, 1});
    EXPECT_GT(*result.timeline.events[0].endSec, *result.timeline.events[0].actionSec);
    // Ends that were before their actions to begin with are nobody's marks.
    const Timeline odd = timelineOf({event(1, 1.4, 1.2)});
    result = align(odd, std::vector{1.25, 1.45}, {0.25, 1});
    EXPECT_EQ(result.timeline, odd);
    EXPECT_EQ(result.matched, 1u);
}

// Every way of leaving out, one by one.
double cheapest(
    const std::vector<double>& longer, const std::vector<double>& shorter, double sign, double maxOffset) {
    double best = std::numeric_limits<double>::infinity();
    std::vector<bool> kept(longer.size(), false);
    std::fill(kept.begin(), kept.begin() + std::ptrdiff_t(shorter.size()), true);
    do {
        double cost = 0, before = 0;
        std::size_t pair = 0;
        for (std::size_t i = 0; i < longer.size(); ++i) {
            if (!kept[i]) continue;
            const double offset = sign * (longer[i] - shorter[pair]);
            if (std::abs(offset) > maxOffset) cost = std::numeric_limits<double>::infinity();
            cost += 0.05 * std::abs(offset) + (pair > 0 ? std::abs(offset - before) : 0);
            before = offset;
            ++pair;
        }
        best = std::min(best, cost);
    } while (std::prev_permutation(kept.begin(), kept.end()));
    return best;
}

TEST(PixelMarkAlignment, FindsTheBestOfAllPairings) {
    SeededRandom dice("pairing");
    for (int i = 0; i < 800; ++i) {
        std::vector<double> marks, blips;
        double t = 0;
        for (int k = 0; k < 7; ++k) {
            t += dice.next(0.05, 0.5);
            if (dice.next(0, 1) < 0.85) marks.push_back(t);
            if (dice.next(0, 1) < 0.85) blips.push_back(t + 0.1 + dice.next(-0.02, 0.02));
        }
        if (marks.empty() || blips.empty()) continue;
        std::vector<Timeline::Event> events;
        for (const double mark : marks) events.push_back(event(mark, mark));
        const auto result = align(timelineOf(events), blips, {0.25, 7});
        const bool hasMore = marks.size() >= blips.size();
        const double best = hasMore ? cheapest(marks, blips, -1, 0.25) : cheapest(blips, marks, 1, 0.25);
        if (result.matched == 0) {
            EXPECT_EQ(best, std::numeric_limits<double>::infinity());
            continue;
        }
        // What was chosen costs as much as the best there is.
        double cost = 0, before = 0;
        bool isFirst = true;
        for (std::size_t k = 0; k < marks.size(); ++k) {
            const double at = *result.timeline.events[k].actionSec;
            if (hasMore && marks.size() > blips.size() && at == marks[k]) continue;
            const double offset = at - marks[k];
            cost += 0.05 * std::abs(offset) + (isFirst ? 0 : std::abs(offset - before));
            before = offset;
            isFirst = false;
        }
        EXPECT_NEAR(cost, best, 1e-9);
    }
}

}   // namespace
}   // namespace tavix
