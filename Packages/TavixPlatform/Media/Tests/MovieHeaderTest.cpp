// The heads of films against what FFmpeg tells of the same files.
#include "TavixPlatform/Media/MovieHeader.h"

#include "PaintedMovie.h"
#include "SoundFiles.h"
#include "TavixPlatform/Media/MediaProbe.h"
#include "TavixPlatform/Media/Remux.h"
#include "TestClip.h"

#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::media::tests {
namespace {

using Bytes = std::string;

class MovieHeaders : public ::testing::Test {
protected:
    Bytes made(ClipRecipe recipe, const char* name = "made.mp4") {
        recipe.path = folder_ / name;
        makeClip(recipe);
        return readFile(recipe.path);
    }
    std::optional<MovieHeader> headerOf(const Bytes& bytes) {
        std::ofstream(folder_ / "film", std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
        return readMovieHeader(folder_ / "film");
    }
    void expectAsProbed(const std::filesystem::path& film) {
        SCOPED_TRACE(film.filename().string());
        const MediaInfo probed = probeMedia(film);
        const auto header = readMovieHeader(film);
        ASSERT_TRUE(header);
        EXPECT_EQ(header->shownSize, probed.video.front().shownSize);
        EXPECT_EQ(header->durationSec, probed.durationSec);
        EXPECT_EQ(mediaShownSize(film), header->shownSize);
        EXPECT_EQ(mediaDurationSec(film), header->durationSec);
    }

    static Bytes readFile(const std::filesystem::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    TemporaryFolder folder_;
};

// Where the head of the first box of that kind lies: its length, then its name.
std::size_t boxIn(const Bytes& film, std::string_view kind) {
    const std::size_t name = film.find(kind);
    EXPECT_NE(name, Bytes::npos) << kind;
    return name - 4;
}

Bytes bigEndian(std::uint64_t value, int count) {
    Bytes bytes;
    for (int shift = 8 * (count - 1); shift >= 0; shift -= 8)
        bytes += static_cast<char>(value >> shift & 0xff);
    return bytes;
}

std::size_t lengthAt(const Bytes& film, std::size_t at) {
    std::size_t length = 0;
    for (int i = 0; i < 4; ++i) length = length << 8 | static_cast<unsigned char>(film[at++]);
    return length;
}

// The film with some bytes of a box's content changed.
Bytes changed(Bytes film, std::string_view kind, std::size_t at, const Bytes& bytes) {
    return film.replace(boxIn(film, kind) + 8 + at, bytes.size(), bytes);
}

Bytes renamed(Bytes film, std::string_view kind, std::string_view to) {
    return film.replace(boxIn(film, kind) + 4, 4, to);
}

// Both films' packets as tracks of one, in their own lengths.
void putTogether(const std::filesystem::path& picture, const std::filesystem::path& sound,
    const std::filesystem::path& film) {
    const libav::ErrorScope errors;
    const auto check = [&](int code) { libav::check(code, errors, "Cannot make the film"); };
    AVFormatContext* made = nullptr;
    check(avformat_alloc_output_context2(&made, nullptr, nullptr, film.c_str()));
    const libav::FormatContext output(made);
    std::vector<AVFormatContext*> inputs;
    for (const auto& path : {picture, sound}) {
        AVFormatContext* input = nullptr;
        check(avformat_open_input(&input, path.c_str(), nullptr, nullptr));
        check(avformat_find_stream_info(input, nullptr));
        AVStream* track = avformat_new_stream(made, nullptr);
        check(avcodec_parameters_copy(track->codecpar, input->streams[0]->codecpar));
        track->codecpar->codec_tag = 0;
        track->sample_aspect_ratio = input->streams[0]->sample_aspect_ratio;
        track->time_base = input->streams[0]->time_base;
        inputs.push_back(input);
    }
    check(avio_open(&made->pb, film.c_str(), AVIO_FLAG_WRITE));
    check(avformat_write_header(made, nullptr));
    const auto packet = libav::owned<libav::Packet>(av_packet_alloc());
    for (int i = 0; i < 2; ++i) {
        AVFormatContext*& input = inputs[std::size_t(i)];
        while (av_read_frame(input, packet.get()) >= 0) {
            av_packet_rescale_ts(packet.get(), input->streams[0]->time_base, made->streams[i]->time_base);
            packet->stream_index = i;
            packet->pos = -1;
            check(av_interleaved_write_frame(made, packet.get()));
        }
        avformat_close_input(&input);
    }
    check(av_write_trailer(made));
    check(avio_closep(&made->pb));
}

TEST_F(MovieHeaders, TellOfOurOwnFilmsWhatFfmpegTells) {
    const struct {
        const char* name;
        MovieCodec codec;
        MovieContainer container;
        int timescale, frameDuration, frames;
    } cases[] = {
        {"usual.mp4", MovieCodec::h264, MovieContainer::mp4, 600, 20, 7},
        {"usual.mov", MovieCodec::h264, MovieContainer::mov, 600, 20, 7},
        {"ntsc.mp4", MovieCodec::h264, MovieContainer::mp4, 30'000, 1001, 11},
        {"cinema.mov", MovieCodec::h264, MovieContainer::mov, 24'000, 1001, 5},
        {"odd.mp4", MovieCodec::h264, MovieContainer::mp4, 90'001, 3001, 4},
        {"one.mp4", MovieCodec::h264, MovieContainer::mp4, 7, 1, 1},
        {"hevc.mp4", MovieCodec::hevc, MovieContainer::mp4, 600, 25, 6},
        {"hevc.mov", MovieCodec::hevc, MovieContainer::mov, 600, 25, 6},
        {"vp9.mp4", MovieCodec::vp9, MovieContainer::mp4, 600, 20, 4},
        {"av1.mp4", MovieCodec::av1, MovieContainer::mp4, 600, 20, 4},
    };
    for (const auto& c : cases) {
        MovieSettings settings = settingsFor(folder_ / c.name, c.codec);
        settings.container = c.container;
        settings.timescale = c.timescale;
        settings.frameDuration = c.frameDuration;
        writeMovie(settings, c.frames);
        expectAsProbed(folder_ / c.name);
    }
}

TEST_F(MovieHeaders, TellOfOtherFilmsWhatFfmpegTells) {
    const std::vector<std::int64_t> late{300, 320, 340, 400, 900}, early{-40, -20, 0, 20, 40, 60};
    for (const char* ending : {".mp4", ".mov"}) {
        const auto name = [&](const char* stem) { return folder_ / (std::string(stem) + ending); };
        for (const int turnDeg : {0, 90, 180, 270}) {
            makeClip(
                {.path = name("turned"), .size = {96, 64}, .times = evenTimes(3), .clockwiseDeg = turnDeg});
            expectAsProbed(name("turned"));
        }
        // Edit lists: an empty stretch before the first picture; pictures before second 0; reordered ones.
        makeClip({.path = name("late"), .times = late});
        makeClip({.path = name("early"), .times = early});
        makeClip({.path = name("reordered"), .times = evenTimes(30), .bFrames = 4});
        makeClip({.path = name("drop"), .tick = {1001, 30'000}, .times = evenTimes(8, 1)});
        makeClip({.path = name("odd-size"), .pixels = AV_PIX_FMT_YUV444P, .size = {67, 35}, .times = {0}});
        for (const char* stem : {"late", "early", "reordered", "drop", "odd-size"})
            expectAsProbed(name(stem));
    }
}

TEST_F(MovieHeaders, TellTheLengthOfTheLongestTrack) {
    makeClip({.path = folder_ / "picture.mp4", .times = evenTimes(15)});
    for (const int samples : {4800, 24'000, 100'001}) {
        writeSound(folder_ / "sound.m4a", {48'000, 2}, noise(samples, 2), {"aac", "ipod", 128'000});
        putTogether(folder_ / "picture.mp4", folder_ / "sound.m4a", folder_ / "film.mp4");
        expectAsProbed(folder_ / "film.mp4");
        expectAsProbed([&] {
            remux({folder_ / "picture.mp4", folder_ / "sound.m4a", folder_ / "cut.mp4", MovieContainer::mp4});
            return folder_ / "cut.mp4";
        }());
    }
    EXPECT_GT(readMovieHeader(folder_ / "film.mp4")->durationSec, 2);
}

TEST_F(MovieHeaders, RoundAsFfmpegDoes) {
    const Bytes film = made({.path = {}, .times = evenTimes(3)});
    for (const std::uint64_t scale : {1, 3, 7, 600, 90'001, 0x7fffffff})
        for (const std::uint64_t duration : {1, 2, 3, 12'345, 0x7ffffffe}) {
            const Bytes other =
                changed(changed(film, "mvhd", 12, bigEndian(scale, 4)), "mvhd", 16, bigEndian(duration, 4));
            const auto header = headerOf(other);
            if (duration * 2'000'000 >= scale) {   // else it rounds to nothing
                ASSERT_TRUE(header) << duration << " / " << scale;
                EXPECT_EQ(header->durationSec, probeMedia(folder_ / "film").durationSec);
            } else {
                EXPECT_FALSE(header) << duration << " / " << scale;
            }
        }
}

TEST_F(MovieHeaders, LeaveWhatIsOutOfTheOrdinaryToFfmpeg) {
    const ClipRecipe plain{.path = {}, .size = {96, 64}, .times = evenTimes(3)};
    const Bytes film = made(plain);
    ASSERT_TRUE(headerOf(film));
    const Bytes half = bigEndian(0x8000, 4), one = bigEndian(0x10000, 4), minusOne = bigEndian(0xffff0000, 4);
    const Bytes none = bigEndian(0, 4);
    const std::size_t entry = film.find("avc1", film.find("stsd")) + 4;
    const struct {
        const char* what;
        Bytes film;
    } cases[] = {
        {"nothing", {}},
        {"no brand first", renamed(film, "ftyp", "free")},
        {"a box that nobody knows", renamed(film, "free", "what")},
        {"no movie", renamed(film, "moov", "free")},
        {"two movies", film + film.substr(boxIn(film, "moov"))},
        {"fragments", film + bigEndian(8, 4) + "moof"},
        {"an index of fragments", film + bigEndian(8, 4) + "sidx"},
        {"promised fragments", renamed(film, "udta", "mvex")},
        {"a head that comes late", renamed(film, "mvhd", "free")},
        {"a head of version 2", changed(film, "mvhd", 0, "\2")},
        {"no unit of time", changed(film, "mvhd", 12, none)},
        {"a negative unit of time", changed(film, "mvhd", 12, bigEndian(0x80000000, 4))},
        {"no duration", changed(film, "mvhd", 16, none)},
        {"an unknown duration", changed(film, "mvhd", 16, bigEndian(0xffffffff, 4))},
        {"a film that is turned as a whole", changed(film, "mvhd", 36, minusOne)},
        {"a track that is off", changed(film, "tkhd", 3, Bytes(1, '\2'))},
        {"a stretched track", changed(film, "tkhd", 76, bigEndian(128 << 16, 4))},
        {"a width between pixels", changed(film, "tkhd", 76, bigEndian((96 << 16) + 1, 4))},
        {"a mirrored track", changed(film, "tkhd", 40, minusOne)},
        {"a track turned a little", changed(film, "tkhd", 44, half)},
        {"a track in perspective", changed(film, "tkhd", 48, half)},
        {"a track without place", changed(film, "tkhd", 40, none)},
        {"no head of a track", renamed(film, "tkhd", "free")},
        {"a track that refers to another", renamed(film, "edts", "tref")},
        {"a track of text", changed(film, "hdlr", 8, "text")},
        {"a track of sound alone", changed(film, "hdlr", 8, "soun")},
        {"an older codec", Bytes(film).replace(entry - 4, 4, "mp4v")},
        {"an encrypted codec", Bytes(film).replace(entry - 4, 4, "encv")},
        {"two kinds of samples", changed(film, "stsd", 4, bigEndian(2, 4))},
        {"no width", Bytes(film).replace(entry + 24, 2, bigEndian(0, 2))},
        {"pixels that are not square", changed(film, "pasp", 0, bigEndian(4, 4) + bigEndian(3, 4))},
        {"wide pixels", changed(film, "pasp", 0, bigEndian(2, 4))},
        {"pixels that are not told of", renamed(film, "pasp", "free")},
        {"a window in the picture", renamed(film, "btrt", "clap")},
        {"a table that is too long", changed(film, "stts", 4, bigEndian(0x20000000, 4))},
        {"sizes that are too many", changed(film, "stsz", 8, bigEndian(0xffffffff, 4))},
        {"no sizes", renamed(film, "stsz", "free")},
        {"a box longer than the film", Bytes(film).replace(boxIn(film, "mdat"), 4, bigEndian(0x7fffffff, 4))},
        {"a box up to the end", Bytes(film).replace(boxIn(film, "mdat"), 4, none)},
        {"a box shorter than its head", Bytes(film).replace(boxIn(film, "free"), 4, bigEndian(7, 4))},
        {"a track longer than the movie",
            Bytes(film).replace(boxIn(film, "trak"), 4, bigEndian(0xffffff, 4))},
        {"a GIF", "GIF89a" + film.substr(6)},
        {"Matroska", made(plain, "made.mkv")},
        {"pixels that were never square",
            made({.path = {}, .times = {0}, .pixelAspect = {4, 3}}, "wide.mp4")},
    };
    for (const auto& c : cases) EXPECT_FALSE(headerOf(c.film)) << c.what;
    EXPECT_FALSE(readMovieHeader(folder_ / "missing.mp4"));
    EXPECT_FALSE(readMovieHeader(folder_.path()));
}

TEST_F(MovieHeaders, ReadLongTimesAndLongBoxes) {
    const Bytes film = made({.path = {}, .size = {96, 64}, .times = evenTimes(3)});
    // The pictures in a box whose length takes eight bytes, as in films of gigabytes.
    const std::size_t pictures = boxIn(film, "mdat"), movie = boxIn(film, "moov");
    const std::size_t pictureBytes = lengthAt(film, pictures) - 8;
    const Bytes longBox = film.substr(0, pictures) + bigEndian(1, 4) + "mdat" +
                          bigEndian(pictureBytes + 16, 8) + film.substr(pictures + 8);
    EXPECT_EQ(headerOf(longBox), headerOf(film));
    const Bytes tooLong = changed(longBox, "mdat", 0, bigEndian(~std::uint64_t{0}, 8));
    EXPECT_FALSE(headerOf(tooLong));

    const std::size_t head = boxIn(film, "mvhd");
    const Bytes wide = Bytes("\1\0\0\0", 4) + bigEndian(0, 8) + bigEndian(0, 8) + bigEndian(1000, 4) +
                       bigEndian(std::uint64_t{1} << 33, 8);
    Bytes longTimes = film;
    longTimes.replace(head + 8, 20, wide);
    longTimes.replace(head, 4, bigEndian(120, 4));
    longTimes.replace(movie, 4, bigEndian(lengthAt(film, movie) + 12, 4));
    const auto header = headerOf(longTimes);
    ASSERT_TRUE(header);
    EXPECT_EQ(header->durationSec, probeMedia(folder_ / "film").durationSec);
    EXPECT_NEAR(header->durationSec, 8'589'934.592, 1e-6);
}

TEST_F(MovieHeaders, AreNotBelievedWhereTheFileWasCut) {
    const Bytes film = made({.path = {}, .times = evenTimes(10)});
    for (std::size_t length = 0; length < film.size(); length += 13)
        EXPECT_FALSE(headerOf(film.substr(0, length))) << length;
}

// Whatever the bytes are: a size that can be shown and a time that passes, or nothing.
TEST_F(MovieHeaders, OutliveAnyBytes) {
    const Bytes film = made({.path = {}, .times = evenTimes(4)});
    const std::size_t head = film.find("mdat") < film.find("moov") ? film.find("moov") : 0;
    std::mt19937 random(7);
    int told = 0;
    for (int round = 0; round < 2000; ++round) {
        Bytes other = film;
        for (int i = 0; i < 1 + round % 3; ++i)
            other[head + random() % (film.size() - head)] =
                static_cast<char>(random() % 4 == 0 ? 0xff : random());
        const auto header = headerOf(other);
        if (!header) continue;
        ++told;
        EXPECT_GT(header->durationSec, 0);
        EXPECT_GT(header->shownSize.width, 0);
        EXPECT_LE(header->shownSize.width, 8192);
    }
    EXPECT_GT(told, 100);
}

}   // namespace
}   // namespace tavix::media::tests
