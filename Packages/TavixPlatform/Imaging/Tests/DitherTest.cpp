// Gradients that are finer than bytes: seen from afar they are smooth, and what is flat stays flat.
#include "TavixPlatform/Imaging/FrameSurface.h"
#include "TavixPlatform/Imaging/Tests/Pictures.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>

#include <gtest/gtest.h>

namespace tavix::imaging::tests {
namespace {

constexpr Size size{512, 64};
constexpr PixelRegion all{0, 0, size.width, size.height};

// Means of squares of eight pixels, row by row from the bottom.
std::vector<double> meansOf(const std::function<double(int x, int y)>& value) {
    std::vector<double> means;
    for (int y = 0; y < size.height; y += 8)
        for (int x = 0; x < size.width; x += 8) {
            double sum = 0;
            for (int i = 0; i < 64; ++i) sum += value(x + i % 8, y + i / 8);
            means.push_back(sum / 64);
        }
    return means;
}

double greyAt(double x) { return 40 + 9 * std::clamp(x / size.width, 0.0, 1.0); }   // of 255
Color grey(double ofByte) { return {ofByte / 255, ofByte / 255, ofByte / 255, 1}; }
Image slowRamp() {
    return Image::linearGradient({0, 0}, {double(size.width), 0}, {{0, grey(40)}, {1, grey(49)}});
}

TEST(Dither, LeavesNoBandsInASlowGradient) {
    Evaluator evaluator;
    const Image ramps[] = {slowRamp(), slowRamp().withVignette(0.001, 3, {-4000, -4000, 8000, 8000}),
        slowRamp().cropped({-40, -40, 600, 200}).gaussianBlurred(0.5)};
    for (const Image& ramp : ramps) {
        const Words words = pixelsOf(evaluator, ramp, all);
        const auto at = [&](int x, int y) { return channel(words[std::size_t(y * size.width + x)], 1); };
        const std::vector<double> means = meansOf([&](int x, int y) { return double(at(x, y)); });
        for (std::size_t i = 0; i < means.size(); ++i)
            ASSERT_NEAR(means[i], greyAt(double(i % 64) * 8 + 4), 0.08) << "square " << i;
        for (int x = 0; x < size.width; ++x) ASSERT_NEAR(at(x, 5), greyAt(x + 0.5), 1) << "column " << x;
    }
}

TEST(Dither, LeavesFlatColoursExact) {
    Evaluator evaluator;
    const Color odd{0.3, 0.7, 0.1234, 0.6};
    const std::uint32_t pixel = pixelsOf(evaluator, Image::solid(odd), {0, 0, 1, 1}).front();
    const Image flats[] = {
        Image::linearGradient({0, 0}, {9, 9}, {{0.5, odd}}),
        Image::linearGradient({0, 0}, {9, 9}, {{0, odd}, {1, odd}}),
        Image::linearGradient({-80, 0}, {-1, 0}, {{0, Color::white()}, {1, odd}}),   // past its end
        Image::linearGradient({513, 0}, {600, 0}, {{0, odd}, {1, Color::black()}}),
        Image::bitmap(filledBitmap({40, 40}, pixel)).placedInto({-70, -70, 700, 300}),
        Image::bitmap(filledBitmap({700, 300}, pixel)).clampedToExtent().gaussianBlurred(9),
    };
    for (std::size_t i = 0; i < std::size(flats); ++i) {
        const Words words = pixelsOf(evaluator, flats[i], all);
        EXPECT_EQ(std::count(words.begin(), words.end(), pixel), std::ssize(words)) << "picture " << i;
    }
}

TEST(Dither, MixesTheStraightColoursOfStops) {
    Evaluator evaluator;
    const Image gradient =
        Image::linearGradient({0, 0}, {0, 64}, {{0, {1, 0, 0, 1}}, {0.5, {0, 0, 1, 1}}, {1, {0, 0, 1, 0}}});
    const Words words = pixelsOf(evaluator, gradient, all);
    const auto near = [&](int y, Color expected) {
        const std::uint32_t p = words[std::size_t(y * size.width + 7)];
        const double channels[] = {
            expected.b * expected.a, expected.g * expected.a, expected.r * expected.a, expected.a};
        for (int c = 0; c < 4; ++c) EXPECT_NEAR(channel(p, c), channels[c] * 255, 1.01) << y;
    };
    near(0, {1 - 0.5 / 32, 0, 0.5 / 32, 1});
    near(15, {1 - 15.5 / 32, 0, 15.5 / 32, 1});
    near(32, {0, 0, 1, 1 - 0.5 / 32});
    near(48, {0, 0, 1, 1 - 16.5 / 32});
}

struct Planes {
    std::vector<std::uint8_t> bytes =
        std::vector<std::uint8_t>(std::size_t(size.width * size.height * 3 / 2));
    std::uint64_t stamp = 0;
    PlanarView view() {
        std::uint8_t* first = bytes.data();
        const int pixels = size.width * size.height;
        return {PlanarFormat::yuv420p8, size, {first, first + pixels, first + pixels * 5 / 4, nullptr},
            {size.width, size.width / 2, size.width / 2, 0}};
    }
    int luma(int x, int y) const { return bytes[std::size_t((size.height - 1 - y) * size.width + x)]; }
};

Planes planesOf(const Image& image) {
    Evaluator evaluator;
    FrameSurface surface(evaluator, size);
    Planes planes;
    surface.update(image, {planes.view(), planes.stamp});
    return planes;
}

TEST(Dither, LeavesNoBandsInThePlanesOfAnEncoder) {
    const Planes planes = planesOf(slowRamp());
    const std::vector<double> means = meansOf([&](int x, int y) { return double(planes.luma(x, y)); });
    for (std::size_t i = 0; i < means.size(); ++i)
        ASSERT_NEAR(means[i], 16 + greyAt(double(i % 64) * 8 + 4) * 219 / 255, 0.22) << "square " << i;
}

// A colour between two steps of luma is one of them, everywhere; also beside letters, whose squares are no
// ramps.
TEST(Dither, LeavesFlatPlanesExact) {
    for (const std::uint32_t pixel : {0xFF2A3B4Cu, 0xFFFFFFFFu, 0xFF000000u, 0xFF7F7F7Fu, 0xFFE0A010u}) {
        SCOPED_TRACE(pixel);
        const Image flat = Image::bitmap(filledBitmap(size, pixel));
        const Planes planes = planesOf(flat);
        const int luma = planes.luma(0, 0);
        const double exact =
            0.2126 * channel(pixel, 2) + 0.7152 * channel(pixel, 1) + 0.0722 * channel(pixel, 0);
        EXPECT_NEAR(luma, 16 + exact * 219 / 255, 0.52);
        EXPECT_EQ(std::count(planes.bytes.begin(), planes.bytes.begin() + size.width * size.height, luma),
            size.width * size.height);
        const std::uint32_t ink = pixel ^ 0x00808080u;
        const Planes written = planesOf(Image::bitmap(filledBitmap({3, 21}, ink), {101, 17}).over(flat));
        for (int y = 0; y < size.height; ++y)
            for (int x = 0; x < size.width; ++x)
                if (x < 101 || x >= 104 || y < 17 || y >= 38) {
                    ASSERT_EQ(written.luma(x, y), luma) << x << ' ' << y;
                }
    }
}

// Squares belong to the canvas, so it does not matter in which runs of tiles they are written, or how wide
// the picture is.
TEST(Dither, OfPlanesDoesNotDependOnWhatWasDrawnBefore) {
    Evaluator evaluator;
    FrameSurface surface(evaluator, size);
    Planes kept;
    for (int i = 0; i < 30; ++i) {
        const Image dot =
            Image::bitmap(filledBitmap({11, 9}, 0xFFFFFFFFu), {double(i * 37 % 500), double(i * 7 % 50)});
        const Image picture = dot.over(slowRamp());
        surface.update(picture, {kept.view(), kept.stamp});
        ASSERT_EQ(kept.bytes, planesOf(picture).bytes) << i;
    }
}

TEST(Dither, ReadsNothingPastARaggedEdge) {
    for (const int width : {2, 6, 10, 130, 134}) {
        Evaluator evaluator;
        const Size small{width, 14};
        FrameSurface surface(evaluator, small);
        std::vector<std::uint8_t> bytes(std::size_t(width * 14 * 3 / 2) + 8, 7);
        std::uint64_t stamp = 0;
        surface.update(slowRamp(),
            {{PlanarFormat::yuv420p8, small,
                 {bytes.data(), bytes.data() + width * 14, bytes.data() + width * 14 * 5 / 4, nullptr},
                 {width, width / 2, width / 2, 0}},
                stamp});
        EXPECT_EQ(std::count(bytes.end() - 8, bytes.end(), 7), 8);
        for (int i = 0; i < width * 14; ++i)
            EXPECT_NEAR(bytes[std::size_t(i)], 51.5, 2.5) << width << ' ' << i;
    }
}

}   // namespace
}   // namespace tavix::imaging::tests
