#include "TavixPlatform/Media/AudioMixer.h"

#include "TavixPlatform/Media/AudioReader.h"
#include "TavixPlatform/Media/PeakLimiter.h"
#include "TavixPlatform/Media/Tests/DecodedMovie.h"
#include "TavixPlatform/Media/Tests/SoundFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace tavix::media::tests {
namespace {

constexpr AudioFormat studio{48000, 2};

Samples mixed(AudioMixer& mixer, std::size_t blockFrames) {
    Samples all, block(2 * blockFrames);
    for (std::size_t got = blockFrames; got == blockFrames;) {
        got = mixer.read(block);
        all.insert(all.end(), block.begin(), block.begin() + std::ptrdiff_t(2 * got));
    }
    return all;
}

Samples mixed(const AudioTimeline& timeline, std::size_t blockFrames = 5000) {
    AudioMixer mixer(timeline);
    return mixed(mixer, blockFrames);
}

TEST(VolumeLine, HoldsWhatWasSetUntilTheNextWord) {
    VolumeLine line;
    EXPECT_EQ(line.at(0), 1);
    line.set(200, 0.25);
    line.set(100, 0.5);
    line.ramp(300, 100, 0.25, 2);
    const struct {
        std::int64_t frame;
        double volume;
    } cases[] = {{0, 1}, {99, 1}, {100, 0.5}, {199, 0.5}, {200, 0.25}, {299, 0.25}, {300, 0.25}, {350, 1.125},
        {399, 1.9825}, {400, 2}, {1'000'000'000'000, 2}};
    for (const auto& c : cases) EXPECT_DOUBLE_EQ(line.at(c.frame), c.volume) << c.frame;
    line.set(200, -1);
    line.set(400, std::numeric_limits<double>::infinity());
    EXPECT_EQ(line.at(250), 0);
    EXPECT_EQ(line.at(500), 1000);
}

// A fade out that begins while the fade in still rises.
TEST(VolumeLine, FadesThatMeetMakeNoJump) {
    for (const int fadeIn : {10, 500, 999, 1500, 5000}) {
        VolumeLine line;
        line.ramp(0, fadeIn, 0, 0.8);
        line.ramp(400, 600, 0.8, 0);
        for (int frame = 0; frame < 999; ++frame) {
            EXPECT_LE(line.at(frame), 0.8 * std::min(1.0, double(frame) / fadeIn) + 1e-12);
            EXPECT_LE(std::abs(line.at(frame + 1) - line.at(frame)), 0.8 / std::min(fadeIn, 600) + 1e-12);
        }
    }
}

TEST(VolumeLine, FillsWhatItSaysOfEachFrame) {
    VolumeLine line;
    line.ramp(7, 20, 0, 1);
    line.ramp(15, 40, 1, 0.5);
    line.set(60, 0.1);
    line.set(61, 0.7);
    for (const std::int64_t first : {-5, 0, 7, 8, 26, 59, 60, 61, 100}) {
        std::vector<float> volumes(64);
        line.fill(first, volumes);
        for (int i = 0; i < 64; ++i) EXPECT_EQ(volumes[std::size_t(i)], float(line.at(first + i)));
    }
}

class AudioMixing : public testing::Test {
protected:
    std::filesystem::path sound(const std::string& name, const Samples& samples) {
        writeSound(folder / name, studio, samples);
        return folder / name;
    }
    // Music with fades, and a lane of two sounds.
    AudioTimeline busy(float loudness) {
        Samples music = noise(30'000, 2, 3);
        for (float& sample : music) sample *= loudness;
        AudioTrack bed{{{sound("music.wav", music), 5000, 0, 25'000}}, {}};
        bed.volume.ramp(0, 4000, 0, 0.7);
        bed.volume.ramp(20'000, 5000, 0.7, 0);
        const auto effect = sound("effect.wav", noise(3000, 2, 4));
        AudioTrack lane{{{effect, 0, 1234, 3000}, {effect, 0, 22'222, 3000}}, {}};
        lane.volume.set(1234, 1);
        lane.volume.set(22'222, 0.5);
        return {studio, {bed, lane}, 40'000};
    }
    const TemporaryFolder folder;
};

TEST_F(AudioMixing, PlacesEverySampleAndVolumeExactly) {
    const AudioTimeline timeline = busy(0.5F);
    const Samples music = readSound(folder / "music.wav", studio),
                  effect = readSound(folder / "effect.wav", studio);
    const Samples mix = mixed(timeline);
    ASSERT_EQ(mix.size(), 80'000U);
    for (std::int64_t frame = 0; frame < 40'000; ++frame)
        for (std::int64_t channel = 0; channel < 2; ++channel) {
            const auto of = [&](const Samples& from, std::int64_t at) {
                return from[static_cast<std::size_t>(2 * at + channel)];
            };
            float expected = 0;
            if (frame < 25'000) {
                const double in = std::min(1.0, double(frame) / 4000);
                const double out = frame < 20'000 ? 1 : 1 - double(frame - 20'000) / 5000;
                const double volume = frame < 4000 ? 0.7 * in : 0.7 + (0 - 0.7) * (1 - out);
                expected += of(music, frame + 5000) * static_cast<float>(volume);
            }
            if (frame >= 1234 && frame < 4234) expected += of(effect, frame - 1234);
            if (frame >= 22'222 && frame < 25'222) expected += of(effect, frame - 22'222) * 0.5F;
            ASSERT_FLOAT_EQ(of(mix, frame), expected) << frame;
        }
}

// Loud enough that the limiter works all the time, too.
TEST_F(AudioMixing, IsTheSameInAnyPortions) {
    for (const float loudness : {0.5F, 3.0F}) {
        const AudioTimeline timeline = busy(loudness);
        const Samples whole = mixed(timeline, 100'000);
        for (const std::size_t block : {1U, 480U, 4097U}) EXPECT_EQ(mixed(timeline, block), whole) << block;
    }
}

TEST_F(AudioMixing, IsTheSameFromAnyPlace) {
    const AudioTimeline timeline = busy(0.5F);
    const Samples whole = mixed(timeline);
    AudioMixer mixer(timeline);
    for (const int frame : {39'000, 1234, 0, 2000, 23'000, 25'222, 40'000}) {
        SCOPED_TRACE(frame);
        mixer.seek(frame);
        EXPECT_EQ(mixer.position(), frame);
        EXPECT_EQ(mixed(mixer, 777), Samples(whole.begin() + 2 * frame, whole.end()));
    }
}

TEST_F(AudioMixing, NamesASoundThatCannotBeReadOnceAndPlaysTheRest) {
    AudioTimeline timeline = busy(0.5F);
    const Samples whole = mixed(timeline);
    const auto absent = folder / "absent.wav";
    timeline.tracks.push_back({{{absent, 0, 0, 10}, {absent, 0, 100, 10}}, {}});
    std::vector<std::string> sentences;
    AudioMixer mixer(timeline, [&](const std::string& sentence) { sentences.push_back(sentence); });
    EXPECT_EQ(mixed(mixer, 1000), whole);
    EXPECT_THAT(sentences, testing::ElementsAre(testing::HasSubstr("absent.wav")));
}

TEST_F(AudioMixing, IsSilentWhereThereIsNothing) {
    EXPECT_EQ(mixed(AudioTimeline{studio, {}, 1000}), Samples(2000, 0.0F));
    EXPECT_EQ(mixed(AudioTimeline{studio, {}, 0}), Samples());
    const auto brief = sound("brief.wav", Samples(20, 0.5F));
    Samples expected(200, 0.0F);
    std::fill_n(expected.begin() + 180, 20, 0.5F);
    EXPECT_EQ(mixed(AudioTimeline{studio, {{{{brief, 0, 90, 5000}}, {}}}, 100}), expected);
}

Samples limited(Samples samples, std::size_t latency, PeakLimiter& limiter) {
    samples.resize(samples.size() + 2 * latency, 0.0F);
    limiter.process(samples);
    return {samples.begin() + std::ptrdiff_t(2 * latency), samples.end()};
}

TEST(PeakLimiter, LeavesAloneWhatStaysWithinFullScale) {
    PeakLimiter limiter(studio);
    Samples samples = noise(100'000, 2);
    samples[5000] = 1;
    samples[9000] = -1;
    EXPECT_EQ(limited(samples, std::size_t(limiter.latencyFrames()), limiter), samples);
}

TEST(PeakLimiter, BringsPeaksToFullScaleAndComesBackToTheSamples) {
    for (const float peak : {1.001F, 1.5F, 4.0F, 1000.0F}) {
        SCOPED_TRACE(peak);
        PeakLimiter limiter(studio);
        const auto latency = std::size_t(limiter.latencyFrames());
        Samples samples = tone(100'000, studio, 100, 0.4);
        for (const std::size_t at : {30'000U, 30'500U}) samples[2 * at] = peak;
        const Samples out = limited(samples, latency, limiter);
        EXPECT_LE(peakOf(out), 1);
        EXPECT_NEAR(out[60'000], 1, 1e-4);
        // Untouched until just before the peak, and a quarter of a second after it.
        EXPECT_TRUE(
            std::equal(out.begin(), out.begin() + std::ptrdiff_t(2 * (30'000 - latency)), samples.begin()));
        EXPECT_TRUE(std::equal(out.begin() + 2 * 43'000, out.end(), samples.begin() + 2 * 43'000));
        // Both channels fall alike, and evenly: a step in the gain would be heard as a click.
        double before = 1;
        for (std::size_t frame = 1; frame < 50'000; ++frame) {
            if (std::abs(samples[2 * frame + 1]) < 0.01) continue;
            const double gain = double(out[2 * frame + 1]) / double(samples[2 * frame + 1]);
            ASSERT_NEAR(gain, before, 4.0 / double(latency)) << frame;
            before = gain;
        }
    }
}

}   // namespace
}   // namespace tavix::media::tests
