#include "TavixPlatform/Media/StillImages.h"

#include "TavixPlatform/Media/Tests/DecodedMovie.h"
#include "TavixPlatform/Media/Tests/StillFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <png.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <random>

namespace tavix::media::tests {
namespace {

using imaging::Bitmap;

struct Pixel {
    int blue, green, red, alpha;
    bool operator==(const Pixel&) const = default;
};
Pixel pixelAt(const Bitmap& bitmap, int x, int y) {
    const std::uint8_t* p = bitmap.view().row(y) + x * 4;
    return {p[0], p[1], p[2], p[3]};
}
Pixel premultiplied(const std::uint8_t* rgba) {
    const auto part = [&](int c) { return static_cast<int>(std::lround(rgba[c] * rgba[3] / 255.0)); };
    return {part(2), part(1), part(0), rgba[3]};
}
int distance(const Pixel& a, const Pixel& b) {
    return std::max({std::abs(a.blue - b.blue), std::abs(a.green - b.green), std::abs(a.red - b.red),
        std::abs(a.alpha - b.alpha)});
}

int largestDistance(const Bitmap& bitmap, const Picture& picture) {
    EXPECT_EQ(bitmap.size(), (imaging::Size{picture.width, picture.height}));
    if (bitmap.size() != imaging::Size{picture.width, picture.height}) return 255;
    int largest = 0;
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
            largest = std::max(largest, distance(pixelAt(bitmap, x, y), premultiplied(picture.at(x, y))));
    return largest;
}

TEST(StillImages, ReadsEveryKindOfPng) {
    const Picture opaque = slope(37, 21, false), translucent = slope(37, 21, true);
    for (const bool isInterlaced : {false, true})
        for (const int depth : {8, 16}) {
            SCOPED_TRACE(depth);
            EXPECT_EQ(
                largestDistance(
                    decodeStillImage(makePng(opaque, {PNG_COLOR_TYPE_RGB, depth, isInterlaced})), opaque),
                0);
            EXPECT_EQ(largestDistance(decodeStillImage(makePng(
                                          translucent, {PNG_COLOR_TYPE_RGB_ALPHA, depth, isInterlaced})),
                          translucent),
                0);
            Picture grey = translucent;
            for (int y = 0; y < grey.height; ++y)
                for (int x = 0; x < grey.width; ++x) std::fill_n(grey.at(x, y), 3, translucent.at(x, y)[0]);
            EXPECT_EQ(largestDistance(decodeStillImage(makePng(
                                          translucent, {PNG_COLOR_TYPE_GRAY_ALPHA, depth, isInterlaced})),
                          grey),
                0);
        }
}

TEST(StillImages, ReadsFewBitsAndPalettesWithAlpha) {
    for (const int depth : {1, 2, 4}) {
        const Bitmap grey = decodeStillImage(makePng(filled(9, 2, 255, 0, 0), {PNG_COLOR_TYPE_GRAY, depth}));
        EXPECT_EQ(pixelAt(grey, 8, 1), (Pixel{255, 255, 255, 255}));
    }
    for (const int depth : {1, 2, 4, 8}) {
        const Bitmap bitmap = decodeStillImage(makePng(Picture(9, 2), {PNG_COLOR_TYPE_PALETTE, depth}));
        EXPECT_EQ(pixelAt(bitmap, 0, 0), (Pixel{0, 0, 255, 255}));
        EXPECT_EQ(pixelAt(bitmap, 7, 1), (Pixel{128, 0, 0, 128}));
    }
}

TEST(StillImages, ReadsEveryKindOfJpeg) {
    const Picture picture = slope(64, 48, false);
    for (const bool isProgressive : {false, true}) {
        EXPECT_LE(
            largestDistance(decodeStillImage(makeJpeg(picture, {.isProgressive = isProgressive})), picture),
            12);
        // Without black, what Adobe writes of the inks is what is left of red, green and blue.
        for (const auto color : {JpegKind::Color::cmyk, JpegKind::Color::ycck})
            EXPECT_LE(
                largestDistance(decodeStillImage(makeJpeg(picture, {color, isProgressive})), picture), 12);
        const Bitmap grey =
            decodeStillImage(makeJpeg(filled(20, 10, 90, 90, 90), {JpegKind::Color::grey, isProgressive}));
        EXPECT_LE(distance(pixelAt(grey, 10, 5), {90, 90, 90, 255}), 1);
    }
}

TEST(StillImages, ReadsWebpWithAlphaAndTheFirstFrameOfAnAnimation) {
    const Picture opaque = slope(64, 48, false), translucent = slope(37, 21, true);
    EXPECT_EQ(largestDistance(decodeStillImage(makeWebp(translucent, {})), translucent), 0);
    EXPECT_LE(largestDistance(decodeStillImage(makeWebp(opaque, {.isLossless = false})), opaque), 24);
    const Bitmap canvas = decodeStillImage(makeAnimatedWebp(translucent));
    ASSERT_EQ(canvas.size(), (imaging::Size{41, 25}));
    EXPECT_EQ(pixelAt(canvas, 1, 1), (Pixel{0, 0, 0, 0}));
    EXPECT_EQ(pixelAt(canvas, 2 + 5, 2 + 7), premultiplied(translucent.at(5, 7)));
    EXPECT_EQ(pixelAt(canvas, 40, 24), (Pixel{0, 0, 0, 0}));
}

TEST(StillImages, ReadsHeicAndAvifOfEveryDepth) {
    const Picture picture = slope(64, 48, false);
    for (const bool isAvif : {false, true})
        for (const int bits : {8, 10}) {
            SCOPED_TRACE(bits);
            const auto file = makeHeif(picture, {isAvif, bits});
            if (!file) continue;
            EXPECT_LE(largestDistance(decodeStillImage(*file), picture), 16);
        }
}

// Where the stored corners stand in the upright picture: the marks of the top row, then of the bottom row.
struct Corners {
    int orientation;
    std::array<int, 4> shown;
};
constexpr Corners cornerTable[] = {
    {1, {0, 1, 2, 3}},
    {2, {1, 0, 3, 2}},
    {3, {3, 2, 1, 0}},
    {4, {2, 3, 0, 1}},
    {5, {0, 2, 1, 3}},
    {6, {2, 0, 3, 1}},
    {7, {3, 1, 2, 0}},
    {8, {1, 3, 0, 2}},
};
constexpr std::uint8_t cornerColors[4][3] = {{220, 40, 40}, {40, 220, 40}, {40, 40, 220}, {220, 220, 220}};

Picture cornered() {
    Picture picture(64, 32);
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 64; ++x) {
            std::copy_n(cornerColors[(y >= 16 ? 2 : 0) + (x >= 32 ? 1 : 0)], 3, picture.at(x, y));
            picture.at(x, y)[3] = 255;
        }
    return picture;
}

void expectCorners(const Bitmap& bitmap, const Corners& expected) {
    const imaging::Size size = bitmap.size();
    EXPECT_EQ(size, (expected.orientation >= 5 ? imaging::Size{32, 64} : imaging::Size{64, 32}));
    for (int i = 0; i < 4; ++i) {
        const auto* color = cornerColors[expected.shown[static_cast<std::size_t>(i)]];
        const Pixel pixel = pixelAt(bitmap, i % 2 ? size.width - 4 : 3, i / 2 ? size.height - 4 : 3);
        EXPECT_LE(distance(pixel, {color[2], color[1], color[0], 255}), 16) << "corner " << i;
    }
}

TEST(StillImages, TurnsPicturesUpright) {
    for (const Corners& corners : cornerTable) {
        SCOPED_TRACE(corners.orientation);
        for (const bool isBigEndian : {false, true}) {
            const Bytes exif = exifWithOrientation(corners.orientation, isBigEndian);
            expectCorners(decodeStillImage(makeJpeg(cornered(), {.exif = exif})), corners);
            expectCorners(decodeStillImage(makeWebp(cornered(), {.exif = exif})), corners);
            const Bytes bare(exif.begin() + 6, exif.end());
            expectCorners(
                decodeStillImage(makePng(cornered(), {PNG_COLOR_TYPE_RGB, 8, false, {}, 0, bare})), corners);
        }
        if (const auto file = makeHeif(cornered(), {.orientation = corners.orientation}))
            expectCorners(decodeStillImage(*file), corners);
    }
}

TEST(StillImages, TakesNonsenseForUpright) {
    for (const int orientation : {0, 9, 4711})
        expectCorners(
            decodeStillImage(makeJpeg(cornered(), {.exif = exifWithOrientation(orientation, true)})),
            cornerTable[0]);
    Bytes cut = exifWithOrientation(6, true);
    cut.resize(30);
    expectCorners(decodeStillImage(makeJpeg(cornered(), {.exif = cut})), cornerTable[0]);
}

// Display P3 to sRGB from the definition: the same white and curve, another set of primaries.
Pixel fromDisplayP3(const std::array<int, 3>& p3) {
    static constexpr double matrix[3][3] = {{1.2249401763, -0.2249401763, 0},
        {-0.0420569547, 1.0420569547, 0}, {-0.0196375546, -0.0786360456, 1.0982736001}};
    const auto light = [](double v) { return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
    const auto level = [](double v) {
        v = std::clamp(v, 0.0, 1.0);
        return static_cast<int>(
            std::lround(255 * (v <= 0.0031308 ? v * 12.92 : 1.055 * std::pow(v, 1 / 2.4) - 0.055)));
    };
    std::array<int, 3> srgb{};
    for (std::size_t i = 0; i < 3; ++i) {
        double sum = 0;
        for (std::size_t j = 0; j < 3; ++j) sum += matrix[i][j] * light(p3[j] / 255.0);
        srgb[i] = level(sum);
    }
    return {srgb[2], srgb[1], srgb[0], 255};
}

TEST(StillImages, BringsColorsOfAProfileToSrgb) {
    const std::array<int, 3> colors[] = {
        {200, 100, 50}, {128, 128, 128}, {30, 180, 90}, {255, 255, 255}, {0, 0, 0}, {90, 90, 200}};
    const Bytes profile = displayP3Profile();
    for (const auto& c : colors) {
        const auto level = [&](std::size_t i) { return static_cast<std::uint8_t>(c[i]); };
        const Picture picture = filled(16, 16, level(0), level(1), level(2));
        const Pixel expected = fromDisplayP3(c);
        for (const int depth : {8, 16})
            EXPECT_LE(distance(pixelAt(decodeStillImage(
                                           makePng(picture, {PNG_COLOR_TYPE_RGB, depth, false, profile})),
                                   8, 8),
                          expected),
                1);
        EXPECT_LE(
            distance(pixelAt(decodeStillImage(makeWebp(picture, {.profile = profile})), 8, 8), expected), 1);
        EXPECT_LE(
            distance(pixelAt(decodeStillImage(makeJpeg(picture, {.profile = profile})), 8, 8), expected), 4);
        const auto file = makeHeif(picture, {.profile = profile});
        if (!file) continue;
        EXPECT_LE(distance(pixelAt(decodeStillImage(*file), 8, 8), expected), 8);
    }
}

TEST(StillImages, LeavesAlphaAloneWhenItConvertsColors) {
    const Picture picture = filled(4, 4, 255, 255, 255, 77);
    for (const int depth : {8, 16})
        EXPECT_EQ(pixelAt(decodeStillImage(
                              makePng(picture, {PNG_COLOR_TYPE_RGB_ALPHA, depth, false, displayP3Profile()})),
                      1, 1),
            (Pixel{77, 77, 77, 77}));
}

TEST(StillImages, LeavesSrgbExactlyAsItIs) {
    const Picture picture = slope(64, 48, true);
    EXPECT_EQ(
        largestDistance(
            decodeStillImage(makePng(picture, {PNG_COLOR_TYPE_RGB_ALPHA, 8, false, srgbProfile()})), picture),
        0);
    EXPECT_EQ(
        largestDistance(
            decodeStillImage(makePng(picture, {PNG_COLOR_TYPE_RGB_ALPHA, 8, false, {}, 0.45455})), picture),
        0);
    const Bytes nonsense(200, std::byte{7});
    EXPECT_EQ(largestDistance(decodeStillImage(makeWebp(picture, {.profile = nonsense})), picture), 0);
}

TEST(StillImages, HonorsGreyProfilesAndStatedCurves) {
    // Light 0.5 ^ 1.0 encodes to 188 in sRGB.
    const Picture half = filled(4, 4, 128, 128, 128);
    EXPECT_LE(
        distance(
            pixelAt(decodeStillImage(makePng(half, {PNG_COLOR_TYPE_GRAY, 8, false, greyProfile(1.0)})), 1, 1),
            {188, 188, 188, 255}),
        1);
    EXPECT_LE(
        distance(pixelAt(decodeStillImage(makePng(half, {PNG_COLOR_TYPE_RGB, 8, false, {}, 1.0})), 1, 1),
            {188, 188, 188, 255}),
        1);
}

TEST(StillImages, WritesPngThatComesBackExactly) {
    const TemporaryFolder folder;
    const std::filesystem::path path = folder / "still.dat";   // the name says nothing
    for (const bool withAlpha : {false, true}) {
        const Bitmap bitmap =
            decodeStillImage(makePng(slope(61, 33, withAlpha), {PNG_COLOR_TYPE_RGB_ALPHA, 8}));
        writePng(path, bitmap.view());
        const Bitmap again = loadStillImage(path);
        for (int y = 0; y < 33; ++y)
            for (int x = 0; x < 61; ++x)
                ASSERT_EQ(pixelAt(again, x, y), pixelAt(bitmap, x, y)) << x << ", " << y;
        const std::string bytes = bytesOf(path);
        EXPECT_EQ(bytes[25], withAlpha ? PNG_COLOR_TYPE_RGB_ALPHA : PNG_COLOR_TYPE_RGB);
        EXPECT_NE(bytes.find("sRGB"), std::string::npos);
        writePng(folder / "again", bitmap.view());
        EXPECT_EQ(bytesOf(folder / "again"), bytes);
    }
}

// Noise cannot be packed: the larger ones need several chunks, and a row of one pixel has none to its left.
TEST(StillImages, WritesPngOfEverySize) {
    const TemporaryFolder folder;
    std::mt19937 random(7);
    for (const imaging::Size size : {imaging::Size{1, 1}, {1, 70}, {2, 3}, {5000, 1}, {701, 600}}) {
        for (const bool isOpaque : {true, false}) {
            SCOPED_TRACE(testing::Message() << size.width << " x " << size.height << ", " << isOpaque);
            Bitmap bitmap(size);
            for (int y = 0; y < size.height; ++y)
                for (int x = 0; x < size.width; ++x) {
                    const bool isInk = isOpaque || random() % 2 == 0;
                    const auto pixel = isInk ? static_cast<std::uint32_t>(random()) | 0xFF000000u : 0u;
                    std::memcpy(bitmap.view().row(y) + 4 * x, &pixel, sizeof pixel);
                }
            writePng(folder / "noise.png", bitmap.view());
            const Bitmap again = loadStillImage(folder / "noise.png");
            ASSERT_EQ(again.size(), size);
            for (int y = 0; y < size.height; ++y)
                ASSERT_EQ(
                    std::memcmp(again.view().row(y), bitmap.view().row(y), 4u * unsigned(size.width)), 0)
                    << y;
        }
    }
}

}   // namespace
}   // namespace tavix::media::tests
