#include "TavixCore/Time/CompositionTimeline.h"

#include "TavixCore/Values/SeededRandom.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>

namespace tavix {
namespace {

using Sample = CompositionTimeline::Sample;

CompositionScene scene(double durationSec, std::optional<double> overlapSec = {}) {
    CompositionScene made{.durationSec = durationSec};
    if (overlapSec) made.transition = SceneTransition{.durationSec = *overlapSec};
    return made;
}

const CompositionSpec threeScenes{.scenes = {scene(5, 1), scene(4, 0.5), scene(3, 2)}};

TEST(CompositionTimeline, OverlapsScenesByTheirTransitions) {
    const CompositionTimeline timeline(threeScenes);
    EXPECT_EQ(timeline.startSec, (std::vector<double>{0, 4, 7.5}));
    EXPECT_EQ(timeline.transitionDurations, (std::vector<double>{1, 0.5, 0}));
    EXPECT_EQ(timeline.totalSec, 10.5);
}

TEST(CompositionTimeline, SamplesSceneAndTransition) {
    const CompositionTimeline timeline(threeScenes);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const struct {
        double atSec;
        Sample expected;
    } cases[] = {
        {-1, {{0, 0}, {}, 0}},
        {nan, {{0, 0}, {}, 0}},
        {3.5, {{0, 3.5}, {}, 0}},
        {4, {{0, 4}, {{1, 0}}, 0}},
        {4.5, {{0, 4.5}, {{1, 0.5}}, 0.5}},
        {5, {{1, 1}, {}, 0}},
        {7.75, {{1, 3.75}, {{2, 0.25}}, 0.5}},
        {10.5, {{2, 3}, {}, 0}},
        {20, {{2, 3}, {}, 0}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.atSec);
        EXPECT_EQ(timeline.sample(c.atSec), c.expected);
    }
}

TEST(CompositionTimeline, HasNothingToShowWithoutScenes) {
    const CompositionTimeline timeline{CompositionSpec{}};
    EXPECT_EQ(timeline.totalSec, 0);
    EXPECT_FALSE(timeline.sample(0));
    EXPECT_FALSE(timeline.globalTime(0, 0));
}

// Never a transition, where there is any scene that stands alone for a moment.
TEST(CompositionTimeline, TheTellingMomentIsTheMiddleOfWhatTheLongestSceneHasForItself) {
    EXPECT_EQ(tellingSec(threeScenes), 2);
    EXPECT_EQ(tellingSec({.scenes = {scene(3, 1), scene(5), scene(4)}}), 5);
    EXPECT_EQ(tellingSec({.scenes = {scene(4, 3.5), scene(3)}}), 0.25) << "the rest is a transition";
    EXPECT_EQ(tellingSec({.scenes = {scene(2, 2), scene(2)}}), 1) << "nothing but a transition";
    EXPECT_EQ(tellingSec({}), 0);
}

TEST(CompositionTimeline, NegativeLengthsTakeNoTime) {
    const CompositionTimeline timeline({.scenes = {scene(2, -3), scene(-7), scene(1)}});
    EXPECT_EQ(timeline.startSec, (std::vector<double>{0, 2, 2}));
    EXPECT_EQ(timeline.totalSec, 3);
}

// Whatever the lengths, also where a transition outlasts its scene: the sample speaks of scenes that exist,
// its progress is a fraction, and local times lead back to the time asked for.
// Whatever sums and quotients round to, a scene of whole frames has just so many of them.
TEST(CompositionTimeline, CutsOnTheFrame) {
    for (const int fps : {24, 25, 30, 50, 60}) {
        CompositionSpec spec;
        std::vector<std::size_t> sceneOfFrame;
        for (std::size_t scene = 0; scene < 60; ++scene) {
            const std::size_t frames = 1 + scene * 37 % 53;
            spec.scenes.push_back({.durationSec = double(frames) / fps});
            sceneOfFrame.insert(sceneOfFrame.end(), frames, scene);
        }
        const CompositionTimeline timeline(spec);
        for (std::size_t frame = 0; frame < sceneOfFrame.size(); ++frame) {
            const auto sample = timeline.sample(double(frame) / fps);
            ASSERT_EQ(sample->outgoing.index, sceneOfFrame[frame]) << frame << " at " << fps;
            ASSERT_GE(sample->outgoing.localSeconds, 0);
        }
    }
}

TEST(CompositionTimeline, SamplesAndGlobalTimesAgree) {
    SeededRandom dice("clock");
    for (int round = 0; round < 300; ++round) {
        CompositionSpec spec;
        for (auto count = 1 + dice.next() % 6; count > 0; --count)
            spec.scenes.push_back(
                scene(dice.next(-1, 5), dice.nextBool() ? std::optional(dice.next(-1, 7)) : std::nullopt));
        const CompositionTimeline timeline(spec);
        for (int i = 0; i < 50; ++i) {
            const double asked = dice.next(-2, 25);
            const double t = std::fmin(std::fmax(asked, 0), timeline.totalSec);
            const Sample sample = timeline.sample(asked).value();
            EXPECT_NEAR(
                timeline.globalTime(sample.outgoing.index, sample.outgoing.localSeconds).value(), t, 1e-9);
            if (!sample.incoming) continue;
            EXPECT_EQ(sample.incoming->index, sample.outgoing.index + 1);
            EXPECT_NEAR(
                timeline.globalTime(sample.incoming->index, sample.incoming->localSeconds).value(), t, 1e-9);
            EXPECT_GE(sample.progress, 0);
            EXPECT_LT(sample.progress, 1);
        }
    }
}

}   // namespace
}   // namespace tavix
