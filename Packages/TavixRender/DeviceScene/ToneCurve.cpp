#include "TavixRender/DeviceScene/ToneCurve.h"

#include "TavixPlatform/Imaging/Tile.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
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
    if (value < 0x1p-14f) return std::uint16_t(value * 0x1p24f + 0.5f);
    if (value >= 65504) return 0x7BFF;
    const std::uint32_t rounded = std::bit_cast<std::uint32_t>(value) + 0x1000;
    return std::uint16_t((rounded >> 13) - (112 << 10));
}

constexpr std::uint16_t halfOne = 0x3C00, halfInfinity = 0x7C00;

double encoded(double linear) {   // IEC 61966-2-1
    return linear <= 0.0031308 ? linear * 12.92 : 1.055 * std::pow(linear, 1 / 2.4) - 0.055;
}

// Encoded values of every half from 0 to infinity, in steps of a byte. A light's whole way to the screen is
// one look at 128 kilobytes, of which a picture touches a few.
const std::vector<float>& displayBytes() {
    static const std::vector<float> table = [] {
        std::vector<float> values(halfInfinity + 1);
        for (std::uint32_t half = 0; half < halfInfinity; ++half)
            values[half] = float(255 * encoded(acesToneCurve(double(floatOf(std::uint16_t(half))))));
        values[halfInfinity] = 255;
        return values;
    }();
    return table;
}

// Negative numbers, and what is none, count as 0.
float displayByte(const float* table, std::uint16_t half) { return half > halfInfinity ? 0 : table[half]; }

void convertRow(const std::uint16_t* in, std::uint8_t* out, int count, const float* dither) {
    const float* table = displayBytes().data();
    for (int i = 0; i < count; ++i, in += 4, out += 4) {
        const std::uint16_t alpha = in[3];
        if (alpha == 0 || alpha > halfInfinity) {
            std::fill_n(out, 4, std::uint8_t(0));
            continue;
        }
        const float coverage = std::min(floatOf(alpha), 1.0f), offset = dither[i & 7] + 0.5f;
        std::array<float, 3> rgb;
        if (alpha >= halfOne) {
            for (std::size_t c = 0; c < 3; ++c) rgb[c] = displayByte(table, in[c]);
        } else {
            for (std::size_t c = 0; c < 3; ++c)
                rgb[c] = coverage *
                         displayByte(table, in[c] > halfInfinity ? 0 : halfOf(floatOf(in[c]) / coverage));
        }
        const auto a = std::uint8_t(coverage * 255 + 0.5f);
        out[3] = a;
        for (std::size_t c = 0; c < 3; ++c)
            out[2 - c] = std::min(std::uint8_t(std::min(rgb[c] + offset, 255.0f)), a);
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
