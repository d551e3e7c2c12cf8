// Pixels to the planes of a video encoder.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "TavixPlatform/Imaging/Kernels/Planes.cpp"
#include <hwy/foreach_target.h>

#include "TavixPlatform/Imaging/Kernels/Families.h"

#include <algorithm>
#include <cstring>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace tavix::imaging::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;
using Halves = hn::CappedTag<std::uint16_t, 32>;
using HalfBytes = hn::Rebind<std::uint8_t, Halves>;
using HalfVector = hn::Vec<Halves>;

constexpr std::size_t chunkPixels = 256;
constexpr std::size_t padPixels = 64;

// Weights in 1/65536 for values in 1/256 of a byte step: ITU-R BT.709-6 matrix, limited range (luma spans 219
// steps of the 255 of a byte, chroma 224).
constexpr std::uint16_t lumaR = 11966, lumaG = 40254, lumaB = 4064;   // 219/255 (0.2126, 0.7152, 0.0722)
constexpr std::uint16_t cbR = 6596, cbG = 22189, cbB = 28784;         // 224/255 (-0.11457, -0.38543, 0.5)
constexpr std::uint16_t crR = 28784, crG = 26145, crB = 2640;         // 224/255 (0.5, -0.45415, -0.04585)

HWY_INLINE HalfVector weigh(HalfVector value, std::uint16_t weight) {
    return hn::MulHigh(value, hn::Set(Halves(), weight));
}

struct Sums {   // red, green, blue of two rows added, with one pixel before the first
    HWY_ALIGN std::uint16_t r[chunkPixels + padPixels], g[chunkPixels + padPixels],
        b[chunkPixels + padPixels];
};

// Luma of one row; its colours are stored to, or added to, the sums.
HWY_INLINE void lumaRow(
    std::uint8_t* luma, const std::uint32_t* row, Sums& sums, bool isSecond, std::size_t count) {
    const Halves d;
    const HalfBytes bytes;
    for (std::size_t i = 0; i < count; i += hn::Lanes(d)) {
        hn::Vec<HalfBytes> b8, g8, r8, a8;
        hn::LoadInterleaved4(bytes, reinterpret_cast<const std::uint8_t*>(row + i), b8, g8, r8, a8);
        HalfVector b = hn::PromoteTo(d, b8), g = hn::PromoteTo(d, g8), r = hn::PromoteTo(d, r8);
        const HalfVector y =
            hn::Add(hn::Add(weigh(hn::ShiftLeft<8>(r), lumaR), weigh(hn::ShiftLeft<8>(g), lumaG)),
                hn::Add(weigh(hn::ShiftLeft<8>(b), lumaB), hn::Set(d, std::uint16_t(16 * 256 + 128))));
        hn::StoreU(hn::TruncateTo(bytes, hn::ShiftRight<8>(y)), bytes, luma + i);
        if (isSecond) {
            r = hn::Add(r, hn::LoadU(d, sums.r + 1 + i));
            g = hn::Add(g, hn::LoadU(d, sums.g + 1 + i));
            b = hn::Add(b, hn::LoadU(d, sums.b + 1 + i));
        }
        hn::StoreU(r, d, sums.r + 1 + i);
        hn::StoreU(g, d, sums.g + 1 + i);
        hn::StoreU(b, d, sums.b + 1 + i);
    }
}

// (1 2 1) / 4 about every second pixel, in 1/256 of a byte step.
HWY_INLINE HalfVector aboutEven(const std::uint16_t* sums, std::size_t i) {
    HalfVector before, at, same, after;
    hn::LoadInterleaved2(Halves(), sums + 2 * i, before, at);
    hn::LoadInterleaved2(Halves(), sums + 2 * i + 1, same, after);
    return hn::ShiftLeft<5>(hn::Add(hn::Add(before, after), hn::Add(at, same)));
}

HWY_INLINE void chromaRow(std::uint8_t* cb, std::uint8_t* cr, const Sums& sums, std::size_t count) {
    const Halves d;
    const HalfBytes bytes;
    const HalfVector middle = hn::Set(d, std::uint16_t(128 * 256 + 128));
    for (std::size_t i = 0; i < count; i += hn::Lanes(d)) {
        const HalfVector r = aboutEven(sums.r, i), g = aboutEven(sums.g, i), b = aboutEven(sums.b, i);
        const HalfVector blue =
            hn::Sub(hn::Add(middle, weigh(b, cbB)), hn::Add(weigh(r, cbR), weigh(g, cbG)));
        const HalfVector red = hn::Sub(hn::Add(middle, weigh(r, crR)), hn::Add(weigh(g, crG), weigh(b, crB)));
        hn::StoreU(hn::TruncateTo(bytes, hn::ShiftRight<8>(blue)), bytes, cb + i);
        hn::StoreU(hn::TruncateTo(bytes, hn::ShiftRight<8>(red)), bytes, cr + i);
    }
}

HWY_INLINE void setBefore(Sums& sums, const std::uint32_t* row0, const std::uint32_t* row1, bool hasLeft) {
    const std::uint32_t p = row0[hasLeft ? -1 : 0], q = row1[hasLeft ? -1 : 0];
    const auto pair = [&](int shift) { return std::uint16_t(((p >> shift) & 255) + ((q >> shift) & 255)); };
    sums.b[0] = pair(0);
    sums.g[0] = pair(8);
    sums.r[0] = pair(16);
}

void toYuv420(std::uint8_t* luma0, std::uint8_t* luma1, std::uint8_t* cb, std::uint8_t* cr,
    const std::uint32_t* row0, const std::uint32_t* row1, bool hasLeft, std::size_t count) {
    Sums sums;
    std::uint32_t pixels[2][chunkPixels + padPixels];
    std::uint8_t luma[2][chunkPixels + padPixels], chroma[2][chunkPixels + padPixels];
    for (std::size_t at = 0; at < count; at += chunkPixels) {
        const std::size_t n = std::min(chunkPixels, count - at);
        setBefore(sums, row0 + at, row1 + at, hasLeft || at > 0);
        if (n == chunkPixels) {
            lumaRow(luma0 + at, row0 + at, sums, false, n);
            lumaRow(luma1 + at, row1 + at, sums, true, n);
            chromaRow(cb + at / 2, cr + at / 2, sums, n / 2);
            continue;
        }
        std::memcpy(pixels[0], row0 + at, n * 4);
        std::memcpy(pixels[1], row1 + at, n * 4);
        std::memset(pixels[0] + n, 0, padPixels * 4);
        std::memset(pixels[1] + n, 0, padPixels * 4);
        lumaRow(luma[0], pixels[0], sums, false, n);
        lumaRow(luma[1], pixels[1], sums, true, n);
        chromaRow(chroma[0], chroma[1], sums, n / 2);
        std::memcpy(luma0 + at, luma[0], n);
        std::memcpy(luma1 + at, luma[1], n);
        std::memcpy(cb + at / 2, chroma[0], n / 2);
        std::memcpy(cr + at / 2, chroma[1], n / 2);
    }
}

void fillPlane(Kernels& table) { table.toYuv420 = toYuv420; }

}   // namespace tavix::imaging::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tavix::imaging {
HWY_EXPORT(fillPlane);
void fillPlaneKernels(Kernels& table) { HWY_DYNAMIC_DISPATCH(fillPlane)(table); }
}   // namespace tavix::imaging
#endif
