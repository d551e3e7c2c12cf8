// What is cut or hurried through, once there are captions to be read.
#include "TavixReel/Captions/CaptionPace.h"

#include "TavixCore/Values/SeededRandom.h"
#include "TavixReel/Document/EffectsSpec.h"
#include "TavixReel/Time/ReelTimeline.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

EffectsSpec with(const std::vector<TimeRangeSec>& windows, std::vector<RetimeSegment> retimes) {
    EffectsSpec spec;
    spec.narration.emplace();
    for (const TimeRangeSec& window : windows)
        spec.narration->captions.push_back({.text = "Read me", .window = window});
    spec.retimeTrack = std::move(retimes);
    CaptionPace::keepUnderCaptions(spec);
    return spec;
}

TEST(CaptionPace, AGapStartsAfterTheCaptionThatReachesIntoIt) {
    const EffectsSpec spec = with({{2, 4}}, {{{2.2, 8}, 5}});
    EXPECT_THAT(spec.retimeTrack, ElementsAre(RetimeSegment{{4, 8}, 5}));
}

TEST(CaptionPace, LeavesWhatNoCaptionTouches) {
    const std::vector<RetimeSegment> far{{{5, 5.2}, 3}, {{9, 12}, 5}};
    EXPECT_EQ(with({{1, 5}, {12, 14}}, far).retimeTrack, far);
    EffectsSpec silent;
    silent.retimeTrack = far;
    CaptionPace::keepUnderCaptions(silent);
    EXPECT_EQ(silent.retimeTrack, far);
}

TEST(CaptionPace, KeepsBothSidesOfACaptionInAGap) {
    EXPECT_THAT(with({{6, 8}}, {{{2, 12}, 4}}).retimeTrack,
        ElementsAre(RetimeSegment{{2, 6}, 4}, RetimeSegment{{8, 12}, 4}));
    // A piece too short to be worth it plays as it is.
    EXPECT_THAT(with({{2.4, 8}}, {{{2, 12}, 4}}).retimeTrack, ElementsAre(RetimeSegment{{8, 12}, 4}));
    EXPECT_THAT(with({{1, 20}}, {{{2, 12}, 4}}).retimeTrack, IsEmpty());
    // Played slower, a caption stays longer.
    EXPECT_THAT(with({{1, 20}}, {{{2, 12}, 0.5}}).retimeTrack, ElementsAre(RetimeSegment{{2, 12}, 0.5}));
}

TEST(CaptionPace, CutsGiveWayToo) {
    EffectsSpec spec;
    spec.narration.emplace().captions = {{.text = "Read me", .window = {3, 5}}};
    spec.cuts = {{.dropRange = {4, 9}}, {.dropRange = {0, 1}}};
    CaptionPace::keepUnderCaptions(spec);
    EXPECT_THAT(spec.cuts, ElementsAre(Cut{.dropRange = {5, 9}}, Cut{.dropRange = {0, 1}}));
}

// Whatever lies where, every caption is on screen for as long as its window says.
TEST(CaptionPace, EveryCaptionLastsAsLongAsItSays) {
    SeededRandom dice("caption pace");
    const auto sec = [&](double most) { return double(dice.next() % 1000) / 1000 * most; };
    for (int round = 0; round < 300; ++round) {
        EffectsSpec spec;
        spec.narration.emplace();
        for (int i = 0; i < 4; ++i) {
            const double start = sec(35);
            spec.narration->captions.push_back({.text = "Read me", .window = {start, start + 1 + sec(3)}});
        }
        for (int i = 0; i < 3; ++i) {
            const double cut = sec(30), gap = sec(30);
            spec.cuts.push_back({.dropRange = {cut, cut + sec(9)}});
            spec.retimeTrack.push_back({{gap, gap + sec(9)}, 1 + sec(6)});
        }
        CaptionPace::keepUnderCaptions(spec);
        const auto segments = ReelTimeline::segmentsOf(spec, 40);
        for (const Caption& caption : spec.narration->captions) {
            const auto& [start, end] = caption.window;
            EXPECT_NEAR(ReelTimeline::compositionSec(end - 1e-9, segments) -
                            ReelTimeline::compositionSec(start, segments),
                end - start, 1e-6)
                << round;
        }
    }
}

}   // namespace
}   // namespace tavix
