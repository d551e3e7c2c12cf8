// Loudness against the signals of EBU Tech 3341 and what trigonometry says of peaks.
#include "TavixRender/Audio/Loudness.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

namespace tavix {
namespace {

struct Tone {
    double levelDb, seconds, hertz = 1000, phase = 0;
};

LoudnessMeasure measured(const std::vector<Tone>& tones, double rateHz = 48000, std::size_t block = 1000) {
    std::vector<float> sound;
    for (const Tone& tone : tones)
        for (int i = 0; i < int(tone.seconds * rateHz); ++i) {
            const double angle = 2 * std::numbers::pi * tone.hertz * i / rateHz + tone.phase;
            const auto sample = float(std::pow(10, tone.levelDb / 20) * std::sin(angle));
            sound.insert(sound.end(), {sample, sample});
        }
    LoudnessMeter meter(rateHz, 2);
    for (std::size_t at = 0; at < sound.size(); at += 2 * block)
        meter.take(std::span(sound).subspan(at, std::min(2 * block, sound.size() - at)));
    return meter.measure();
}

// EBU Tech 3341, cases 1 to 5: each is to be met within 0.1 LU.
TEST(Loudness, MeetsTheSignalsOfTheStandard) {
    EXPECT_NEAR(*measured({{-23, 20}}).integratedLufs, -23, 0.1);
    EXPECT_NEAR(*measured({{-33, 20}}).integratedLufs, -33, 0.1);
    EXPECT_NEAR(*measured({{-36, 10}, {-23, 60}, {-36, 10}}).integratedLufs, -23, 0.1);
    EXPECT_NEAR(*measured({{-72, 10}, {-36, 10}, {-23, 60}, {-36, 10}, {-72, 10}}).integratedLufs, -23, 0.1);
    EXPECT_NEAR(*measured({{-26, 20}, {-20, 20.1}, {-26, 20}}).integratedLufs, -23, 0.1);
    EXPECT_NEAR(*measured({{-23, 20}}, 44100).integratedLufs, -23, 0.1);
}

TEST(Loudness, SeesPeaksBetweenSamples) {
    // Samples at 45 degrees of a sine at a quarter of the rate reach 0.707 of its height.
    const LoudnessMeasure between = measured({{-6, 1, 12000, std::numbers::pi / 4}});
    EXPECT_NEAR(between.truePeakDb, -6, 0.4);
    EXPECT_NEAR(measured({{-6, 1, 997}}).truePeakDb, -6, 0.1);
    EXPECT_EQ(between.clippedSamples, 0);
    EXPECT_GT(measured({{1, 1}}).clippedSamples, 1000);
}

TEST(Loudness, OfSilenceIsNone) {
    EXPECT_FALSE(measured({{-200, 2}}).integratedLufs);
    EXPECT_FALSE(measured({{-23, 0.2}}).integratedLufs);
    EXPECT_LT(measured({}).truePeakDb, -1000);
}

TEST(Loudness, DoesNotDependOnBlocks) {
    const std::vector<Tone> tones{{-20, 1.3}, {-30, 0.7, 300}};
    EXPECT_EQ(measured(tones, 48000, 7).integratedLufs, measured(tones, 48000, 4800).integratedLufs);
}

}   // namespace
}   // namespace tavix
