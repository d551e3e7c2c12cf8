#include "TavixCore/Time/CompositionBeats.h"

#include "TavixCore/Support/Document.h"
#include "TavixCore/Tests/SchemaDocument.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixCore/Values/SeededRandom.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tavix {
namespace {

using CompositionLint::Finding;
using CompositionLint::Level;

// 120 beats per minute: a beat is half a second.
CompositionSpec onGrid(const std::string& scenes, const std::string& cues = "[]") {
    return decodeJson<CompositionSpec>(
        R"({"audio": {"music": {"bpm": 120}, "cues": )" + cues + R"(}, "scenes": )" + scenes + "}");
}

TEST(BeatGrid, TimesRiseWithBeatsAndTheNearestBeatIsOneOfThem) {
    SeededRandom dice("beats");
    for (int i = 0; i < 200; ++i) {
        const BeatGrid grid{.bpm = dice.next(-5, 300), .offsetSec = dice.next(-3, 3)};
        for (double beat = -4; beat < 8; beat += 0.5)
            EXPECT_LT(grid.timeOfBeat(beat), grid.timeOfBeat(beat + 0.5));
        const double t = dice.next(-20, 20), nearest = grid.nearestBeat(t);
        EXPECT_LE(std::abs(nearest - t), grid.beatDuration() / 2 + 1e-9);
        EXPECT_NEAR(grid.nearestBeat(nearest), nearest, 1e-9);
    }
}

TEST(BeatGrid, CountsATempoBelowOneAsOne) {
    EXPECT_EQ((BeatGrid{.bpm = 0.5}.beatDuration()), 60);
    EXPECT_EQ((BeatGrid{.bpm = 60}.nearestBeat(2.5)), 3);   // halfway: the later one
    EXPECT_EQ((BeatGrid{.bpm = 60}.nearestBeat(-2.5)), -2);
    EXPECT_EQ(encodedJson(decodeJson<BeatGrid>("{}")), encodedJson(BeatGrid{.bpm = 100, .offsetSec = 0}));
}

TEST(CompositionBeats, HaveAGridWhereMusicStatesATempo) {
    EXPECT_FALSE(CompositionBeats::grid({}));
    CompositionSpec spec{.audio = CompositionAudio{}};
    EXPECT_FALSE(CompositionBeats::grid(spec));
    spec.audio->music = MusicBed{};
    EXPECT_FALSE(CompositionBeats::grid(spec));
    for (const double none : {0.0, -120.0, std::numeric_limits<double>::quiet_NaN()}) {
        spec.audio->music->bpm = none;
        EXPECT_FALSE(CompositionBeats::grid(spec)) << none;
    }
    spec.audio->music = MusicBed{.startAtSec = 0.75, .bpm = 90, .firstBeatSec = 1};
    EXPECT_EQ(CompositionBeats::grid(spec), (BeatGrid{.bpm = 90, .offsetSec = 0.25}));
}

// Over random documents: nothing in beats is left but what a finding names, seconds are never touched where
// no beat stands, and a second run finds nothing to do.
TEST(CompositionBeats, ResolvingTwiceChangesNothing) {
    const SchemaDocument schema(schemaOf<CompositionSpec>("T"));
    SeededRandom dice("twice");
    int resolved = 0;
    for (int i = 0; i < 150; ++i) {
        auto spec = decodeValue<CompositionSpec>(schema.random(dice, SchemaDocument::Manner::tame));
        spec.audio = CompositionAudio{.music = MusicBed{.bpm = dice.next(30, 200)}};
        const CompositionResolution once = CompositionBeats::resolve(spec);
        if (!CompositionBeats::containsBeatRefs(spec)) {
            EXPECT_EQ(once, (CompositionResolution{spec, {}}));
            continue;
        }
        ++resolved;
        const bool waitsForMarks = CompositionBeats::containsBeatRefs(once.spec);
        EXPECT_TRUE(!waitsForMarks || hasErrors(once.findings));
        const CompositionResolution twice = CompositionBeats::resolve(once.spec);
        EXPECT_EQ(twice.spec, once.spec);
        EXPECT_EQ(twice.findings.empty(), !waitsForMarks);
    }
    EXPECT_GT(resolved, 20);
}

TEST(CompositionBeats, StayWithoutAGrid) {
    auto spec = onGrid(R"([{"durationBeats": 8, "layers": [{"kind": "text", "fromBeat": 4}]}])");
    spec.audio->music->bpm = 0;
    EXPECT_TRUE(CompositionBeats::containsBeatRefs(spec));
    EXPECT_EQ(CompositionBeats::resolve(spec), (CompositionResolution{spec, {}}));
}

TEST(CompositionBeats, BecomeSecondsOnTheClockOfTheirPlace) {
    auto spec = onGrid(R"([
        {"durationBeats": 8, "transition": {"durationBeats": 2},
         "layers": [{"kind": "text", "fromBeat": 4, "toBeat": 7}]},
        {"durationSec": 4, "layers": [
            {"kind": "text", "fromBeat": 6.0008, "tracks": [{"property": "opacity", "keyframes": [
                {"t": 9, "value": 1, "atBeat": 7}, {"t": 5, "value": 1}, {"atBeat": 5, "value": 0, "t": 0}]}]},
            {"kind": "device", "fromBeat": 7, "device": {"screenOpacity": [{"t": 0, "value": 1, "atBeat": 9}]}}]}])",
        R"([{"atBeat": 3}])");
    const CompositionResolution made = CompositionBeats::resolve(spec);
    EXPECT_TRUE(made.findings.empty());
    EXPECT_FALSE(CompositionBeats::containsBeatRefs(made.spec));
    const CompositionScene &first = made.spec.scenes[0], &second = made.spec.scenes[1];
    EXPECT_EQ(first.durationSec, 4);
    EXPECT_EQ(first.transition->durationSec, 1);
    EXPECT_EQ(first.layers[0].fromSec, 2);
    EXPECT_EQ(first.layers[0].durationSec, 1.5);
    // The second scene starts at 3, after the overlap; a start 0.4 ms past it is meant to be exact.
    EXPECT_EQ(CompositionTimeline(made.spec).startSec[1], 3);
    EXPECT_EQ(second.layers[0].fromSec, 0);
    EXPECT_EQ(second.layers[0].tracks[0].keyframes[0].t, 0.5);
    EXPECT_EQ(second.layers[0].tracks[0].keyframes[1].t, 5);
    EXPECT_EQ(second.layers[0].tracks[0].keyframes[2].t, -0.5);
    EXPECT_EQ(std::get<DeviceContent>(second.layers[1].content).screenOpacity[0].t, 1);
    EXPECT_EQ(made.spec.audio->cues[0].atSec, 1.5);
    // A grid that starts a second later moves what stands on the global clock, and no length.
    spec.audio->music->firstBeatSec = 1;
    const CompositionSpec later = CompositionBeats::resolve(spec).spec;
    EXPECT_EQ(later.scenes[0].durationSec, 4);
    EXPECT_EQ(later.scenes[0].layers[0].fromSec, 3);
    EXPECT_EQ(later.scenes[0].layers[0].durationSec, 1.5);
    EXPECT_EQ(later.audio->cues[0].atSec, 2.5);
}

