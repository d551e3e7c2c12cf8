#include "TavixRender/MusicAnalysis/MusicAnalyzer.h"

#include "TavixCore/Support/Document.h"
#include "TavixRender/MusicAnalysis/BeatPhase.h"
#include "TavixRender/MusicAnalysis/LoudnessEnvelope.h"
#include "TavixRender/MusicAnalysis/OnsetNovelty.h"
#include "TestMusic.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace tavix {
namespace {

using test::musicRateHz;
using test::Track;
using testing::ElementsAre;
using testing::IsEmpty;

BeatAnalysis heard(const std::vector<float>& samples) { return MusicAnalyzer::analyze(samples, musicRateHz); }

BeatAnalysis nothingHeardIn(double durationSec) {
    BeatAnalysis result;
    result.durationSec = durationSec;
    return result;
}

struct Heard {
    std::string name;
    Track track;
    double bpm =
        track.bpm;   // what is to be heard; a listener may well tap at half or twice of what was played
};

class TempoTest : public testing::TestWithParam<Heard> {};

TEST_P(TempoTest, isWithinHalfAPercentAndItsFirstBeatWithin15Milliseconds) {
    const auto& [name, track, bpm] = GetParam();
    const BeatAnalysis found = heard(test::played(track));
    EXPECT_NEAR(found.bpm, bpm, bpm * 0.005);
    const double periodSec = 60 / bpm;
    const double away = std::remainder(found.firstBeatSec - track.firstBeatSec, periodSec);
    EXPECT_NEAR(away, 0, 0.015) << "first beat at " << found.firstBeatSec;
    EXPECT_GE(found.confidence, 0.5);
}

std::vector<Heard> tracks() {
    std::vector<Heard> rows;
    for (const double bpm :
        {60., 68., 75., 84., 90., 100., 110., 120., 128., 140., 150., 165., 174., 180., 190.})
        rows.push_back({"at" + std::to_string(static_cast<int>(bpm)), {.bpm = bpm}});
    rows.push_back({"fractions", {.bpm = 117.3, .firstBeatSec = 0.437}});
    rows.push_back({"swing", {.bpm = 112, .swing = 0.16, .offBeatHat = 0.5, .backbeat = 0.7}});
    rows.push_back({"offBeatHats", {.bpm = 124, .offBeatHat = 0.6}});
    rows.push_back({"backbeat", {.bpm = 98, .offBeatHat = 0.3, .backbeat = 0.9}});
    rows.push_back({"eighthsAt95", {.bpm = 95, .offBeatHat = 0.5, .backbeat = 0.5}});   // not 190
    rows.push_back({"halfTimeAt150", {.bpm = 150, .everyBeat = 0.7, .backbeat = 1}});   // not 75
    rows.push_back({"eighthsAt64", {.bpm = 64, .offBeatHat = 0.9}, 128});               // as the hats go
    rows.push_back({"fadeIn", {.bpm = 105, .durationSec = 30, .fadeInSec = 12}});
    rows.push_back({"silenceFirst", {.bpm = 126, .firstBeatSec = 4.1}});
    rows.push_back({"hiss", {.bpm = 118, .hiss = 0.05}});
    rows.push_back({"short", {.bpm = 120, .durationSec = 5}});
    return rows;
}

INSTANTIATE_TEST_SUITE_P(
    Tracks, TempoTest, testing::ValuesIn(tracks()), [](const auto& row) { return row.param.name; });

TEST(MusicAnalyzer, countsTheBeatsThatFit) {
    const BeatAnalysis found = heard(test::played({.bpm = 120, .firstBeatSec = 0.25, .durationSec = 10}));
    EXPECT_EQ(found.beatCount, 20);
    EXPECT_THAT(found.onsetsSec, testing::SizeIs(20));
}

TEST(MusicAnalyzer, findsNoBeatWhereThereIsNone) {
    const BeatAnalysis shortOne = heard(test::played({.durationSec = 2.9}));
    EXPECT_EQ(shortOne, nothingHeardIn(shortOne.durationSec));
    EXPECT_NEAR(shortOne.durationSec, 2.9, 1e-4);
    EXPECT_EQ(heard(std::vector<float>(22050 * 5)), nothingHeardIn(5));
    EXPECT_EQ(heard({}), nothingHeardIn(0));
}

// The beat of a drum stands out far more than whatever repeats in noise by chance.
TEST(MusicAnalyzer, isLessSureOfNoise) {
    const double sure = heard(test::played({})).bpm;
    EXPECT_NEAR(sure, 120, 0.6);
    const auto energyOf = [](const BeatAnalysis& found) { return found.onsetsSec.size(); };
    EXPECT_GT(energyOf(heard(test::noise(20, 0.5))), energyOf(heard(test::played({}))));
}

TEST(MusicAnalyzer, putsTheDropOnABeat) {
    std::vector<float> samples = test::played({.bpm = 120, .firstBeatSec = 0.1, .durationSec = 24});
    for (std::size_t i = 0; i < static_cast<std::size_t>(12.0 * musicRateHz); ++i) samples[i] *= 0.1f;
    const BeatAnalysis found = heard(samples);
    ASSERT_TRUE(found.dropSec);
    EXPECT_NEAR(*found.dropSec, 12.1, 0.26);
    const double beats = (*found.dropSec - found.firstBeatSec) / (60 / found.bpm);
    EXPECT_NEAR(beats, std::round(beats), 1e-6);
}

// Loudness only matters where it changes: the same music at another level has the same beats and parts.
TEST(MusicAnalyzer, hearsTheSameAtAnotherLevel) {
    const std::vector<float> loud = test::played({.bpm = 103, .backbeat = 0.5});
    std::vector<float> soft = loud;
    for (float& sample : soft) sample *= 0.25f;
    const BeatAnalysis a = heard(loud), b = heard(soft);
    EXPECT_NEAR(a.bpm, b.bpm, 0.05);
    EXPECT_NEAR(a.firstBeatSec, b.firstBeatSec, 0.003);
    ASSERT_EQ(a.sections.size(), b.sections.size());
    EXPECT_NEAR(a.sections[0].meanRmsDb - b.sections[0].meanRmsDb, 20 * std::log10(4), 0.01);
}

TEST(LoudnessEnvelope, isEvenInSectionsAndJumpsBetweenThem) {
    struct Row {
        double durationSec, quietUntilSec;
        bool drops;
        std::size_t sections;
    };
    for (const auto& [durationSec, quietUntilSec, drops, sections] : {
             Row{0.4, 0, false, 0},   // less than a window
             Row{4.4, 2, false, 1},   // too short to compare two seconds with two
             Row{10, 0, false, 1},
             Row{10, 5, true, 2},
         }) {
        std::vector<float> samples = test::noise(durationSec, 0.5);
        for (std::size_t i = 0; i < static_cast<std::size_t>(quietUntilSec * musicRateHz); ++i)
            samples[i] *= 0.1f;
        const LoudnessEnvelope envelope = loudnessEnvelope(samples, musicRateHz);
        SCOPED_TRACE(durationSec);
        ASSERT_EQ(envelope.dropSec.has_value(), drops);
        EXPECT_NEAR(envelope.dropSec.value_or(quietUntilSec), quietUntilSec, 0.3);
        ASSERT_EQ(envelope.sections.size(), sections);
        for (std::size_t i = 1; i < sections; ++i)
            EXPECT_LT(envelope.sections[i - 1].startSec, envelope.sections[i].startSec);
    }
    const LoudnessEnvelope silent = loudnessEnvelope(std::vector<float>(22050 * 6), musicRateHz);
    EXPECT_THAT(silent.sections, ElementsAre(BeatAnalysis::Section{0, -80}));
}

TEST(BeatPhase, findsTheTeethOfAComb) {
    std::vector<double> novelty(400, 0.01);
    for (std::size_t i = 7; i < novelty.size(); i += 40) novelty[i] = 1;
    EXPECT_NEAR(BeatPhase::search(novelty, 40), 7, 0.5);
    EXPECT_NEAR(BeatPhase::snapped(8.6, novelty, 86), 7, 1e-9);
    EXPECT_EQ(BeatPhase::snapped(20, novelty, 86), 20);   // nothing near
    EXPECT_EQ(BeatPhase::search(novelty, 1), 0);
    EXPECT_EQ(BeatPhase::search(novelty, 400), 0);
}

TEST(OnsetNovelty, needsOneFrame) {
    EXPECT_THAT(OnsetNovelty::curve(std::vector<float>(1023), musicRateHz), IsEmpty());
    EXPECT_THAT(OnsetNovelty::curve(std::vector<float>(1024), musicRateHz), ElementsAre(0));
}

TEST(BeatAnalysis, isReadAsItWasWritten) {
    BeatAnalysis found = heard(test::played({.durationSec = 8}));
    EXPECT_EQ(decodeJson<BeatAnalysis>(encodedJson(found)), found);
    found.dropSec = 3;
    found.alternativeBpm = 60;
    EXPECT_EQ(decodeJson<BeatAnalysis>(encodedJson(found)), found);
    EXPECT_EQ(decodeJson<BeatAnalysis>("{}"), BeatAnalysis());
    EXPECT_EQ(BeatAnalysis::sidecarPath("music/song.mp3"), "music/song.beats.json");
}

}   // namespace
}   // namespace tavix
