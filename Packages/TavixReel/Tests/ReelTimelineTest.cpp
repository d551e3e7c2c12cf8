// The clocks of a reel: laws over random reels, and the corners by name.
#include "TavixReel/Time/ReelTimeline.h"

#include "TavixCore/Values/SeededRandom.h"
#include "TavixReel/Document/EffectsSpec.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace tavix {
namespace {

using namespace ReelTimeline;

Cut cut(double startSec, double endSec) { return {Cut::Kind::trim, {startSec, endSec}}; }

TitleCard cardAt(double insertionSec, double durationSec) {
    TitleCard card;
    card.insertionSec = insertionSec;
    card.durationSec = durationSec;
    return card;
}

// A reel with cuts, paces and cards anywhere, many of them on the same times or without sense.
struct RandomReel {
    explicit RandomReel(SeededRandom& dice) : durationSec(std::floor(dice.next(1, 12))) {
        const auto time = [&] { return std::floor(dice.next(-2, durationSec + 2) * 2) / 2; };
        for (auto n = dice.next() % 4; n > 0; --n) spec.cuts.push_back(cut(time(), time()));
        for (auto n = dice.next() % 4; n > 0; --n)
            spec.retimeTrack.push_back({{time(), time()}, std::floor(dice.next(-1, 9)) / 2});
        for (auto n = dice.next() % 4; n > 0; --n)
            spec.titleCards.push_back(cardAt(time(), std::floor(dice.next(0, 4)) / 2));
        segments = segmentsOf(spec, durationSec);
    }

    bool isDropped(double preCut) const {
        return std::ranges::any_of(spec.cuts,
            [&](const Cut& c) { return c.dropRange.startSec <= preCut && preCut < c.dropRange.endSec; });
    }

