#include "TavixRender/DeviceScene/ToneCurve.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace tavix::DeviceStudio {

namespace {

// Of a value of 0 or above that a half can hold.
std::uint16_t half(double value) {
    if (value == 0) return 0;
    int exponent = 0;
    const double fraction = std::frexp(value, &exponent);   // 0.5 to 1
    return std::uint16_t(((exponent + 14) << 10) + int(std::lround((fraction * 2 - 1) * 1024)));
}

scene3d::LinearFrame frameOf(
    imaging::Size size, std::uint16_t r, std::uint16_t g, std::uint16_t b, std::uint16_t a) {
    scene3d::LinearFrame frame{{0, 0, size.width, size.height}, scene3d::HalfPicture(size, nullptr)};
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x) {
            std::uint16_t* pixel = frame.pixels.row(y) + 4 * x;
            pixel[0] = r, pixel[1] = g, pixel[2] = b, pixel[3] = a;
        }
    return frame;
}

double encodedByte(double linear) {
    return 255 * (linear <= 0.0031308 ? linear * 12.92 : 1.055 * std::pow(linear, 1 / 2.4) - 0.055);
}

TEST(ToneCurve, RisesFromBlackToWhite) {
    EXPECT_EQ(acesToneCurve(0), 0);
    EXPECT_NEAR(acesToneCurve(0.18), 0.267, 5e-4);   // middle grey and white, by the formula on paper
    EXPECT_NEAR(acesToneCurve(1), 0.8038, 5e-5);
    EXPECT_EQ(acesToneCurve(std::numeric_limits<double>::infinity()), 1);
    EXPECT_EQ(acesToneCurve(std::numeric_limits<double>::quiet_NaN()), 0);
    EXPECT_EQ(acesToneCurve(-3), 0);
    double before = 0;
    for (double light = 1e-4; light < 1e4; light *= 1.01) {
        const double now = acesToneCurve(light);
        EXPECT_GE(now, before);
        EXPECT_LE(now, 1);
        before = now;
    }
}

// The mean over a block of the dither is the exact value, and no pixel is further from it than a step.
TEST(ToneCurve, BringsLightToTheScreenAsItIsOnAverage) {
    for (double light = 1.0 / 512; light < 40; light *= 2) {
        const scene3d::EncodedFrame shown =
            applyACES(frameOf({16, 16}, half(light), half(light / 2), 0, half(1)));
        const double red = encodedByte(acesToneCurve(light)), green = encodedByte(acesToneCurve(light / 2));
        double sum = 0;
        for (int y = 0; y < 16; ++y)
            for (int x = 0; x < 16; ++x) {
                const std::uint8_t* bgra = shown.pixels.view().row(y) + 4 * x;
                EXPECT_EQ(bgra[3], 255);
                EXPECT_LE(bgra[0], 0 + 1);
                EXPECT_NEAR(bgra[1], green, 1);
                EXPECT_NEAR(bgra[2], red, 1);
                sum += bgra[2];
            }
        EXPECT_NEAR(sum / 256, red, 0.05) << light;
    }
}

TEST(ToneCurve, TreatsAnEdgeLikeTheSurfaceItBelongsTo) {
    for (const double alpha : {0.25, 0.5, 0.75}) {
        const double light = 0.5;
        const scene3d::EncodedFrame shown =
            applyACES(frameOf({8, 8}, half(light * alpha), 0, half(light * alpha), half(alpha)));
        const double straight = encodedByte(acesToneCurve(light));
        for (int y = 0; y < 8; ++y)
            for (int x = 0; x < 8; ++x) {
                const std::uint8_t* bgra = shown.pixels.view().row(y) + 4 * x;
                EXPECT_NEAR(bgra[3], 255 * alpha, 0.6);
                EXPECT_NEAR(bgra[2], straight * alpha, 1.1);
                EXPECT_LE(std::max({bgra[0], bgra[1], bgra[2]}), bgra[3]);   // premultiplied
            }
    }
}

TEST(ToneCurve, TakesNumbersThatAreNoLightForNone) {
    constexpr std::uint16_t nan = 0x7E00, infinity = 0x7C00, minusOne = 0xBC00;
    const auto pixel = [](const scene3d::LinearFrame& frame) {
        const scene3d::EncodedFrame shown = applyACES(frame);
        const std::uint8_t* p = shown.pixels.view().row(0);
        return std::array<int, 4>{p[2], p[1], p[0], p[3]};
    };
    const auto odd = pixel(frameOf({1, 1}, infinity, nan, minusOne, half(1)));
    EXPECT_EQ(odd[0], 255);
    EXPECT_LE(std::max(odd[1], odd[2]), 1);
    for (const std::uint16_t alpha : {std::uint16_t(0), nan, minusOne})
        EXPECT_EQ(pixel(frameOf({1, 1}, half(1), half(1), half(1), alpha)), (std::array<int, 4>{0, 0, 0, 0}));
    EXPECT_TRUE(applyACES({}).pixels.isEmpty());
}

}   // namespace

}   // namespace tavix::DeviceStudio
