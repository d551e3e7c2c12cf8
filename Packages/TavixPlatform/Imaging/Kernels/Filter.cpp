// Filtering of interleaved float pixels: the steps of the Gaussian pyramid and of resampling.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "TavixPlatform/Imaging/Kernels/Filter.cpp"
#include <hwy/foreach_target.h>

#include "TavixPlatform/Imaging/Kernels/Families.h"

#include <algorithm>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace tavix::imaging::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;
using Floats = hn::CappedTag<float, 16>;
using OnePixel = hn::CappedTag<float, 4>;   // blue, green, red, alpha of one pixel
using PixelVector = hn::Vec<OnePixel>;

void expand(float* dst, const std::uint32_t* src, std::size_t count) {
    const Floats d;
    const hn::Rebind<std::uint8_t, Floats> bytes;
    const hn::Rebind<std::int32_t, Floats> ints;
    const auto* from = reinterpret_cast<const std::uint8_t*>(src);
    const std::size_t floats = count * 4;
    std::size_t i = 0;
    for (; i + hn::Lanes(d) <= floats; i += hn::Lanes(d))
        hn::StoreU(hn::ConvertTo(d, hn::PromoteTo(ints, hn::LoadU(bytes, from + i))), d, dst + i);
    for (; i < floats; ++i) dst[i] = from[i];
}

// Limits to 0 ... 255 and colour to alpha, adds the dither of the pixel and rounds. `D` holds whole pixels.
template <class D> HWY_INLINE void packPixels(D d, std::uint8_t* dst, const float* src, hn::Vec<D> offset) {
    const hn::Rebind<std::int32_t, D> ints;
    const hn::Rebind<std::uint8_t, D> bytes;
    const auto p = hn::Min(hn::Max(hn::LoadU(d, src), hn::Zero(d)), hn::Set(d, 255.0f));
    const auto limited = hn::Min(p, hn::Broadcast<3>(p));   // alpha of each pixel, in its block of four
    hn::StoreU(hn::DemoteTo(bytes, hn::ConvertTo(ints, hn::Add(limited, offset))), bytes, dst);
}

void packInterleaved(std::uint32_t* dst, const float* src, const float* dither, std::size_t count) {
    const Floats d;
    const OnePixel one;
    const std::size_t pixelsAtOnce = hn::Lanes(d) / 4;
    auto* bytes = reinterpret_cast<std::uint8_t*>(dst);
    const auto half = hn::Set(d, 0.5f);
    std::size_t i = 0;
    for (; i + pixelsAtOnce <= count; i += pixelsAtOnce)
        packPixels(
            d, bytes + i * 4, src + i * 4, dither ? hn::Add(half, hn::LoadU(d, dither + i * 4)) : half);
    for (; i < count; ++i)
        packPixels(one, bytes + i * 4, src + i * 4, hn::Set(one, (dither ? dither[i * 4] : 0.0f) + 0.5f));
}

void deinterleave(FloatRow dst, const float* src, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        for (int c = 0; c < 4; ++c) dst.plane[c][i] = src[i * 4 + std::size_t(c)] * (1.0f / 255);
}

void weightedSum(float* dst, const float* const* rows, const float* weights, int taps, std::size_t count) {
    const Floats d;
    const std::size_t lanes = hn::Lanes(d);
    std::size_t i = 0;
    for (; i + 2 * lanes <= count; i += 2 * lanes) {
        auto sum0 = hn::Zero(d), sum1 = hn::Zero(d);
        for (int t = 0; t < taps; ++t) {
            const auto w = hn::Set(d, weights[t]);
            sum0 = hn::Add(sum0, hn::Mul(w, hn::LoadU(d, rows[t] + i)));
            sum1 = hn::Add(sum1, hn::Mul(w, hn::LoadU(d, rows[t] + i + lanes)));
        }
        hn::StoreU(sum0, d, dst + i);
        hn::StoreU(sum1, d, dst + i + lanes);
    }
    for (; i < count; ++i) {
        float sum = 0;
        for (int t = 0; t < taps; ++t) sum = sum + weights[t] * rows[t][i];
        dst[i] = sum;
    }
}

void halve(float* dst, const float* src, std::size_t count) {
    const OnePixel d;
    const PixelVector three = hn::Set(d, 3.0f), eighth = hn::Set(d, 0.125f);
    for (std::size_t i = 0; i < count; ++i) {
        const float* s = src + i * 8;
        const PixelVector outer = hn::Add(hn::LoadU(d, s), hn::LoadU(d, s + 12));
        const PixelVector inner = hn::Add(hn::LoadU(d, s + 4), hn::LoadU(d, s + 8));
        hn::StoreU(hn::Mul(hn::Add(outer, hn::Mul(inner, three)), eighth), d, dst + i * 4);
    }
}

// Pixels that lie between the same small ones, as many as a vector has whole pixels, from `phase` on. The
// weights of a pixel are a block of the vector.
template <class D>
HWY_INLINE void interpolatePixels(D d, float* dst, const float* src, const float (*weights)[4], int phase) {
    const auto w = hn::LoadU(d, weights[phase]);
    auto sum = hn::Mul(hn::LoadDup128(d, src), hn::Broadcast<0>(w));
    sum = hn::Add(sum, hn::Mul(hn::LoadDup128(d, src + 4), hn::Broadcast<1>(w)));
    sum = hn::Add(sum, hn::Mul(hn::LoadDup128(d, src + 8), hn::Broadcast<2>(w)));
    sum = hn::Add(sum, hn::Mul(hn::LoadDup128(d, src + 12), hn::Broadcast<3>(w)));
    hn::StoreU(sum, d, dst);
}

void interpolate(
    float* dst, const float* src, const float (*weights)[4], int phases, int first, std::size_t count) {
    const Floats d;
    const OnePixel one;
    const int atOnce = int(hn::Lanes(d) / 4);
    const float* s = src + first / phases * 4;
    int phase = first % phases;
    for (std::size_t i = 0; i < count; s += 4, phase = 0) {
        const int end = int(std::min(std::size_t(phases), std::size_t(phase) + (count - i)));
        for (; phase + atOnce <= end; phase += atOnce, i += std::size_t(atOnce))
            interpolatePixels(d, dst + i * 4, s, weights, phase);
        for (; phase < end; ++phase, ++i) interpolatePixels(one, dst + i * 4, s, weights, phase);
    }
}

void resample(
    float* dst, const float* src, const int* first, const float* weights, int taps, std::size_t count) {
    const OnePixel d;
    for (std::size_t i = 0; i < count; ++i, weights += taps) {
        const float* s = src + std::ptrdiff_t(first[i]) * 4;
        PixelVector sum = hn::Zero(d);
        for (int t = 0; t < taps; ++t)
            sum = hn::Add(sum, hn::Mul(hn::LoadU(d, s + t * 4), hn::Set(d, weights[t])));
        hn::StoreU(sum, d, dst + i * 4);
    }
}

void fillFilter(Kernels& table) {
    table.expand = expand;
    table.packInterleaved = packInterleaved;
    table.deinterleave = deinterleave;
    table.weightedSum = weightedSum;
    table.halve = halve;
    table.interpolate = interpolate;
    table.resample = resample;
}

}   // namespace tavix::imaging::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tavix::imaging {
HWY_EXPORT(fillFilter);
void fillFilterKernels(Kernels& table) { HWY_DYNAMIC_DISPATCH(fillFilter)(table); }
}   // namespace tavix::imaging
#endif
