#include "TavixCore/Typography/ElementSchedule.h"
#include "TavixCore/Typography/KineticNoise.h"
#include "TavixCore/Typography/KineticStyle.h"
#include "TavixCore/Typography/StaggerRanks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <vector>

namespace tavix::KineticMath {
namespace {

using testing::ElementsAre;

constexpr StaggerOrder everyOrder[] = {StaggerOrder::normal, StaggerOrder::reverse, StaggerOrder::centerOut,
    StaggerOrder::edgesIn, StaggerOrder::random};

std::vector<int> sorted(std::vector<int> values) {
    std::sort(values.begin(), values.end());
    return values;
}

TEST(KineticOrder, GivesEveryElementAPlaceOfItsOwn) {
    for (int count = 0; count < 40; ++count) {
        std::vector<int> places(static_cast<std::size_t>(count));
        std::iota(places.begin(), places.end(), 0);
        for (const std::int64_t seed : {0L, 1L, -7L, std::numeric_limits<std::int64_t>::min()}) {
            EXPECT_EQ(sorted(permutation(count, seed)), places) << count << " by seed " << seed;
            for (const StaggerOrder order : everyOrder) EXPECT_EQ(sorted(ranks(order, count, seed)), places);
        }
    }
    EXPECT_TRUE(permutation(-3, 1).empty());
}

TEST(KineticOrder, VisitsElementsAsTheOrderSays) {
    EXPECT_THAT(ranks(StaggerOrder::reverse, 3, 0), ElementsAre(2, 1, 0));
    EXPECT_THAT(ranks(StaggerOrder::centerOut, 5, 0), ElementsAre(3, 1, 0, 2, 4));
    EXPECT_THAT(ranks(StaggerOrder::centerOut, 4, 0), ElementsAre(2, 0, 1, 3));
    EXPECT_THAT(ranks(StaggerOrder::edgesIn, 5, 0), ElementsAre(0, 2, 4, 3, 1));
    const Stagger stagger{.delaySec = 0.2, .order = StaggerOrder::reverse};
    EXPECT_EQ(stagger.rank(0, 3), 2);
    EXPECT_EQ(stagger.rank(3, 3), 0);
    EXPECT_EQ(stagger.rank(-1, 3), 0);
    EXPECT_EQ(stagger.startOffsetSec(3), 0.2 * 3);
    EXPECT_EQ(stagger.startOffsetSec(-3), 0);
}

TEST(KineticOrder, ShufflesEvenly) {
    std::vector<int> firstPlace(4);
    for (int seed = 0; seed < 4000; ++seed)
        ++firstPlace[static_cast<std::size_t>(permutation(4, seed).front())];
    for (const int count : firstPlace) EXPECT_NEAR(count, 1000, 120);
    EXPECT_NE(permutation(12, 1), permutation(12, 2));
}

TEST(ElementSchedule, KeepsItsBounds) {
    for (const StaggerOrder order : everyOrder)
        for (int count = 1; count < 12; ++count)
            for (const double windowSec : {0.0, 0.3, 1.0, 6.0})
                for (const double inSec : {-1.0, 0.0, 0.4, 3.0})
                    for (const double delaySec : {0.0, 0.05, 2.0}) {
                        const double outSec = 0.3;
                        const auto elements = schedule({.count = count,
                            .windowSec = windowSec,
                            .inSec = inSec,
                            .outSec = outSec,
                            .stagger = {.delaySec = delaySec, .order = order, .seed = 5}});
                        ASSERT_EQ(elements.size(), static_cast<std::size_t>(count));
                        double lastEndSec = 0;
                        for (const ElementSchedule& e : elements) {
                            EXPECT_GE(e.inStart, 0);
                            EXPECT_LE(e.inDur, std::max(inSec, 0.0));
                            EXPECT_LE(e.inStart + e.inDur, windowSec + 1e-9);
                            EXPECT_GE(e.outStart, e.inStart + e.inDur - 1e-9) << "leaves once it has come";
                            lastEndSec = std::max(lastEndSec, e.outStart + e.outDur);
                        }
                        EXPECT_NEAR(lastEndSec, windowSec, 1e-9);
                    }
}

TEST(ElementSchedule, StaggersExitsLikeEntrances) {
    const auto elements = schedule({.count = 5,
        .windowSec = 2,
        .inSec = 0.3,
        .outSec = 0.3,
        .stagger = {.delaySec = 0.1},
        .cardDelaySec = 0.25});
    for (std::size_t i = 0; i < elements.size(); ++i) {
        EXPECT_NEAR(elements[i].inStart, 0.25 + 0.1 * static_cast<double>(i), 1e-12);
        EXPECT_NEAR(elements[i].outStart, 1.3 + 0.1 * static_cast<double>(i), 1e-12);
    }
    const auto squeezed =
        schedule({.count = 2, .windowSec = 1, .inSec = 3, .outSec = 1, .stagger = {.delaySec = 1}});
    EXPECT_THAT(
        squeezed, ElementsAre(ElementSchedule{0, 0.75, 0.75, 0.25}, ElementSchedule{0, 0.75, 0.75, 0.25}));
}

TEST(ElementSchedule, EnvelopeIsAGateForPhasesOfNoLength) {
    const ElementSchedule gate{.inStart = 1, .outStart = 2, .inDur = 0, .outDur = 0};
    const ElementSchedule ramps{.inStart = 1, .outStart = 3, .inDur = 1, .outDur = 2};
    const struct {
        double tSec, gated, ramped;
    } cases[] = {
        {0.9, 0, 0}, {1, 1, 0}, {1.5, 1, 0.5}, {1.99, 1, 0.99}, {2, 0, 1}, {3, 0, 1}, {4, 0, 0.5}, {9, 0, 0}};
    for (const auto& c : cases) {
        EXPECT_DOUBLE_EQ(activityEnvelope(c.tSec, gate), c.gated) << c.tSec;
        EXPECT_DOUBLE_EQ(activityEnvelope(c.tSec, ramps), c.ramped) << c.tSec;
    }
}

TEST(KineticNoise, HashesAsPublished) {
    EXPECT_EQ(splitmix64(0), 0xe220a8397b1dcdafu);
    EXPECT_EQ(splitmix64(1234567), 6457827717110365317u);
    EXPECT_EQ(hash64(99), splitmix64(99));
}

TEST(KineticNoise, IsSmoothBoundedAndDifferentPerStream) {
    double sum = 0;
    for (double x = -50; x < 50; x += 0.01) {
        const double here = lattice(3, 1, x);
        sum += here;
        ASSERT_LE(std::abs(here), 1) << x;
        ASSERT_NEAR(lattice(3, 1, x + 1e-7), here, 1e-6) << "a jump at " << x;
    }
    EXPECT_NEAR(sum / 10000, 0, 0.15);
    for (int i = -3; i < 4; ++i) EXPECT_EQ(lattice(3, 1, i), 2 * unitDouble(3, 1, i) - 1);
    EXPECT_NE(lattice(3, 1, 0.5), lattice(3, 2, 0.5));
    EXPECT_NE(lattice(3, 1, 0.5), lattice(4, 1, 0.5));
}

TEST(KineticNoise, StaysFiniteFarAway) {
    for (const double x :
        {1e300, -1e300, 1e19, -9.3e18, std::numeric_limits<double>::infinity(), std::nan("")})
        EXPECT_LE(std::abs(lattice(1, 1, x)), 1) << x;
}

TEST(KineticNoise, GivesEachElementItsOwnChannels) {
    const IdlePhase idle{.amplitude = 2, .frequencyHz = 3, .seed = 8};
    EXPECT_EQ(idleValue(idle, 0.7, 5, 1), 2 * lattice(8, 21, 3 * 0.7));
}

}   // namespace
}   // namespace tavix::KineticMath