    double durationSec;
    EffectsSpec spec;
    std::vector<ReelSegment> segments;
};

TEST(ReelTimeline, CoversWhatIsKeptOnceInOrderAndWithoutGaps) {
    SeededRandom dice("cover");
    for (int i = 0; i < 2000; ++i) {
        const RandomReel reel(dice);
        double cursor = 0, kept = 0;
        for (const ReelSegment& segment : reel.segments) {
            const auto* footage = std::get_if<RetimedSegment>(&segment);
            if (!footage) continue;
            ASSERT_LT(footage->range.startSec, footage->range.endSec);
            ASSERT_GE(footage->speed, slowestSpeed);
            // What lies between two pieces was cut out, all of it.
            for (double t = cursor; t < footage->range.startSec; t += 0.25)
                ASSERT_TRUE(reel.isDropped(t)) << t;
            for (double t = footage->range.startSec; t < footage->range.endSec; t += 0.25)
                ASSERT_FALSE(reel.isDropped(t)) << t;
            ASSERT_GE(footage->range.startSec, cursor);
            cursor = footage->range.endSec;
            kept += footage->range.endSec - footage->range.startSec;
        }
        for (double t = cursor; t < reel.durationSec; t += 0.25) ASSERT_TRUE(reel.isDropped(t)) << t;
        ASSERT_LE(kept, reel.durationSec);
    }
}

TEST(ReelTimeline, MapsAreMonotoneAndInverseWhereFootagePlays) {
    SeededRandom dice("inverse");
    for (int i = 0; i < 1000; ++i) {
        const RandomReel reel(dice);
        const double total = outputDurationSec(reel.segments);
        double last = -1;
        for (int k = 0; k <= 100; ++k) {
            const double t = total * k / 100;
            const double preCut = preCutSec(t, reel.segments);
            ASSERT_GE(preCut, last - 1e-9);
            last = preCut;
            const SegmentTime located = locate(t, reel.segments);
            if (const auto* card = std::get_if<CardTime>(&located)) {
                const auto range = compositionRange(card->index, reel.segments);
                ASSERT_TRUE(range);
                ASSERT_NEAR(range->startSec + card->localSeconds, t, 1e-9);
            } else if (std::ranges::none_of(reel.spec.titleCards, [&](const TitleCard& other) {
                           return std::abs(std::clamp(other.insertionSec, 0.0, reel.durationSec) - preCut) <
                                  1e-6;
                       })) {
                ASSERT_NEAR(compositionSec(preCut, reel.segments), t, 1e-6);
            }
        }
        last = -1;
        for (double p = 0; p < reel.durationSec; p += 0.125) {
            if (reel.isDropped(p)) continue;
            const double t = compositionSec(p, reel.segments);
            ASSERT_GE(t, last);
            ASSERT_LE(t, total + 1e-9);
            last = t;
        }
        ASSERT_NEAR(compositionSec(reel.durationSec + 1, reel.segments), total, 1e-9);
    }
}

TEST(ReelTimeline, LastsAsLongAsItsFramesSay) {
    // The length found by walking the recording in small steps, which knows nothing of segments.
    SeededRandom dice("length");
    for (int i = 0; i < 300; ++i) {
        RandomReel reel(dice);
        std::ranges::stable_sort(
            reel.spec.retimeTrack, {}, [](const RetimeSegment& s) { return s.range.startSec; });
        constexpr double step = 1.0 / 64;
        double walked = 0;
        for (double t = step / 2; t < reel.durationSec; t += step) {
            if (reel.isDropped(t)) continue;
            double speed = 1;
            for (const RetimeSegment& segment : reel.spec.retimeTrack)
                if (segment.speedFactor > 0 && segment.range.startSec <= t && t < segment.range.endSec) {
                    speed = segment.speedFactor;
                    break;
                }
            walked += step / speed;
        }
        for (const TitleCard& card : reel.spec.titleCards) walked += card.durationSec;
        ASSERT_NEAR(outputDurationSec(reel.segments), walked, 1e-6);
    }
}

std::vector<TimeRangeSec> kept(double durationSec, std::vector<Cut> cuts) {
    return VideoPostProcess::keptRanges(durationSec, cuts);
}

TEST(KeptRanges, AreWhatTheCutsLeave) {
    using Ranges = std::vector<TimeRangeSec>;
    EXPECT_EQ(kept(10, {}), (Ranges{{0, 10}}));
    EXPECT_EQ(kept(10, {cut(-1, 11)}), Ranges{});
    EXPECT_EQ(kept(10, {cut(-5, 2)}), (Ranges{{2, 10}}));
    EXPECT_EQ(kept(10, {cut(8, 50)}), (Ranges{{0, 8}}));
    EXPECT_EQ(kept(10, {cut(5, 2)}), (Ranges{{0, 10}}));
    EXPECT_EQ(kept(10, {cut(4, 6), cut(1, 3), cut(2, 5)}), (Ranges{{0, 1}, {6, 10}}));
    EXPECT_EQ(kept(0, {}), Ranges{});
}

EffectsSpec reelOf(
    std::vector<Cut> cuts, std::vector<RetimeSegment> retime, std::vector<TitleCard> cards = {}) {
    EffectsSpec spec;
    spec.cuts = std::move(cuts);
    spec.retimeTrack = std::move(retime);
    spec.titleCards = std::move(cards);
    return spec;
}

TEST(ReelTimeline, ARetimeAcrossACutPlaysOnBothSidesOfTheSeam) {
    const auto segments = segmentsOf(reelOf({cut(4, 6)}, {{{3, 8}, 2}}), 10);
    const std::vector<ReelSegment> expected{RetimedSegment{{0, 3}, 1}, RetimedSegment{{3, 4}, 2},
        RetimedSegment{{6, 8}, 2}, RetimedSegment{{8, 10}, 1}};
    EXPECT_EQ(segments, expected);
    EXPECT_EQ(cutSeamsSec(segments), std::vector<double>{3.5});
    EXPECT_EQ(compositionSec(5, segments), 3.5);
    EXPECT_EQ(preCutSec(3.5, segments), 6);
}

TEST(ReelTimeline, AnOverlapBelongsToTheRetimeThatStartsFirst) {
    const auto segments = segmentsOf(reelOf({}, {{{2, 6}, 4}, {{1, 3}, 2}, {{5, 5}, 9}, {{0, 9}, 0}}), 8);
    const std::vector<ReelSegment> expected{RetimedSegment{{0, 1}, 1}, RetimedSegment{{1, 2}, 2},
        RetimedSegment{{2, 3}, 2}, RetimedSegment{{3, 6}, 4}, RetimedSegment{{6, 8}, 1}};
    EXPECT_EQ(segments, expected);
    EXPECT_TRUE(cutSeamsSec(segments).empty());
}

TEST(ReelTimeline, CardsStandInOrderAtTheirPlaces) {
    // At the start, two in one place, in a cut, without length, and past the end.
    const auto segments = segmentsOf(
        reelOf({cut(6, 8)}, {},
            {cardAt(7, 2), cardAt(3, 1.5), cardAt(-4, 2), cardAt(3, 3), cardAt(2, 0), cardAt(99, 2)}),
        10);
    const std::vector<ReelSegment> expected{CardSegment{2, 0, 2}, RetimedSegment{{0, 3}, 1},
        CardSegment{1, 3, 1.5}, CardSegment{3, 3, 3}, RetimedSegment{{3, 6}, 1}, CardSegment{0, 7, 2},
        RetimedSegment{{8, 10}, 1}, CardSegment{5, 10, 2}};
    EXPECT_EQ(segments, expected);
    EXPECT_EQ(outputDurationSec(segments), 18.5);
    EXPECT_FALSE(compositionRange(4, segments));
    EXPECT_EQ(compositionRange(3, segments), (TimeRangeSec{6.5, 9.5}));
    // A card hides the seam; a card's insertion means the time before it, and the clock stands still within.
    EXPECT_TRUE(cutSeamsSec(segments).empty());
    EXPECT_EQ(compositionSec(3, segments), 5);
    EXPECT_EQ(preCutSec(8, segments), 3);
    EXPECT_EQ(locate(18.5, segments), SegmentTime(CardTime{5, 2}));
    EXPECT_EQ(locate(500, segments), SegmentTime(CardTime{5, 2}));
    EXPECT_EQ(locate(-1, segments), SegmentTime(CardTime{2, 0}));
    // A boundary belongs to what follows.
    EXPECT_EQ(locate(2, segments), SegmentTime(FootageTime{0}));
    EXPECT_EQ(locate(5, segments), SegmentTime(CardTime{1, 0}));
}

TEST(ReelTimeline, NothingLeftIsNoTimeAtAll) {
    const auto segments = segmentsOf(reelOf({cut(0, 10)}, {}), 10);
    EXPECT_TRUE(segments.empty());
    EXPECT_EQ(outputDurationSec(segments), 0);
    EXPECT_EQ(locate(3, segments), SegmentTime(FootageTime{0}));
    EXPECT_EQ(compositionSec(3, segments), 0);
    const auto footage = segmentsOf(reelOf({}, {{{0, 10}, 0.001}}), 10);
    EXPECT_EQ(outputDurationSec(footage), 1000);
    EXPECT_EQ(locate(1000, footage), SegmentTime(FootageTime{10}));
}

}   // namespace
}   // namespace tavix
