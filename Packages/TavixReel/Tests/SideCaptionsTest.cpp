// The device that steps aside for captions.
#include "TavixReel/Choreography/SideCaptionChoreography.h"

#include "TavixCore/Document/TransitionMath.h"
#include "TavixCore/Values/SeededRandom.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tavix {
namespace {

using namespace SideCaptionChoreography;
using ChoreographyAuthor::placementTrack;
using Windows = std::vector<TimeRangeSec>;

constexpr ChoreographyAuthor::CanvasSize wide{1920, 1080};

EffectsSpec landscape(const Windows& windows) {
    EffectsSpec spec;
    spec.output = outputOf(ReelFormat::horizontal, 0, 0, 60);
    spec.sideCaptions.emplace();
    spec.narration.emplace();
    for (const TimeRangeSec& window : windows) {
        Caption& caption = spec.narration->captions.emplace_back();
        caption.text = "Line " + std::to_string(spec.narration->captions.size());
        caption.window = window;
    }
    return spec;
}

std::string tagsOf(const std::vector<DevicePlacementKeyframe>& track) {
    std::string tags;
    for (const auto& key : track) tags += key.move.value_or("-") + " ";
    return tags;
}

void expectMoves(const std::vector<TimedMove>& planned, const std::vector<TimedMove>& expected) {
    ASSERT_EQ(planned.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(planned[i].move, expected[i].move);
        EXPECT_NEAR(planned[i].startSec, expected[i].startSec, 1e-12);
    }
}

TEST(SideCaptions, CaptionsCloseTogetherShareAStay) {
    EXPECT_EQ(clusters(Windows{{10, 12}, {0, 2}, {5, 6}, {5, 9}}, 4),
        (std::vector<std::vector<std::size_t>>{{1, 2, 3, 0}}));
    EXPECT_EQ(clusters(Windows{{0, 2}, {7, 8}}, 4), (std::vector<std::vector<std::size_t>>{{0}, {1}}));
    EXPECT_EQ(clusters(Windows{{0, 2}, {6, 8}}, 4).size(), 1u);
    EXPECT_TRUE(clusters({}, 4).empty());
    expectMoves(
        moves(Windows{{9, 11}, {1, 3}}, 4, false), {{1, PhoneMove::parkRight}, {3.65, PhoneMove::center},
                                                       {9, PhoneMove::parkLeft}, {11.65, PhoneMove::center}});
}

TEST(SideCaptions, TracksNameTheirMovesAndStartEarly) {
    const auto track =
        placementTrack({{9, PhoneMove::center}, {2, PhoneMove::parkLeft}, {0.1, PhoneMove::heroZoom}},
            Opening::risingFromBelow, wide);
    EXPECT_EQ(tagsOf(track), "offscreen-bottom hero-zoom park-left center ");
    EXPECT_EQ(track[1].tSec, 0.05);
    EXPECT_NEAR(track[2].tSec, 1.55, 1e-12);
    EXPECT_NEAR(track[0].offset.y, 0.88844, 1e-12);
    EXPECT_EQ(track[0].scale, 0.9);
    EXPECT_LT(track[2].offset.x, -0.1);
    EXPECT_EQ(track[3].offset, (NormalizedVec2{0, 0}));
}

TEST(SideCaptions, ShortReturnsToTheMiddleAreLeftOut) {
    const auto tags = [](double backSec, PhoneMove after) {
        return tagsOf(placementTrack(
            {{1, PhoneMove::parkLeft}, {2, PhoneMove::center}, {backSec, after}}, Opening::standing, wide));
    };
    EXPECT_EQ(tags(3.9, PhoneMove::parkLeft), "center park-left ");
    EXPECT_EQ(tags(4.1, PhoneMove::parkLeft), "center park-left center park-left ");
    EXPECT_EQ(tags(3.9, PhoneMove::parkRight), "center park-left center park-right ");
    EXPECT_EQ(ChoreographyAuthor::moveForZone("left"), PhoneMove::parkRight);
    EXPECT_EQ(ChoreographyAuthor::moveForZone("right"), PhoneMove::parkLeft);
    EXPECT_EQ(ChoreographyAuthor::moveForZone("upper"), PhoneMove::center);
}

ScreenTransition transitionAt(double atSec, double revealSec) {
    ScreenTransition transition;
    transition.atSec = atSec;
    transition.revealSec = revealSec;
    return transition;
}

TEST(SideCaptions, MovesKeepOffTransitions) {
    const double settle = TransitionMath::springSettleDurationSec(0.9, 0.85);
    const std::vector<ScreenTransition> one{transitionAt(10, 11)};
    const auto moved = [&](TimedMove move) { return avoidTransitions({move}, one, 0).at(0).startSec; };
    EXPECT_NEAR(moved({10, PhoneMove::parkLeft}), 9.9 - settle + 0.45, 1e-9);
    EXPECT_NEAR(moved({10, PhoneMove::center}), 11.1 + 0.45, 1e-9);
    EXPECT_EQ(moved({20, PhoneMove::parkLeft}), 20);
    // Where there is no room before it, a move goes after it too.
    EXPECT_NEAR(
        avoidTransitions({{1, PhoneMove::parkLeft}}, std::vector{transitionAt(0.5, 1)}, 0.2)[0].startSec,
        1.55, 1e-9);

    // Single transitions anywhere are always avoided.
    SeededRandom dice("avoid");
    for (int i = 0; i < 1000; ++i) {
        const double at = dice.next(0, 20), reveal = at + dice.next(0.1, 2);
        const PhoneMove move = dice.nextBool() ? PhoneMove::center : PhoneMove::parkRight;
        const auto cleared =
            avoidTransitions({{dice.next(0.5, 20), move}}, std::vector{transitionAt(at, reveal)}, 0.05);
        const double from = std::max(cleared[0].startSec - 0.45, 0.05);
        ASSERT_TRUE(from >= reveal + 0.1 - 1e-9 || from + settle <= at - 0.1 + 1e-9);
    }
}

TEST(SideCaptions, ThePlanParksFromTheOpeningOn) {
    expectMoves(planMoves(Windows{{4, 6}, {20, 22}}, {}, {}, Opening::standing),
        {{0.5, PhoneMove::parkLeft}, {6.65, PhoneMove::center}, {20, PhoneMove::parkRight},
            {22.65, PhoneMove::center}});
    EXPECT_NEAR(planMoves(Windows{{4, 6}}, {}, {}, Opening::risingFromBelow)[0].startSec, 1.5, 1e-12);
}

TEST(SideCaptions, TheTextHasTheMarginThatTheDeviceLeaves) {
    EffectsSpec spec = landscape({{4, 6}, {20, 22}});
    for (const bool inSpace : {false, true}) {
        if (inSpace) spec.deviceScene.emplace().enabled = true;
        const double right = parkedMarginCenterX(PhoneMove::parkLeft, spec);
        EXPECT_GT(right, 0.5);
        EXPECT_LT(right, 0.95);
        EXPECT_NEAR(parkedMarginCenterX(PhoneMove::parkRight, spec), 1 - right, 1e-9);
    }
    replanForLandscape(spec);
    EXPECT_EQ(tagsOf(spec.devicePlacement()->track), "center park-left center park-right center ");
    EXPECT_EQ(effectivePosition({4, 6}, spec)->x, parkedMarginCenterX(PhoneMove::parkLeft, spec));
    EXPECT_EQ(effectivePosition({20, 22}, spec)->x, parkedMarginCenterX(PhoneMove::parkRight, spec));
    EXPECT_FALSE(effectivePosition({12, 13}, spec));
    const Windows windows = spec.narration->windows();
    EXPECT_EQ(defaultKineticZone(0, windows, spec), "right");
    EXPECT_EQ(defaultKineticZone(1, windows, spec), "left");
    EXPECT_EQ(defaultKineticZone(7, windows, spec), "lower");
    spec.sideCaptions->firstParkLeft = false;
    EXPECT_EQ(defaultKineticZone(0, windows, spec), "left");
    spec.sideCaptions->enabled = false;
    EXPECT_EQ(defaultKineticZone(0, windows, spec), "lower");
    spec.sideCaptions->enabled = true;
    spec.output = outputOf(ReelFormat::vertical, 0, 0, 60);
    EXPECT_EQ(defaultKineticZone(0, windows, spec), "lower");
    EXPECT_FALSE(effectivePosition({4, 6}, spec));
}

TEST(SideCaptions, WhatWasSetByHandWinsAndSplicesStay) {
    EffectsSpec spec = landscape({{4, 6}});
    DevicePlacementSpec byHand{{{.tSec = 1, .move = "center"}, {.tSec = 2}}};
    spec.setDevicePlacement(byHand);
    EXPECT_FALSE(isAutoTrack(spec.devicePlacement()));
    replanForLandscape(spec);
    EXPECT_EQ(tagsOf(spec.devicePlacement()->track), "center - ");

    spec.setDevicePlacement(DevicePlacementSpec{
        {{.tSec = 0, .move = "park-left"}, {.tSec = 6.4, .scale = 0.7, .move = "exit-up"}}});
    replanForLandscape(spec);
    EXPECT_EQ(tagsOf(spec.devicePlacement()->track), "center park-left center exit-up ");
    EXPECT_EQ(spec.devicePlacement()->track.back().scale, 0.7);
    EXPECT_EQ(spec.devicePlacement()->damping, 0.85);
}

TEST(SideCaptions, GoBackUnderTheDeviceOnAPortraitCanvas) {
    EffectsSpec spec = landscape({{4, 6}, {20, 22}});
    spec.narration->captions[0].kinetic.emplace();
    replanForLandscape(spec);
    EXPECT_EQ(spec.narration->captions[0].position->y, 0.5);
    EXPECT_FALSE(spec.narration->captions[1].position);
    spec.output = outputOf(ReelFormat::vertical, 0, 0, 60);
    resetForPortrait(spec);
    EXPECT_FALSE(spec.devicePlacement());
    EXPECT_EQ(spec.narration->captions[0].position->x, 0.5);
    EXPECT_GT(spec.narration->captions[0].position->y, 0.9);
}

TEST(SideCaptions, ACoinFallsTheSameWayForTheSameTexts) {
    EXPECT_EQ(seed(*landscape({{0, 1}, {2, 3}}).narration), "Line 1|Line 2");
    int left = 0;
    for (int i = 0; i < 1000; ++i) {
        const std::string text = "text " + std::to_string(i);
        EXPECT_EQ(seededFirstParkLeft(text), seededFirstParkLeft(text));
        left += seededFirstParkLeft(text);
        // By its formula in 32 bits.
        const std::uint64_t s = SeededRandom::fnv1a(text) + 0x9e3779b97f4a7c15;
        const std::uint64_t k = (s ^ (s >> 30)) * 0xbf58476d1ce4e5b9;
        const std::uint32_t m = std::uint32_t(k ^ (k >> 27)) * 321982955u;
        EXPECT_EQ(seededFirstParkLeft(text), ((m & 1) ^ (m >> 31)) == 1);
    }
    EXPECT_GT(left, 430);
    EXPECT_LT(left, 570);
}

TEST(EntranceExit, MeetTheReelsTiltAndLeaveWhatIsBetween) {
    using namespace TeaserChoreography;
    const Vector3 base{3, -7, 1};
    ChoreographyAuthor::DeviceTracks reel{
        {{0, base}, {0.5, base}, {5, base}, {9.5, base}}, {{.tSec = 1}, {.tSec = 4}, {.tSec = 9.2}}};
    const auto tracks = ChoreographyAuthor::applyEntranceExit(reel, base, 10, &heroRise(), &exitUp());
    ASSERT_TRUE(tracks);
    const auto& pose = tracks->pose;
    ASSERT_EQ(pose.size(), heroRise().pose.size() + 1 + exitUp().pose.size());
    EXPECT_EQ(pose[heroRise().pose.size() - 1].tiltDegrees, base);
    EXPECT_EQ(pose[heroRise().pose.size()].tSec, 5);
    EXPECT_EQ(pose[heroRise().pose.size() + 1].tiltDegrees, base);
    EXPECT_NEAR(pose.back().tSec, 10, 1e-12);
    EXPECT_TRUE(std::ranges::is_sorted(tracks->placement, {}, &DevicePlacementKeyframe::tSec));
    EXPECT_EQ(tracks->placement[heroRise().placement.size()].tSec, 4);
    EXPECT_FALSE(ChoreographyAuthor::applyEntranceExit(reel, base, 2.3, &heroRise(), &exitUp()));
    EXPECT_TRUE(ChoreographyAuthor::applyEntranceExit(reel, base, 2.31, &heroRise(), &exitUp()));
}

}   // namespace
}   // namespace tavix
