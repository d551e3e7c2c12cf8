#include "TavixPlatform/Media/AudioReader.h"

#include "TavixPlatform/Media/Tests/DecodedMovie.h"
#include "TavixPlatform/Media/Tests/SoundFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <random>

namespace tavix::media::tests {
namespace {

constexpr AudioFormat cd{44100, 2}, studio{48000, 2};

struct Kind {
    const char *name, *encoder, *container;
    int sampleRate;
    bool isLossless;
    int roundedFrames = 0;   // of the length: the container tells it in milliseconds
};
constexpr Kind kinds[] = {
    {"a.wav", "pcm_s16le", "wav", 44100, true},
    {"b.wav", "pcm_s24le", "wav", 44100, true},
    {"a.aiff", "pcm_s16be", "aiff", 44100, true},
    {"a.caf", "pcm_s16le", "caf", 44100, true},
    {"a.flac", "flac", "flac", 44100, true},
    {"b.m4a", "alac", "ipod", 44100, true},
    {"a.mov", "pcm_s16le", "mov", 44100, true},
    {"a.mka", "flac", "matroska", 44100, true},
    {"a.m4a", "aac", "ipod", 44100, false, 22},
    {"a.mp3", "libmp3lame", "mp3", 44100, false},
    {"a.ogg", "libvorbis", "ogg", 44100, false},
    {"a.opus", "libopus", "ogg", 48000, false},
    {"a.webm", "libopus", "webm", 48000, false, 48},
};

class EverySound : public testing::TestWithParam<Kind> {
protected:
    void write(const Samples& samples) {
        const bool hasRate = std::string(GetParam().encoder) != "libvorbis";
        writeSound(path, format, samples,
            {.encoder = GetParam().encoder,
                .container = GetParam().container,
                .bitsPerSec = GetParam().isLossless || !hasRate ? 0 : 256'000});
    }
    const TemporaryFolder folder;
    const std::filesystem::path path = folder / GetParam().name;
    const AudioFormat format{GetParam().sampleRate, 2};
};
INSTANTIATE_TEST_SUITE_P(AudioReader, EverySound, testing::ValuesIn(kinds), [](const auto& kind) {
    std::string name = kind.param.name;
    std::replace(name.begin(), name.end(), '.', '_');
    return name;
});

// Frame 0 is the first that was written, and the last is the last, whatever the coder puts around them.
TEST_P(EverySound, BeginsAndEndsWithWhatWasRecorded) {
    for (const int frames : {44541, 3000}) {
        SCOPED_TRACE(frames);
        const Samples samples = noise(frames, 2);
        write(samples);
        const Samples read = readSound(path, format);
        EXPECT_NEAR(double(read.size()), double(samples.size()), 2 * GetParam().roundedFrames);
        EXPECT_EQ(delayOf(read, samples, 2, 1500), 0);
        if (GetParam().isLossless) {
            EXPECT_EQ(read, samples);
        }
        const auto info = probeAudio(path);
        ASSERT_TRUE(info);
        EXPECT_NEAR(info->durationSec, double(frames) / format.sampleRate, 0.0011);
        EXPECT_EQ(info->channels, 2);
    }
}

TEST_P(EverySound, IsTheSameInAnyPortions) {
    write(noise(30000, 2));
    const Samples whole = readSound(path, studio, 100'000);
    for (const std::size_t block : {1U, 7U, 1024U}) EXPECT_EQ(readSound(path, studio, block), whole) << block;
}

// Lossy coders may add noise of their own, which depends on where they begin; it must lie far below the
// sound.
TEST_P(EverySound, IsTheSameFromAnyPlace) {
    write(noise(10 * format.sampleRate, 2));
    const Samples whole = readSound(path, studio);
    AudioReader reader(path, studio);
    Samples part(2 * 500);
    for (const int frame : {0, 400'000, 1, 23'999, 300'000, 300'100, 479'000, 120'001, 0}) {
        SCOPED_TRACE(frame);
        reader.seek(frame);
        EXPECT_EQ(reader.position(), frame);
        ASSERT_EQ(reader.read(part), 500U);
        for (std::size_t i = 0; i < part.size(); ++i)
            ASSERT_NEAR(part[i], whole[std::size_t(frame) * 2 + i], GetParam().isLossless ? 0 : 1e-3) << i;
    }
    reader.seek(10'000'000);
    EXPECT_EQ(reader.read(part), 0U);
}

// The frames of a tone at another rate lie on the same wave: no shift, no change of level, no other tones.
TEST(AudioReader, ResamplesOnTheClockOfTheFile) {
    const TemporaryFolder folder;
    const struct {
        int from, to;
        double frequencyHz;
    } cases[] = {
        {44100, 48000, 997},
        {48000, 44100, 997},
        {22050, 48000, 5000},
        {96000, 48000, 15000},
        {44100, 48000, 18000},
        {8000, 48000, 200},
        {11025, 44100, 3000},
        {192000, 44100, 60},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.from) + " to " + std::to_string(c.to));
        writeSound(folder / "tone.wav", {c.from, 1}, tone(c.from, {c.from, 1}, c.frequencyHz));
        const AudioFormat to{c.to, 1};
        const Samples read = readSound(folder / "tone.wav", to), ideal = tone(c.to, to, c.frequencyHz);
        ASSERT_EQ(read.size(), ideal.size());
        double error = 0, power = 0;
        for (std::size_t i = read.size() / 10; i < read.size() * 9 / 10; ++i) {
            error += std::pow(double(read[i]) - double(ideal[i]), 2);
            power += std::pow(double(ideal[i]), 2);
        }
        EXPECT_LT(10 * std::log10(error / power), -90);
    }
}

TEST(AudioReader, KeepsOutTonesThatTheRateCannotHold) {
    const TemporaryFolder folder;
    for (const int frequencyHz : {24'000, 30'000, 43'000}) {
        writeSound(folder / "tone.wav", {96000, 1}, tone(96000, {96000, 1}, frequencyHz));
        const Samples read = readSound(folder / "tone.wav", {44100, 1});
        const Samples middle(read.begin() + 4410, read.end() - 4410);
        EXPECT_LT(peakOf(middle), 0.5e-4) << frequencyHz;   // 80 dB
    }
}

TEST(AudioReader, SpreadsOneChannelAtFullLevelAndFoldsManyWithinIt) {
    const TemporaryFolder folder;
    const Samples mono = noise(2000, 1);
    writeSound(folder / "mono.wav", {48000, 1}, mono);
    const Samples spread = readSound(folder / "mono.wav", studio);
    for (std::size_t i = 0; i < mono.size(); ++i)
        ASSERT_TRUE(spread[2 * i] == mono[i] && spread[2 * i + 1] == mono[i]) << i;
    for (const int channels : {2, 3, 4, 6, 8}) {
        writeSound(folder / "full.wav", {48000, channels}, Samples(std::size_t(channels) * 2000, 1.0F));
        for (const int to : {1, 2})
            EXPECT_NEAR(peakOf(readSound(folder / "full.wav", {48000, to})), 1, 1e-3) << channels << to;
    }
}

TEST(AudioReader, HearsAGapAsSilence) {
    const TemporaryFolder folder;
    constexpr int gap = 30'000, at = 10 * 960;
    const Samples samples = noise(20 * 960, 2);
    writeSound(folder / "gap.mka", studio, samples,
        {.encoder = "pcm_s16le", .container = "matroska", .gapAt = at, .gapFrames = gap});
    const Samples read = readSound(folder / "gap.mka", studio);
    ASSERT_EQ(read.size(), samples.size() + 2 * gap);
    Samples expected = samples;
    expected.insert(expected.begin() + 2 * at, 2 * gap, 0.0F);
    EXPECT_EQ(read, expected);
}

TEST(AudioReader, GivesOnlyFiniteSamples) {
    const TemporaryFolder folder;
    constexpr float infinity = std::numeric_limits<float>::infinity();
    writeSound(folder / "wild.wav", {48000, 1},
        {0.5F, std::numeric_limits<float>::quiet_NaN(), infinity, -infinity, 1e30F, 2.0F});
    EXPECT_EQ(readSound(folder / "wild.wav", {48000, 1}), (Samples{0.5F, 0, 0, 0, 1000, 2}));
}

std::string sentenceOf(const std::filesystem::path& path) {
    try {
        AudioReader reader(path, studio);
    } catch (const MediaError& error) {
        return error.what();
    }
    return "";
}

TEST(AudioReader, SaysWhyAFileGivesNoSound) {
    const TemporaryFolder folder;
    std::ofstream(folder / "text.mp3") << "This is no sound.";
    std::ofstream(folder / "empty.wav") << "";
    for (const char* name : {"text.mp3", "empty.wav", "absent.wav", ""}) {
        EXPECT_THAT(sentenceOf(folder / name), testing::StartsWith("Cannot read the media file \"")) << name;
        EXPECT_THROW(probeAudio(folder / name), MediaError) << name;
    }
}

// Whatever is damaged, what is read is finite and not much longer than it was.
TEST_P(EverySound, SurvivesDamage) {
    constexpr int frames = 40'000;
    write(noise(frames, 2));
    const std::string whole = bytesOf(path);
    std::mt19937 random(7);
    for (int round = 0; round < 40; ++round) {
        std::string bytes = whole;
        if (round % 2) bytes.resize(random() % bytes.size());
        if (!bytes.empty())
            for (int i = 0; i < round; ++i) bytes[random() % bytes.size()] = static_cast<char>(random());
        std::ofstream(path, std::ios::binary) << bytes;
        try {
            AudioReader reader(path, studio);
            Samples block(2 * 4096);
            for (int i = 0; i < 100 && reader.read(block) > 0; ++i)
                for (const float sample : block) ASSERT_TRUE(std::isfinite(sample));
        } catch (const MediaError&) {}
    }
}

}   // namespace
}   // namespace tavix::media::tests