TEST(CompositionBeats, SayWhatIsWrong) {
    const struct {
        std::string scenes;
        Finding finding;
    } cases[] = {
        {R"([{"id": "intro", "durationSec": 3, "durationBeats": 8}])",
            {Level::error, "scenes[0].durationBeats",
                "intro: durationSec (3.00) and durationBeats (8.00 = 4.00s) both set — pick one duration "
                "authority.",
                {}}},
        {R"([{"durationSec": 3, "transition": {"durationSec": 1, "durationBeats": 2.5}}, {"durationSec": 3}])",
            {Level::error, "scenes[0].transition.durationBeats",
                "durationSec (1.00) and durationBeats (2.50) both set — pick one duration authority.", {}}},
        {R"([{"durationSec": 3}, {"durationSec": 3, "layers": [{"kind": "text", "fromBeat": 4}]}])",
            {Level::error, "scenes[1].layers[0].fromBeat",
                "Beat 4.00 is 2.00s on the global clock — before this scene starts (3.00s).", {}}},
        {R"([{"durationSec": 3, "layers": [{"kind": "text", "fromSec": 2, "toBeat": 4}]}])",
            {Level::error, "scenes[0].layers[0].toBeat",
                "Beat 4.00 resolves to scene time 2.00s — at or before the layer's start (2.00s).", {}}},
        {R"([{"durationSec": 3, "layers": [{"kind": "text", "fromMark": "Save", "tracks": [
              {"property": "opacity", "keyframes": [{"t": 0, "value": 0, "atBeat": 1}]}]}]}])",
            {Level::error, "scenes[0].layers[0].tracks[0].keyframes[0].atBeat",
                "Beat keyframes need a concrete or beat-valued layer start — this layer starts at a "
                "recording mark.",
                "Use atMark for the keyframe too, or give the layer fromBeat/fromSec."}},
        {R"([{"durationSec": 3, "layers": [{"kind": "device", "fromMark": "Save", "device": {
              "screenOpacity": [{"t": 0, "value": 0, "atBeat": 1}]}}]}])",
            {Level::error, "scenes[0].layers[0].device.screenOpacity[0].atBeat",
                "Beat keyframes need a concrete or beat-valued layer start — this layer starts at a "
                "recording mark.",
                "Use atMark for the keyframe too, or give the layer fromBeat/fromSec."}},
        {R"([{"durationBeats": 4, "layers": [{"kind": "device", "fromSec": 0.5, "device": {
              "placement": {"track": [{"tSec": 1.56}]}}}]}])",
            {Level::warning, "scenes[0].durationBeats",
                "scene-0: the device motion runs to 2.06s but durationBeats: 4.00 resolves to 2.00s — the "
                "tail will "
                "be cut.",
                "Use durationBeats: 5 to fit it."}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.scenes);
        EXPECT_EQ(CompositionBeats::resolve(onGrid(c.scenes)).findings, std::vector<Finding>{c.finding});
    }
    auto early = onGrid("[]", R"([{"atBeat": 0}, {"atBeat": 1}])");
    early.audio->music->startAtSec = 0.25;
    EXPECT_EQ(CompositionBeats::resolve(early).findings,
        (std::vector<Finding>{{Level::error, "audio.cues[0].atBeat",
            "Beat 0.00 resolves to -0.25s — before the composition starts.", {}}}));
}

TEST(CompositionBeats, LetAlmostFinishedMotionPass) {
    const auto spec = onGrid(R"([{"durationBeats": 4, "layers": [
        {"kind": "device", "device": {"placement": {"track": [{"tSec": 2.04}]}}},
        {"kind": "device", "fromSec": 9, "device": {"placement": {"track": [{"tSec": -3}]}}}]}])");
    EXPECT_TRUE(CompositionBeats::resolve(spec).findings.empty());
}

TEST(CompositionBeats, SurviveNumbersWithoutEnd) {
    const auto spec = onGrid(R"([{"durationBeats": 1e308, "layers": [{"kind": "text", "fromBeat": -1.7e308}]},
        {"durationSec": 1e308, "durationBeats": 1, "layers": [{"kind": "device", "fromSec": 1.7e308, "device": {
            "placement": {"track": [{"tSec": 1.7e308}]}}}]}])");
    EXPECT_TRUE(hasErrors(CompositionBeats::resolve(spec).findings));
}

}   // namespace
}   // namespace tavix
