#include "TavixPlatform/Media/MovieWriter.h"

#include "TavixPlatform/Media/MovieJoin.h"
#include "TavixPlatform/Media/Tests/PaintedMovie.h"
#include "TavixPlatform/Media/VideoFile.h"
#include "TestClip.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <cmath>
#include <thread>

namespace tavix::media::tests {
namespace {

using imaging::PlanarFormat;

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

// A disc that wanders, opaque in the middle and clear around it, in orange; what is clear is green, which
// must not be seen at the rim.
TEST(MovieWriter, KeepsAlphaInWebmOfOneFileAndOfPieces) {
    constexpr int side = 96, count = 12;
    const TemporaryFolder folder;
    const auto distance = [](int x, int y, int frame) { return std::hypot(x - 30.0 - 2 * frame, y - 48.0); };
    const auto alphaAt = [&](int x, int y, int frame) {
        return std::clamp(1 - (distance(x, y, frame) - 20) / 8, 0.0, 1.0);
    };
    const auto write = [&](const std::filesystem::path& path, MovieContainer container, int first,
                           int frames) {
        MovieSettings settings = settingsFor(path, MovieCodec::vp9Alpha);
        settings.container = container;
        settings.sizePx = {side, side};
        settings.bitsPerSec = 0;
        MovieWriter writer(settings);
        for (int i = 0; i < frames; ++i) {
            MovieWriter::Slot& slot = writer.acquire();
            forEachSample(slot.planes, [&](int plane, int x, int y, std::uint8_t* sample) {
                const bool isSeen = alphaAt(x, y, first + i) > 0;
                // Limited BT.709 in ten bits, of (1, 0.5, 0) and of (0, 1, 0).
                const int orange[] = {562, 236, 846}, green[] = {691, 167, 105};
                put(slot.planes.format, sample,
                    plane == 3 ? int(std::lround(1023 * alphaAt(x, y, first + i)))
                               : (isSeen ? orange : green)[plane]);
            });
            writer.submit(slot, i * settings.frameDuration);
        }
        writer.finish();
        return path;
    };
    write(folder / "one.webm", MovieContainer::webm, 0, count);
    joinPieces(
        {{write(folder / "a", MovieContainer::piece, 0, 5), write(folder / "b", MovieContainer::piece, 5, 7)},
            std::nullopt, folder / "joined.webm", MovieContainer::webm});
    for (const char* name : {"one.webm", "joined.webm"}) {
        SCOPED_TRACE(name);
        const auto frames = VideoFile(folder / name).framesFrom(0, 10, Pace::onDemand);
        int shown = 0;
        for (auto frame = frames->next(); frame; frame = frames->next(), ++shown)
            for (int y = 2; y < side; y += 5)
                for (int x = 2; x < side; x += 5) {
                    const Rgba pixel = pixelAt(frame->image(), x, y);
                    const double alpha = 255 * alphaAt(x, y, shown);
                    ASSERT_NEAR(pixel.a, alpha, 24) << x << ", " << y << " of " << shown;
                    // Premultiplied, so what is clear has no colour.
                    ASSERT_NEAR(pixel.r, alpha, 32) << x << ", " << y << " of " << shown;
                    ASSERT_NEAR(pixel.g, alpha / 2, 32) << x << ", " << y << " of " << shown;
                    ASSERT_NEAR(pixel.b, 0, 32);
                }
        EXPECT_EQ(shown, count);
    }
    MovieSettings odd = settingsFor(folder / "odd.webm", MovieCodec::vp9Alpha);
    odd.sizePx = {16, 15};
    EXPECT_EQ(failureOf([&] { MovieWriter writer(odd); }),
        "Cannot encode 16 by 15 pixels as VP9 with alpha: width and height must be even.");
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
