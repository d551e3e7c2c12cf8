#include "TavixPlatform/Media/Remux.h"

#include "TavixPlatform/Media/AudioReader.h"
#include "TavixPlatform/Media/AudioWriter.h"
#include "TavixPlatform/Media/MovieWriter.h"
#include "TavixPlatform/Media/Tests/DecodedMovie.h"
#include "TavixPlatform/Media/Tests/SoundFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

namespace tavix::media::tests {
namespace {

constexpr AudioFormat studio{48000, 2};

void writeAac(const std::filesystem::path& path, const Samples& samples) {
    AudioWriter writer({path, studio});
    for (std::size_t at = 0; at < samples.size(); at += 1500)
        writer.append(std::span(samples).subspan(at, std::min<std::size_t>(1500, samples.size() - at)));
    writer.finish();
}

template <class Work> std::string failureOf(Work work) {
    try {
        work();
    } catch (const MediaError& error) {
        return error.what();
    }
    return "no failure";
}

TEST(AudioWriter, KeepsTheLengthAndThePlaceOfEverySample) {
    const TemporaryFolder folder;
    for (const int frames : {1, 100, 1023, 1024, 1025, 2048, 48'000, 100'001}) {
        SCOPED_TRACE(frames);
        const int at = frames / 3;
        writeAac(folder / "a.m4a", click(frames, 2, at));
        const Samples read = readSound(folder / "a.m4a", studio);
        ASSERT_EQ(read.size(), std::size_t(frames) * 2);
        EXPECT_DOUBLE_EQ(probeAudio(folder / "a.m4a")->durationSec, double(frames) / 48000);
        const auto loudest = std::max_element(read.begin(), read.end());
        if (frames > 1) {
            EXPECT_EQ((loudest - read.begin()) / 2, at);
        }
    }
}

TEST(AudioWriter, SoundsLikeWhatWasWritten) {
    const TemporaryFolder folder;
    const Samples samples = tone(96'000, studio, 1000, 0.5);
    writeAac(folder / "a.m4a", samples);
    const Samples read = readSound(folder / "a.m4a", studio);
    double error = 0, power = 0;
    for (std::size_t i = 10'000; i < 180'000; ++i) {
        error += std::pow(double(read[i]) - double(samples[i]), 2);
        power += std::pow(double(samples[i]), 2);
    }
    EXPECT_LT(10 * std::log10(error / power), -60);
}

TEST(AudioWriter, GivesTheSameBytesTwiceAndSignsNothing) {
    const TemporaryFolder folder;
    for (const char* name : {"a.m4a", "b.m4a"}) writeAac(folder / name, noise(50'000, 2));
    const std::string bytes = bytesOf(folder / "a.m4a");
    EXPECT_EQ(bytes, bytesOf(folder / "b.m4a"));
    EXPECT_EQ(bytes.find("Lav"), std::string::npos);
}

TEST(AudioWriter, LeavesNothingBehindWhenItCannotFinish) {
    const TemporaryFolder folder;
    { AudioWriter abandoned({folder / "a.m4a", studio}); }
    EXPECT_FALSE(std::filesystem::exists(folder / "a.m4a"));
    EXPECT_EQ(failureOf([] { writeAac("/dev/full", noise(50'000, 2)); }),
        "Cannot write \"/dev/full\": No space left on device.");
    EXPECT_THAT(failureOf([&] {
        AudioWriter writer({folder / "b.m4a", {12345, 2}});
    }),
        testing::StartsWith("Cannot encode the sound \"" + (folder / "b.m4a").string() + "\": "));
    EXPECT_FALSE(std::filesystem::exists(folder / "b.m4a"));
}

void writeMovie(const MovieSettings& settings, int frames) {
    MovieWriter writer(settings);
    for (int i = 0; i < frames; ++i) {
        MovieWriter::Slot& slot = writer.acquire();
        for (int y = 0; y < settings.sizePx.height; ++y)
            slot.planes.planes[0][y * slot.planes.strideBytes[0] + i % 16] =
                static_cast<std::uint8_t>(16 + 3 * i);
        writer.submit(slot, std::int64_t{i} * settings.frameDuration);
    }
    writer.finish();
}

// What a track's packets are: their times, whether decoding can begin there, and their bytes.
using Packets = std::vector<std::tuple<std::int64_t, std::int64_t, std::int64_t, int, std::string>>;
struct Track {
    Packets packets;
    std::string head;   // the decoder's settings
    unsigned tag = 0;
    AVRational timeBase{}, rate{};
    AVColorSpace colors{};
};
std::vector<Track> tracksOf(const std::filesystem::path& path) {
    AVFormatContext* input = nullptr;
    EXPECT_GE(avformat_open_input(&input, path.c_str(), nullptr, nullptr), 0);
    EXPECT_GE(avformat_find_stream_info(input, nullptr), 0);
    std::vector<Track> tracks(input->nb_streams);
    for (unsigned i = 0; i < input->nb_streams; ++i) {
        const AVStream& stream = *input->streams[i];
        const auto* head = reinterpret_cast<const char*>(stream.codecpar->extradata);
        tracks[i].head.assign(head ? head : "", std::size_t(stream.codecpar->extradata_size));
        tracks[i].tag = stream.codecpar->codec_tag;
        tracks[i].timeBase = stream.time_base;
        tracks[i].rate = stream.avg_frame_rate;
        tracks[i].colors = stream.codecpar->color_space;
    }
    const auto packet = libav::owned<libav::Packet>(av_packet_alloc());
    while (av_read_frame(input, packet.get()) >= 0) {
        tracks[std::size_t(packet->stream_index)].packets.emplace_back(packet->pts, packet->dts,
            packet->duration, packet->flags,
            std::string(reinterpret_cast<const char*>(packet->data), std::size_t(packet->size)));
        av_packet_unref(packet.get());
    }
    avformat_close_input(&input);
    return tracks;
}

struct RemuxCase {
    const char* name;
    MovieCodec codec;
    MovieContainer container;
    int framesPerSec, frames;
};
class EveryMovie : public testing::TestWithParam<RemuxCase> {};
INSTANTIATE_TEST_SUITE_P(Remux, EveryMovie,
    testing::Values(RemuxCase{"h264Mp4", MovieCodec::h264, MovieContainer::mp4, 30, 75},
        RemuxCase{"h264Mov", MovieCodec::h264, MovieContainer::mov, 60, 40},
        RemuxCase{"h264Single", MovieCodec::h264, MovieContainer::mp4, 24, 1},
        RemuxCase{"h264Uneven", MovieCodec::h264, MovieContainer::mp4, 7, 20},
        RemuxCase{"hevcMp4", MovieCodec::hevc, MovieContainer::mp4, 30, 40},
        RemuxCase{"hevcMov", MovieCodec::hevc, MovieContainer::mov, 25, 2},
        RemuxCase{"proRes422HQ", MovieCodec::proRes422HQ, MovieContainer::mov, 30, 10},
        RemuxCase{"proRes4444", MovieCodec::proRes4444, MovieContainer::mov, 30, 10}),
    [](const auto& movie) { return movie.param.name; });

TEST_P(EveryMovie, KeepsEveryPacketOfThePictureAndCutsTheSoundToItsLength) {
    const TemporaryFolder folder;
    const RemuxCase& c = GetParam();
    writeMovie({.path = folder / "silent",
                   .sizePx = {64, 48},
                   .codec = c.codec,
                   .container = c.container,
                   .bitsPerSec = 200'000,
                   .frameDuration = 600 / c.framesPerSec},
        c.frames);
    const double sec = *pictureDurationSec(folder / "silent");
    EXPECT_DOUBLE_EQ(sec, c.frames * (600 / c.framesPerSec) / 600.0);
    const auto at = static_cast<std::int64_t>(sec * 48000 / 2);
    writeAac(folder / "a.m4a", click(5 * 48000, 2, at));
    remux({folder / "silent", folder / "a.m4a", folder / "film", c.container});
    const auto silent = tracksOf(folder / "silent"), film = tracksOf(folder / "film");
    ASSERT_EQ(film.size(), 2U);
    EXPECT_EQ(film[0].packets, silent[0].packets);
    EXPECT_EQ(film[0].head, silent[0].head);
    EXPECT_EQ(film[0].tag, silent[0].tag);
    EXPECT_EQ(av_cmp_q(film[0].timeBase, silent[0].timeBase), 0);
    EXPECT_EQ(film[0].colors, silent[0].colors);
    EXPECT_EQ(*pictureDurationSec(folder / "film"), sec);
    const Samples read = readSound(folder / "film", studio);
    EXPECT_EQ(read.size(), static_cast<std::size_t>(std::llround(sec * 48000)) * 2);
    EXPECT_EQ((std::max_element(read.begin(), read.end()) - read.begin()) / 2, at);
    EXPECT_EQ(decodeMovie(folder / "film").container, decodeMovie(folder / "silent").container);
    const std::string bytes = bytesOf(folder / "film");
    EXPECT_LT(bytes.find("moov"), bytes.find("mdat"));
}

TEST(Remux, CopiesThePictureAloneWhenThereIsNoSound) {
    const TemporaryFolder folder;
    writeMovie({.path = folder / "silent.mp4", .sizePx = {64, 48}}, 5);
    remux({folder / "silent.mp4", folder / "silent.mp4", folder / "film.mp4"});
    ASSERT_EQ(tracksOf(folder / "film.mp4").size(), 1U);
    EXPECT_EQ(tracksOf(folder / "film.mp4")[0].packets, tracksOf(folder / "silent.mp4")[0].packets);
}

TEST(Remux, SaysWhatIsMissingAndLeavesNothingBehind) {
    const TemporaryFolder folder;
    writeAac(folder / "a.m4a", noise(3000, 2));
    writeMovie({.path = folder / "silent.mp4", .sizePx = {64, 48}}, 5);
    EXPECT_EQ(pictureDurationSec(folder / "a.m4a"), std::nullopt);
    EXPECT_EQ(failureOf([&] {
        remux({folder / "a.m4a", folder / "a.m4a", folder / "film.mp4"});
    }),
        "There is no video track in \"" + (folder / "a.m4a").string() + "\".");
    EXPECT_THAT(failureOf([&] {
        remux({folder / "silent.mp4", folder / "no.m4a", folder / "film.mp4"});
    }),
        testing::HasSubstr("no.m4a"));
    EXPECT_THROW(remux({folder / "silent.mp4", folder / "a.m4a", folder / "film.mp4"},
                     [] { throw std::runtime_error("stop"); }),
        std::runtime_error);
    EXPECT_FALSE(std::filesystem::exists(folder / "film.mp4"));
    EXPECT_EQ(failureOf([&] {
        remux({folder / "silent.mp4", folder / "a.m4a", "/dev/full"});
    }),
        "Cannot write \"/dev/full\": No space left on device.");
}

}   // namespace
}   // namespace tavix::media::tests
