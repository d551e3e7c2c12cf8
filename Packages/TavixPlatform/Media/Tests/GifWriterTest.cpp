#include "TavixPlatform/Media/GifWriter.h"

#include "TavixPlatform/Media/Tests/DecodedMovie.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <random>

namespace tavix::media::tests {
namespace {

using imaging::Bitmap;
using Paint = std::function<std::array<int, 4>(int x, int y, int frame)>;   // premultiplied BGRA

void paint(Bitmap& bitmap, const Paint& colorAt, int frame) {
    for (int y = 0; y < bitmap.size().height; ++y)
        for (int x = 0; x < bitmap.size().width; ++x) {
            const std::array<int, 4> color = colorAt(x, y, frame);
            std::transform(color.begin(), color.end(), bitmap.view().row(y) + x * 4,
                [](int level) { return static_cast<std::uint8_t>(level); });
        }
}

void writeGif(const GifSettings& settings, int frames, const Paint& colorAt) {
    GifWriter writer(settings);
    Bitmap bitmap(settings.sizePx);
    for (int i = 0; i < frames; ++i) {
        paint(bitmap, colorAt, i);
        writer.append(bitmap.view());
    }
    writer.finish();
}

// FFmpeg's reader composes the canvas as a viewer would; its frames are BGRA.
const std::uint8_t* pixelAt(const AVFrame& frame, int x, int y) {
    return frame.data[0] + y * frame.linesize[0] + x * 4;
}

std::string failureOf(const std::function<void()>& act) {
    try {
        act();
    } catch (const MediaError& error) {
        return error.what();
    }
    return "no failure";
}

std::array<int, 4> smooth(int x, int y, int frame) {
    const auto wave = [&](double a, double b, double c) {
        return static_cast<int>(std::lround(127.5 + 120 * std::sin(a * x + b * y + c * frame)));
    };
    return {wave(0.031, 0.011, 0.3), wave(0.013, 0.037, 0.2), wave(0.021, -0.017, 0.1), 255};
}

// Blocks of a few flat colours, of which one moves.
std::array<int, 4> flat(int x, int y, int frame) {
    if (x >= 10 + frame && x < 40 + frame && y >= 20 && y < 50) return {10, 200, 30, 255};
    return {x / 20 * 30, y / 20 * 25, 90, 255};
}

class GifWriterTest : public testing::Test {
protected:
    TemporaryFolder folder;
    GifSettings settings{folder / "animation.gif", {160, 120}, 18};
};

TEST_F(GifWriterTest, GivesBackFewColorsExactly) {
    writeGif(settings, 12, flat);
    const DecodedMovie gif = decodeMovie(settings.path);
    ASSERT_EQ(gif.frames.size(), 12U);
    for (int i = 0; i < 12; ++i)
        for (int y = 0; y < 120; ++y)
            for (int x = 0; x < 160; ++x) {
                const std::uint8_t* p = pixelAt(*gif.frames[static_cast<std::size_t>(i)], x, y);
                ASSERT_EQ((std::array<int, 4>{p[0], p[1], p[2], p[3]}), flat(x, y, i))
                    << i << ": " << x << ", " << y;
            }
}

// Single pixels are off by the grain, areas are not.
TEST_F(GifWriterTest, KeepsTheColorsOfSmoothPictures) {
    writeGif(settings, 4, smooth);
    const DecodedMovie gif = decodeMovie(settings.path);
    ASSERT_EQ(gif.frames.size(), 4U);
    constexpr int areaPx = 8;
    for (int i = 0; i < 4; ++i) {
        double pixelError = 0, areaError = 0;
        for (int ay = 0; ay < 120; ay += areaPx)
            for (int ax = 0; ax < 160; ax += areaPx)
                for (int c = 0; c < 3; ++c) {
                    double sum = 0;
                    for (int y = ay; y < ay + areaPx; ++y)
                        for (int x = ax; x < ax + areaPx; ++x) {
                            const double difference =
                                pixelAt(*gif.frames[static_cast<std::size_t>(i)], x, y)[c] -
                                smooth(x, y, i)[static_cast<std::size_t>(c)];
                            sum += difference;
                            pixelError += std::abs(difference);
                        }
                    areaError += std::abs(sum) / (areaPx * areaPx);
                }
        EXPECT_LT(pixelError / (160 * 120 * 3), 8) << i;
        EXPECT_LT(areaError / (20 * 15 * 3), 1.5) << i;
    }
}

// The lower half moves and changes every palette; the upper half must not answer to it.
TEST_F(GifWriterTest, DoesNotFlickerWhereNothingMoves) {
    const Paint halfMoving = [](int x, int y, int frame) { return smooth(x, y, y < 60 ? 0 : frame); };
    writeGif(settings, 6, halfMoving);
    const DecodedMovie gif = decodeMovie(settings.path);
    ASSERT_EQ(gif.frames.size(), 6U);
    for (std::size_t i = 1; i < 6; ++i)
        for (int y = 0; y < 60; ++y)
            ASSERT_EQ(std::memcmp(pixelAt(*gif.frames[i], 0, y), pixelAt(*gif.frames[0], 0, y), 160 * 4), 0)
                << y;
}

TEST_F(GifWriterTest, WritesStandingFramesWithoutPixels) {
    writeGif(settings, 1, smooth);
    const auto single = std::filesystem::file_size(settings.path);
    writeGif(settings, 101, [](int x, int y, int) { return smooth(x, y, 0); });
    EXPECT_LT(std::filesystem::file_size(settings.path), single + 100 * 40);
    EXPECT_EQ(decodeMovie(settings.path).frames.size(), 101U);
}

// Noise fills the coder's table again and again, and single colours never do.
TEST_F(GifWriterTest, CodesEveryRunOfPixels) {
    for (const int colors : {1, 2, 3, 4, 5, 17, 64, 128, 200, 255})
        for (const imaging::Size size : {imaging::Size{1, 1}, {3, 1}, {57, 91}, {300, 200}}) {
            SCOPED_TRACE(colors);
            settings.sizePx = size;
            std::mt19937 random(static_cast<unsigned>(colors));
            std::vector<int> levels(static_cast<std::size_t>(size.width * size.height));
            for (int& level : levels) level = static_cast<int>(random() % static_cast<unsigned>(colors));
            const Paint noise = [&](int x, int y, int) -> std::array<int, 4> {
                const int level = levels[static_cast<std::size_t>(y * size.width + x)];
                return {level, 255 - level, 7, 255};
            };
            writeGif(settings, 1, noise);
            const DecodedMovie gif = decodeMovie(settings.path);
            ASSERT_EQ(gif.frames.size(), 1U);
            for (int y = 0; y < size.height; ++y)
                for (int x = 0; x < size.width; ++x)
                    ASSERT_EQ(pixelAt(*gif.frames[0], x, y)[0], noise(x, y, 0)[0]);
        }
}

TEST_F(GifWriterTest, LetsPixelsVanishAndComeBack) {
    const Paint blinking = [](int x, int y, int frame) -> std::array<int, 4> {
        const bool isThere = (x / 16 + y / 16 + frame) % 3 != 0;
        return isThere ? std::array<int, 4>{40, 80, 120, 200} : std::array<int, 4>{30, 30, 30, 100};
    };
    writeGif(settings, 5, blinking);
    const DecodedMovie gif = decodeMovie(settings.path);
    ASSERT_EQ(gif.frames.size(), 5U);
    for (int i = 0; i < 5; ++i)
        for (int y = 0; y < 120; y += 5)
            for (int x = 0; x < 160; x += 5) {
                const std::uint8_t* p = pixelAt(*gif.frames[static_cast<std::size_t>(i)], x, y);
                const bool isThere = blinking(x, y, i)[3] >= 128;
                ASSERT_EQ(p[3], isThere ? 255 : 0) << i << ": " << x << ", " << y;
                ASSERT_EQ(p[2], isThere ? 153 : p[2]);   // 120 of 200, straight
            }
}

TEST_F(GifWriterTest, KeepsTheTotalDuration) {
    for (const int framesPerSec : {1, 7, 12, 18, 24, 30}) {
        settings.timescale = framesPerSec;
        writeGif(settings, 3 * framesPerSec + 1, flat);
        const DecodedMovie gif = decodeMovie(settings.path);
        ASSERT_EQ(gif.timeBase.den, 100);
        EXPECT_EQ(gif.presentationTimes.back(), 300) << framesPerSec;
        for (std::size_t i = 0; i < gif.presentationTimes.size(); ++i)
            EXPECT_NEAR(static_cast<double>(gif.presentationTimes[i]),
                100.0 * static_cast<double>(i) / framesPerSec, 0.501);
    }
}

TEST_F(GifWriterTest, LoopsForEverAndGivesTheSameBytesTwice) {
    writeGif(settings, 3, smooth);
    const std::string bytes = bytesOf(settings.path);
    EXPECT_EQ(bytes.substr(0, 6), "GIF89a");
    const std::size_t loop = bytes.find("NETSCAPE2.0");
    ASSERT_NE(loop, std::string::npos);
    EXPECT_EQ(bytes.substr(loop + 11, 5), std::string("\x03\x01\0\0\0", 5));
    writeGif(settings, 3, smooth);
    EXPECT_EQ(bytesOf(settings.path), bytes);
}

TEST_F(GifWriterTest, SaysWhatIsWrongAndLeavesNoFile) {
    EXPECT_EQ(failureOf([&] { GifWriter(settings).finish(); }), "A GIF needs at least one frame.");
    EXPECT_FALSE(std::filesystem::exists(settings.path));
    EXPECT_EQ(failureOf([&] {
        GifWriter(settings).append(Bitmap({2, 2}).view());
    }),
        "A frame of the GIF has another size than the rest.");
    const GifSettings full{"/dev/full", {160, 120}, 18}, absent{folder / "absent/a.gif", {160, 120}, 18};
    EXPECT_EQ(failureOf([&] { writeGif(full, 5, smooth); }),
        "Cannot write \"/dev/full\": No space left on device.");
    EXPECT_EQ(failureOf([&] { writeGif(absent, 1, smooth); }),
        "Cannot write \"" + absent.path.string() + "\": No such file or directory.");
    const GifSettings wide{settings.path, {65536, 2}, 18};
    EXPECT_THAT(failureOf([&] { GifWriter{wide}; }), testing::StartsWith("A GIF has from 1 to 65535 pixels"));
}

}   // namespace
}   // namespace tavix::media::tests
