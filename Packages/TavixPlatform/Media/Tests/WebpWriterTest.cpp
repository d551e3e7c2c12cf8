#include "TavixPlatform/Media/WebpWriter.h"

#include "TestSupport/TemporaryFolder.h"

#include <webp/demux.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavix::media::tests {
namespace {

using imaging::Bitmap;
using testsupport::TemporaryFolder;

struct Animation {
    int width = 0, height = 0, loops = -1;
    std::vector<int> endsMillisec;
    std::vector<std::vector<std::uint8_t>> frames;   // straight BGRA
};

std::string bytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// By the library's own player of animations.
Animation played(const std::filesystem::path& path) {
    Animation animation;
    const std::string bytes = bytesOf(path);
    const WebPData data{reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()};
    WebPAnimDecoderOptions options;
    WebPAnimDecoderOptionsInit(&options);
    options.color_mode = MODE_BGRA;
    WebPAnimDecoder* decoder = WebPAnimDecoderNew(&data, &options);
    if (!decoder) {
        ADD_FAILURE() << "no animation";
        return animation;
    }
    WebPAnimInfo info;
    WebPAnimDecoderGetInfo(decoder, &info);
    animation.width = int(info.canvas_width);
    animation.height = int(info.canvas_height);
    animation.loops = int(info.loop_count);
    while (WebPAnimDecoderHasMoreFrames(decoder)) {
        std::uint8_t* pixels = nullptr;
        int endMillisec = 0;
        if (!WebPAnimDecoderGetNext(decoder, &pixels, &endMillisec)) break;
        animation.endsMillisec.push_back(endMillisec);
        animation.frames.emplace_back(
            pixels, pixels + std::size_t(info.canvas_width) * info.canvas_height * 4);
    }
    WebPAnimDecoderDelete(decoder);
    return animation;
}

// A disc that wanders over a field of two halves, opaque below and half clear above.
std::array<int, 4> colorAt(int x, int y, int frame) {
    if (std::hypot(x - 20 - 6 * frame, y - 30) < 12) return {40, 80, 220, 255};
    return y < 32 ? std::array{120, 20, 60, 255} : std::array{0, 90, 45, 128};
}

Bitmap painted(imaging::Size size, int frame) {
    Bitmap bitmap(size);
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x) {
            const std::array<int, 4> color = colorAt(x, y, frame);
            std::transform(color.begin(), color.end(), bitmap.view().row(y) + x * 4,
                [](int level) { return std::uint8_t(level); });
        }
    return bitmap;
}

void write(const WebpSettings& settings, int frames) {
    WebpWriter writer(settings);
    for (int i = 0; i < frames; ++i) writer.append(painted(settings.sizePx, i).view());
    writer.finish();
}

double meanError(const Animation& animation, imaging::Size size) {
    double error = 0;
    for (std::size_t i = 0; i < animation.frames.size(); ++i)
        for (int y = 0; y < size.height; ++y)
            for (int x = 0; x < size.width; ++x) {
                const std::array<int, 4> color = colorAt(x, y, int(i));
                const std::uint8_t* pixel = &animation.frames[i][std::size_t(y * size.width + x) * 4];
                EXPECT_NEAR(pixel[3], color[3], 1);
                for (std::size_t c = 0; c < 3; ++c)
                    error += std::abs(pixel[c] - std::min(255.0, color[c] * 255.0 / color[3]));
            }
    return error / (3.0 * size.width * size.height * double(animation.frames.size()));
}

TEST(WebpWriter, ShowsItsFramesAtTheirTimesWithTheirAlpha) {
    const TemporaryFolder folder;
    constexpr imaging::Size size{96, 64};
    const std::filesystem::path path = folder.path() / "a.webp";
    write({.path = path, .sizePx = size, .timescale = 30, .frameDuration = 1, .quality = 95}, 9);
    const Animation animation = played(path);
    EXPECT_EQ(animation.width, size.width);
    EXPECT_EQ(animation.height, size.height);
    EXPECT_EQ(animation.loops, 0);   // for ever
    EXPECT_THAT(animation.endsMillisec, testing::ElementsAre(33, 67, 100, 133, 167, 200, 233, 267, 300));
    EXPECT_LT(meanError(animation, size), 4);
}

TEST(WebpWriter, TradesQualityForBytes) {
    const TemporaryFolder folder;
    constexpr imaging::Size size{96, 64};
    std::size_t bytes = 0;
    double error = 1e9;
    for (const int quality : {5, 50, 95}) {
        const std::filesystem::path path = folder.path() / (std::to_string(quality) + ".webp");
        write({.path = path, .sizePx = size, .quality = quality}, 6);
        const double now = meanError(played(path), size);
        EXPECT_GT(bytesOf(path).size(), bytes) << quality;
        EXPECT_LT(now, error) << quality;
        bytes = bytesOf(path).size();
        error = now;
    }
}

TEST(WebpWriter, GivesTheSameBytesForTheSameFrames) {
    const TemporaryFolder folder;
    for (const char* name : {"a", "b"}) write({.path = folder.path() / name, .sizePx = {96, 64}}, 4);
    EXPECT_EQ(bytesOf(folder.path() / "a"), bytesOf(folder.path() / "b"));
}

std::string failureOf(const std::function<void()>& act) {
    try {
        act();
    } catch (const MediaError& error) {
        return error.what();
    }
    return "no failure";
}

TEST(WebpWriter, RefusesWhatItCannotWriteAndLeavesNoFile) {
    const TemporaryFolder folder;
    const WebpSettings settings{.path = folder.path() / "a.webp", .sizePx = {8, 8}};
    EXPECT_EQ(failureOf([&] { WebpWriter(settings).finish(); }), "A WebP needs at least one frame.");
    EXPECT_EQ(failureOf([&] {
        WebpWriter(settings).append(Bitmap({2, 2}).view());
    }),
        "A frame of a WebP must have the size of the WebP.");
    EXPECT_THAT(failureOf([&] {
        WebpWriter({.path = settings.path, .sizePx = {20000, 8}});
    }),
        testing::StartsWith("A WebP has from 1 to 16383 pixels"));
    EXPECT_THAT(failureOf([&] {
        WebpWriter({.path = folder.path() / "no" / "a.webp", .sizePx = {8, 8}});
    }),
        testing::HasSubstr("No such file or directory"));
    EXPECT_FALSE(std::filesystem::exists(settings.path));
}

}   // namespace
}   // namespace tavix::media::tests
