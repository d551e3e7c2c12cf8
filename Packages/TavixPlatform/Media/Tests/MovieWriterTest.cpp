#include "TavixPlatform/Media/MovieWriter.h"

#include "TavixPlatform/Media/Tests/DecodedMovie.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <cmath>
#include <cstdlib>
#include <functional>
#include <thread>

namespace tavix::media::tests {
namespace {

using imaging::PlanarFormat;
using imaging::PlanarView;

struct CodecCase {
    MovieCodec codec;
    const char* name;
    unsigned tag;
    double meanErrorLimit;   // of a sample, in parts of full range
};
constexpr CodecCase codecCases[] = {
    {MovieCodec::h264, "h264", MKTAG('a', 'v', 'c', '1'), 0.01},
    {MovieCodec::hevc, "hevc", MKTAG('h', 'v', 'c', '1'), 0.01},
    {MovieCodec::proRes422HQ, "proRes422HQ", MKTAG('a', 'p', 'c', 'h'), 0.01},
    {MovieCodec::proRes4444, "proRes4444", MKTAG('a', 'p', '4', 'h'), 0.01},
};

struct Depth {
    int bytes, lowest, highest;
};
Depth depthOf(PlanarFormat format) {
    return format == PlanarFormat::yuv420p8 ? Depth{1, 16, 235} : Depth{2, 64, 940};
}

imaging::Size planeSize(const PlanarView& view, int plane) {
    const bool isChroma = plane == 1 || plane == 2;
    const int across = isChroma && view.format != PlanarFormat::yuva444p10 ? 2 : 1;
    const int down = isChroma && view.format == PlanarFormat::yuv420p8 ? 2 : 1;
    return {view.size.width / across, view.size.height / down};
}

int planeCount(PlanarFormat format) { return format == PlanarFormat::yuva444p10 ? 4 : 3; }

// A slope that moves from frame to frame and is another one in every plane.
int patternAt(PlanarFormat format, int plane, int x, int y, int frame) {
    const Depth depth = depthOf(format);
    const double wave = std::sin(x * 0.05 + y * 0.03 * (plane + 1) + frame * 0.2);
    return static_cast<int>(std::lround(depth.lowest + (depth.highest - depth.lowest) * (0.5 + 0.45 * wave)));
}

void forEachSample(
    const PlanarView& view, const std::function<void(int plane, int x, int y, std::uint8_t*)>& visit) {
    const int bytes = depthOf(view.format).bytes;
    for (int plane = 0; plane < planeCount(view.format); ++plane) {
        const imaging::Size size = planeSize(view, plane);
        for (int y = 0; y < size.height; ++y)
            for (int x = 0; x < size.width; ++x)
                visit(plane, x, y, view.planes[plane] + y * view.strideBytes[plane] + x * bytes);
    }
}

void put(PlanarFormat format, std::uint8_t* sample, int value) {
    sample[0] = static_cast<std::uint8_t>(value & 0xff);
    if (depthOf(format).bytes == 2) sample[1] = static_cast<std::uint8_t>(value >> 8);
}
int valueOf(PlanarFormat format, const std::uint8_t* sample) {
    return depthOf(format).bytes == 2 ? sample[0] | sample[1] << 8 : sample[0];
}

void paint(const PlanarView& view, int frame) {
    forEachSample(view, [&](int plane, int x, int y, std::uint8_t* sample) {
        put(view.format, sample, patternAt(view.format, plane, x, y, frame));
    });
}

MovieSettings settingsFor(const std::filesystem::path& path, MovieCodec codec) {
    MovieSettings settings;
    settings.path = path;
    settings.sizePx = {176, 144};
    settings.codec = codec;
    settings.bitsPerSec = 4'000'000;
    return settings;
}

void writeMovie(const MovieSettings& settings, int frames) {
    MovieWriter writer(settings);
    for (int i = 0; i < frames; ++i) {
        MovieWriter::Slot& slot = writer.acquire();
        paint(slot.planes, i);
        writer.submit(slot, i * settings.frameDuration);
    }
    writer.finish();
}

std::string failureOf(const std::function<void()>& act) {
    try {
        act();
    } catch (const MediaError& error) {
        return error.what();
    }
    return "no failure";
}

// Mean distance between a decoded plane and the pattern, in parts of full range.
double meanError(const AVFrame& frame, PlanarFormat format, int plane, int frameIndex) {
    const bool isTwelveBit = frame.format == AV_PIX_FMT_YUVA444P12;   // what the decoder makes of 4444
    PlanarView view;
    view.format = format;
    view.size = {frame.width, frame.height};
    for (int i = 0; i < 4; ++i) {
        view.planes[i] = frame.data[i];
        view.strideBytes[i] = frame.linesize[i];
    }
    double sum = 0;
    int count = 0;
    forEachSample(view, [&](int at, int x, int y, std::uint8_t* sample) {
        if (at != plane) return;
        const int value = valueOf(format, sample) >> (isTwelveBit ? 2 : 0);
        sum += std::abs(value - patternAt(format, plane, x, y, frameIndex));
        ++count;
    });
    return sum / count / (depthOf(format).bytes == 2 ? 1023 : 255);
}

class EveryCodec : public testing::TestWithParam<CodecCase> {};
INSTANTIATE_TEST_SUITE_P(MovieWriter, EveryCodec, testing::ValuesIn(codecCases),
    [](const auto& codec) { return codec.param.name; });

TEST_P(EveryCodec, GivesBackFramesTimesAndColorTags) {
    const TemporaryFolder folder;
    const MovieSettings settings = settingsFor(folder / "movie.mp4", GetParam().codec);
    const PlanarFormat format = planarFormatOf(settings.codec);
    constexpr int frames = 70;   // more than one key frame distance
    writeMovie(settings, frames);
    const DecodedMovie movie = decodeMovie(settings.path);
    ASSERT_EQ(movie.frames.size(), std::size_t{frames});
    EXPECT_EQ(movie.timeBase.den, 600);
    EXPECT_EQ(movie.durationUnits, frames * 20);
    EXPECT_EQ(movie.tag, GetParam().tag);
    EXPECT_GE(movie.keyPackets, 2);
    for (int i = 0; i < frames; ++i) {
        const AVFrame& frame = *movie.frames[static_cast<std::size_t>(i)];
        ASSERT_EQ(movie.presentationTimes[static_cast<std::size_t>(i)], i * 20);
        EXPECT_EQ(frame.width, 176);
        EXPECT_EQ(frame.height, 144);
        EXPECT_EQ(frame.color_primaries, AVCOL_PRI_BT709);
        EXPECT_EQ(frame.color_trc, AVCOL_TRC_BT709);
        EXPECT_EQ(frame.colorspace, AVCOL_SPC_BT709);
        EXPECT_EQ(frame.color_range, AVCOL_RANGE_MPEG);
        for (int plane = 0; plane < planeCount(format); ++plane)
            EXPECT_LT(meanError(frame, format, plane, i), GetParam().meanErrorLimit) << "plane " << plane;
    }
}

TEST_P(EveryCodec, WritesTheShortestMovies) {
    const TemporaryFolder folder;
    for (const int effort : {0, 1, 2})
        for (int frames = 1; frames <= 4; ++frames) {
            MovieSettings settings = settingsFor(folder / "movie", GetParam().codec);
            settings.effort = static_cast<EncodingEffort>(effort);
            writeMovie(settings, frames);
            const DecodedMovie movie = decodeMovie(settings.path);
            ASSERT_EQ(movie.presentationTimes.size(), static_cast<std::size_t>(frames));
            EXPECT_EQ(movie.presentationTimes.front(), 0);
            EXPECT_EQ(movie.durationUnits, frames * 20);
        }
}

TEST_P(EveryCodec, GivesTheSameBytesTwice) {
    const TemporaryFolder folder;
    writeMovie(settingsFor(folder / "one", GetParam().codec), 40);
    writeMovie(settingsFor(folder / "two", GetParam().codec), 40);
    const std::string one = bytesOf(folder / "one");
    EXPECT_EQ(one, bytesOf(folder / "two"));
    for (const char* signature : {"x264", "x265", "Lavf", "Lavc"})
        EXPECT_EQ(one.find(signature), std::string::npos) << signature;
}

TEST_P(EveryCodec, PutsTheIndexAndTheColorsInFront) {
    const TemporaryFolder folder;
    writeMovie(settingsFor(folder / "movie", GetParam().codec), 3);
    const std::string bytes = bytesOf(folder / "movie");
    EXPECT_LT(bytes.find("moov"), bytes.find("mdat"));
    EXPECT_LT(bytes.find("colrncl"), bytes.find("mdat"));
}

// What the composer relies on when it redraws only what changed.
TEST_P(EveryCodec, NeverTouchesASlotsPlanes) {
    const TemporaryFolder folder;
    MovieWriter writer(settingsFor(folder / "movie", GetParam().codec));
    const PlanarFormat format = planarFormatOf(GetParam().codec);
    for (int i = 0; i < 12; ++i) {
        MovieWriter::Slot& slot = writer.acquire();
        const int before = static_cast<int>(slot.stamp) - 1;   // the frame it was painted with
        forEachSample(slot.planes, [&](int plane, int x, int y, std::uint8_t* sample) {
            ASSERT_EQ(valueOf(format, sample), before < 0 ? 0 : patternAt(format, plane, x, y, before));
        });
        if (testing::Test::HasFatalFailure()) return;
        EXPECT_EQ(slot.stamp != 0, i >= MovieWriter::slotCount);
        paint(slot.planes, i);
        slot.stamp = static_cast<std::uint64_t>(i) + 1;
        writer.submit(slot, i * 20);
    }
    writer.finish();
}

TEST_P(EveryCodec, WritesTheSmallestFrameOrSaysWhyNot) {
    const TemporaryFolder folder;
    MovieSettings settings = settingsFor(folder / "movie", GetParam().codec);
    settings.sizePx = {2, 2};
    settings.frameDuration = settings.timescale;
    const std::string failure = failureOf([&] { writeMovie(settings, 3); });
    if (failure == "no failure") {
        EXPECT_EQ(decodeMovie(settings.path).frames.size(), 3U);
    } else {
        EXPECT_THAT(failure, testing::StartsWith("Cannot encode 2 by 2 pixels as "));
    }
}

TEST_P(EveryCodec, ReportsAFullDiskAndAFolderThatIsNotThere) {
    const TemporaryFolder folder;
    MovieSettings settings = settingsFor("/dev/full", GetParam().codec);
    settings.bitsPerSec = 0;
    EXPECT_EQ(
        failureOf([&] { writeMovie(settings, 10); }), "Cannot write \"/dev/full\": No space left on device.");
    EXPECT_TRUE(std::filesystem::exists("/dev/full"));
    settings.path = folder / "absent/movie.mp4";
    EXPECT_EQ(failureOf([&] { writeMovie(settings, 1); }),
        "Cannot write \"" + settings.path.string() + "\": No such file or directory.");
}

TEST_P(EveryCodec, LeavesNoFileWhenAbandoned) {
    const TemporaryFolder folder;
    const MovieSettings settings = settingsFor(folder / "movie", GetParam().codec);
    for (const int frames : {0, 1, 5}) {
        {
            MovieWriter writer(settings);
            for (int i = 0; i < frames; ++i) writer.submit(writer.acquire(), i * 20);
            EXPECT_TRUE(std::filesystem::exists(settings.path));
        }
        EXPECT_FALSE(std::filesystem::exists(settings.path)) << frames;
    }
}

TEST(MovieWriter, WritesProResAsQuickTimeWhateverIsAsked) {
    const TemporaryFolder folder;
    const struct {
        MovieCodec codec;
        MovieContainer container;
        const char* brand;
    } cases[] = {
        {MovieCodec::h264, MovieContainer::mp4, "isom"},
        {MovieCodec::h264, MovieContainer::mov, "qt  "},
        {MovieCodec::hevc, MovieContainer::mov, "qt  "},
        {MovieCodec::proRes422HQ, MovieContainer::mp4, "qt  "},
        {MovieCodec::proRes4444, MovieContainer::mp4, "qt  "},
    };
    for (const auto& c : cases) {
        MovieSettings settings = settingsFor(folder / "movie", c.codec);
        settings.container = c.container;
        writeMovie(settings, 2);
        EXPECT_EQ(decodeMovie(settings.path).container, c.brand);
    }
}

TEST(MovieWriter, RefusesWhatCannotBeWrittenInASentence) {
    const TemporaryFolder folder;
    const struct {
        MovieCodec codec;
        imaging::Size size;
        const char* sentence;
    } cases[] = {
        {MovieCodec::h264, {3, 2}, "Cannot encode 3 by 2 pixels as H.264: width and height must be even."},
        {MovieCodec::hevc, {2, 3}, "Cannot encode 2 by 3 pixels as HEVC: width and height must be even."},
        {MovieCodec::proRes422HQ, {5, 3},
            "Cannot encode 5 by 3 pixels as ProRes 422 HQ: the width must be even."},
        {MovieCodec::proRes4444, {0, 3},
            "Cannot encode 0 by 3 pixels as ProRes 4444: both sides must be at least 1 pixel."},
    };
    for (const auto& c : cases) {
        MovieSettings settings = settingsFor(folder / "movie", c.codec);
        settings.sizePx = c.size;
        EXPECT_EQ(failureOf([&] { MovieWriter writer(settings); }), c.sentence);
        EXPECT_FALSE(std::filesystem::exists(settings.path));
    }
    MovieWriter writer(settingsFor(folder / "movie", MovieCodec::h264));
    EXPECT_EQ(failureOf([&] { writer.finish(); }), "A movie needs at least one frame.");
    writer.submit(writer.acquire(), 20);
    EXPECT_EQ(failureOf([&] { writer.submit(writer.acquire(), 20); }),
        "A movie's presentation times must rise, but 20 follows 20.");
}

TEST(MovieWriter, KeepsUnevenTimesExactly) {
    const TemporaryFolder folder;
    MovieSettings settings = settingsFor(folder / "movie", MovieCodec::h264);
    settings.frameDuration = 85;
    writeMovie(settings, 20);
    const DecodedMovie movie = decodeMovie(settings.path);
    ASSERT_EQ(movie.presentationTimes.size(), 20U);
    for (int i = 0; i < 20; ++i) EXPECT_EQ(movie.presentationTimes[static_cast<std::size_t>(i)], i * 85);
    EXPECT_EQ(movie.durationUnits, 20 * 85);
}

TEST(MovieWriter, KeepsNearTheBitRate) {
    const TemporaryFolder folder;
    MovieSettings settings = settingsFor(folder / "movie", MovieCodec::h264);
    settings.sizePx = {320, 240};
    settings.bitsPerSec = 400'000;
    writeMovie(settings, 300);
    const auto bits = static_cast<double>(std::filesystem::file_size(settings.path)) * 8 / 10;
    EXPECT_LT(bits, 600'000);
}

}   // namespace
}   // namespace tavix::media::tests
