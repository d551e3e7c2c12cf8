#include "Sounds/Cues.h"
#include "Sounds/Loudness.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numbers>

namespace tavix::sounds {
namespace {

double rms(const std::vector<float>& samples, double fromSec, double toSec) {
    double sum = 0;
    const auto from = static_cast<std::size_t>(fromSec * sampleRateHz);
    const auto to = std::min(samples.size(), static_cast<std::size_t>(toSec * sampleRateHz));
    for (std::size_t i = from; i < to; ++i) sum += static_cast<double>(samples[i]) * samples[i];
    return std::sqrt(sum / static_cast<double>(to - from));
}

// BS.1770-4: a tone of 997 Hz at full scale in one channel reads -3.01.
TEST(Loudness, isCalibratedAsTheStandardAsks) {
    Sound tone(2);
    for (std::size_t i = 0; i < tone.count(); ++i)
        tone.add(i, std::sin(2 * std::numbers::pi * 997 * static_cast<double>(i) / sampleRateHz), 0);
    EXPECT_NEAR(momentaryLoudness(tone), -3.01, 0.02);
    tone.scale(0.1);
    EXPECT_NEAR(momentaryLoudness(tone), -23.01, 0.02);
}

TEST(Loudness, findsTheLoudestPart) {
    Sound burst(3), alone(0.4);
    for (std::size_t i = 0; i < alone.count(); ++i) {
        const double sample = std::sin(0.2 * static_cast<double>(i));
        alone.add(i, sample, sample);
        burst.add(i + 60000, sample, sample);
    }
    EXPECT_NEAR(momentaryLoudness(burst), momentaryLoudness(alone), 0.1);
}

class CueTest : public testing::TestWithParam<Cue> {};

TEST_P(CueTest, beginsAndEndsInSilence) {
    const Sound sound = GetParam().make();
    for (const auto* channel : {&sound.left, &sound.right}) {
        EXPECT_EQ(channel->front(), 0);
        EXPECT_EQ(channel->back(), 0);
        EXPECT_LT(rms(*channel, static_cast<double>(sound.count()) / sampleRateHz - 0.01, 1e9), 0.0005);
    }
}

TEST_P(CueTest, isAsLoudAsTheOthersAndDoesNotClip) {
    const Sound sound = GetParam().make();
    EXPECT_NEAR(momentaryLoudness(sound), cueLoudnessLufs, 0.05);
    EXPECT_LT(sound.peak(), 0.9);
}

TEST_P(CueTest, isHeardInBothEarsWithoutAnOffset) {
    const Sound sound = GetParam().make();
    double sum = 0;
    for (const float sample : sound.left) sum += sample;
    EXPECT_NEAR(sum / static_cast<double>(sound.count()), 0, 0.001);
    const double whole = static_cast<double>(sound.count()) / sampleRateHz;
    EXPECT_NEAR(20 * std::log10(rms(sound.left, 0, whole) / rms(sound.right, 0, whole)), 0, 3);
}

TEST_P(CueTest, isTheSameEveryTime) { EXPECT_EQ(wavBytes(GetParam().make()), wavBytes(GetParam().make())); }

INSTANTIATE_TEST_SUITE_P(All, CueTest, testing::ValuesIn(cues().begin(), cues().end()),
    [](const auto& cue) { return std::string(cue.param.name); });

TEST(Wav, saysItsOwnSize) {
    Sound sound(0.01);
    sound.add(0, 1, -1);
    const auto bytes = wavBytes(sound);
    ASSERT_EQ(bytes.size(), 44 + sound.count() * 6);
    const auto word = [&](std::size_t at) {
        return bytes[at] | bytes[at + 1] << 8 | bytes[at + 2] << 16 | bytes[at + 3] << 24;
    };
    EXPECT_EQ(word(4), static_cast<int>(bytes.size() - 8));
    EXPECT_EQ(word(40), static_cast<int>(bytes.size() - 44));
    EXPECT_THAT(std::vector<std::uint8_t>(bytes.begin() + 44, bytes.begin() + 50),
        testing::ElementsAre(0xff, 0xff, 0x7f, 0x01, 0x00, 0x80));
}

}   // namespace
}   // namespace tavix::sounds
