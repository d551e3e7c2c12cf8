#include "TavixRender/DeviceScene/ToneCurve.h"

#include "TavixPlatform/Imaging/Tile.h"
#include "TavixPlatform/Scene3D/TransferCurve.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

namespace tavix::DeviceStudio {

namespace {

// IEEE 754 binary16 of a value of at least 0, as exact as a float holds it.
float floatOf(std::uint16_t half) {
    const std::uint32_t exponent = half >> 10 & 31, fraction = half & 1023;
    if (exponent == 0) return float(fraction) * 0x1p-24f;
    return std::bit_cast<float>((exponent + 112) << 23 | fraction << 13);
}

// The nearest half, ties away from zero; past the largest one, that one.
std::uint16_t halfOf(float value) {
    if (!(value > 0)) return 0;
    // NOLINTNEXTLINE(bugprone-incorrect-roundings): it is above 0, and small
    if (value < 0x1p-14f) return std::uint16_t(value * 0x1p24f + 0.5f);
    if (value >= 65504) return 0x7BFF;
    const std::uint32_t rounded = std::bit_cast<std::uint32_t>(value) + 0x1000;
    return std::uint16_t((rounded >> 13) - (112 << 10));
}

constexpr std::uint16_t halfOne = 0x3C00, halfInfinity = 0x7C00;

// Encoded values of every half from 0 to infinity, in 256ths of a byte: a light's whole way to the screen is
// one look at 62 kilobytes, of which a picture touches a few.
constexpr int stepsPerByte = 256;
const std::vector<std::uint16_t>& displaySteps() {
    static const std::vector<std::uint16_t> table = [] {
        std::vector<std::uint16_t> values(halfInfinity + 1, 255 * stepsPerByte);
        for (std::uint32_t half = 0; half < halfInfinity; ++half) {
            const double shown = scene3d::srgbFromLinear(acesToneCurve(double(floatOf(std::uint16_t(half)))));
            values[half] = std::uint16_t(std::lround(shown * 255 * stepsPerByte));
        }
        return values;
    }();
    return table;
}

// Negative numbers, and what is none, count as 0.
std::uint32_t stepsOf(const std::uint16_t* table, std::uint16_t half) {
    return half > halfInfinity ? 0 : table[half];
}

using HalfPixel = std::array<std::uint16_t, 4>;   // red, green, blue, alpha
using BytePixel = std::array<std::uint8_t, 4>;    // blue, green, red, alpha

// `dither` is 0 to 255.
BytePixel surfacePixel(HalfPixel in, const std::uint16_t* table, std::uint32_t dither) {
    const auto byte = [&](std::uint16_t half) {
        return std::uint8_t((stepsOf(table, half) + dither) / stepsPerByte);
    };
    return {byte(in[2]), byte(in[1]), byte(in[0]), 255};
}

BytePixel edgePixel(HalfPixel in, const std::uint16_t* table, std::uint32_t dither) {
    const float coverage = floatOf(in[3]);
    // NOLINTNEXTLINE(bugprone-incorrect-roundings): it is not below 0
    const auto alpha = std::uint8_t(coverage * 255 + 0.5f);
    const auto byte = [&](std::uint16_t half) {
        const std::uint16_t straight = half > halfInfinity ? 0 : halfOf(floatOf(half) / coverage);
        const auto steps = std::uint32_t(coverage * float(stepsOf(table, straight)));
        return std::min(std::uint8_t((steps + dither) / stepsPerByte), alpha);
    };
    return {byte(in[2]), byte(in[1]), byte(in[0]), alpha};
}

void convertRow(const std::uint16_t* in, std::uint8_t* out, int count, const float* ditherOffsets) {
    const std::uint16_t* table = displaySteps().data();
    std::array<std::uint32_t, 8> dither;   // the pattern repeats after 8 pixels
    for (std::size_t i = 0; i < 8; ++i)
        dither[i] =
            std::uint32_t(std::clamp((ditherOffsets[i] + 0.5f) * stepsPerByte, 0.0f, stepsPerByte - 1.0f));
    for (int i = 0; i < count; ++i, in += 4, out += 4) {
        HalfPixel light;
        std::memcpy(light.data(), in, sizeof light);
        BytePixel shown{};
        const std::uint16_t alpha = light[3];
        if (alpha >= halfOne && alpha <= halfInfinity)
            shown = surfacePixel(light, table, dither[std::size_t(i & 7)]);
        else if (alpha > 0 && alpha < halfOne)
            shown = edgePixel(light, table, dither[std::size_t(i & 7)]);
        std::memcpy(out, shown.data(), sizeof shown);
    }
}

}   // namespace

double acesToneCurve(double linear) {
    if (!(linear > 0)) return 0;
    if (std::isinf(linear)) return 1;
    const double x = linear;
    return std::clamp(x * (2.51 * x + 0.03) / (x * (2.43 * x + 0.59) + 0.14), 0.0, 1.0);
}

scene3d::EncodedFrame applyACES(
    const scene3d::LinearFrame& frame, const std::shared_ptr<imaging::BytePool>& pool) {
    const imaging::Size size = frame.pixels.size();
    scene3d::EncodedFrame result{frame.region, imaging::Bitmap::uninitialised(size, pool)};
    const imaging::BitmapView view = result.pixels.view();
    for (int y = 0; y < size.height; ++y)
        convertRow(frame.pixels.row(y), view.row(y), size.width,
            imaging::ditherOfPixels(frame.region.x0, frame.region.y1 - 1 - y));
    return result;
}

}   // namespace tavix::DeviceStudio
