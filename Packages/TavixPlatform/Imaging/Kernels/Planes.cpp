// Pixels to the planes of a video encoder.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "TavixPlatform/Imaging/Kernels/Planes.cpp"
#include <hwy/foreach_target.h>

#include "TavixPlatform/Imaging/Kernels/Channels-inl.h"
#include "TavixPlatform/Imaging/Kernels/Families.h"

#include <algorithm>
#include <cstring>

HWY_BEFORE_NAMESPACE();
namespace tavix::imaging::HWY_NAMESPACE {

constexpr std::size_t chunkPixels = 256;
constexpr std::size_t padPixels = 2 * mostLanes;

// A weight for each half of a word, in 1/65536 for values in 1/256 of a byte step.
struct Weights {
    std::uint16_t low, high;
};
// ITU-R BT.709-6 matrix, limited range: luma spans 219 steps of the 255 of a byte, chroma 224. Even halves
// are blue and red, odd ones green and alpha.
constexpr Weights lumaEven{4064, 11966}, lumaOdd{40254, 0};   // 219/255 (0.0722, 0.2126), 0.7152
constexpr Weights cbEven{28784, 6596}, cbOdd{22189, 0};       // 224/255 (0.5, -0.11457), -0.38543
constexpr Weights crEven{2640, 28784}, crOdd{26145, 0};       // 224/255 (-0.04585, 0.5), -0.45415

HWY_INLINE WordVector weigh(HalfVector values, Weights weights) {
    const std::uint32_t both = std::uint32_t(weights.high) << 16 | weights.low;
    return hn::BitCast(Words(), hn::MulHigh(values, hn::BitCast(Halves(), hn::Set(Words(), both))));
}
HWY_INLINE WordVector low(WordVector v) { return hn::And(v, hn::Set(Words(), 0xFFFFu)); }
HWY_INLINE WordVector high(WordVector v) { return hn::ShiftRight<16>(v); }

using WordBytes = hn::Rebind<std::uint8_t, Words>;
// Values in 1/256 of a step to bytes.
HWY_INLINE void storeBytes(std::uint8_t* to, WordVector values, const std::uint8_t* rounding) {
    const WordBytes bytes;
    const WordVector raised = hn::Add(values, hn::PromoteTo(Words(), hn::LoadU(bytes, rounding)));
    hn::StoreU(hn::TruncateTo(bytes, hn::ShiftRight<8>(raised)), bytes, to);
}

struct Sums {   // channels of two rows added, with one pixel before the first
    HWY_ALIGN std::uint32_t even[chunkPixels + padPixels], odd[chunkPixels + padPixels];
};

HWY_INLINE void lumaOf(std::uint8_t* luma, const Channels& c, const std::uint8_t* rounding) {
    const WordVector mixed =
        hn::Add(weigh(hn::ShiftLeft<8>(c.even), lumaEven), weigh(hn::ShiftLeft<8>(c.odd), lumaOdd));
    storeBytes(luma, hn::Add(hn::Add(low(mixed), high(mixed)), hn::Set(Words(), 16u * 256)), rounding);
}

HWY_INLINE void lumaRows(const Yuv420Rows& out, const std::uint32_t* row0, const std::uint32_t* row1,
    Sums& sums, const RoundingRows& rounding, std::size_t count) {
    const Words w;
    for (std::size_t i = 0; i < count; i += hn::Lanes(w)) {
        const Channels a = split(hn::LoadU(w, row0 + i)), b = split(hn::LoadU(w, row1 + i));
        lumaOf(out.luma0 + i, a, rounding.luma0 + i);
        lumaOf(out.luma1 + i, b, rounding.luma1 + i);
        hn::StoreU(hn::BitCast(w, hn::Add(a.even, b.even)), w, sums.even + 1 + i);
        hn::StoreU(hn::BitCast(w, hn::Add(a.odd, b.odd)), w, sums.odd + 1 + i);
    }
}

// (1 2 1) / 4 about every second pixel from i on, in 1/256 of a byte step.
HWY_INLINE HalfVector aboutEven(const std::uint32_t* sums, std::size_t i) {
    const Words w;
    const std::size_t next = i + hn::Lanes(w);
    const auto at = [&](std::size_t from)
                        HWY_ATTR { return hn::BitCast(Halves(), hn::LoadU(w, sums + from)); };
    const auto filtered = [&](std::size_t from) HWY_ATTR {
        return hn::BitCast(w, hn::Add(hn::Add(at(from), at(from + 2)), hn::ShiftLeft<1>(at(from + 1))));
    };
    return hn::ShiftLeft<5>(hn::BitCast(Halves(), hn::ConcatEven(w, filtered(next), filtered(i))));
}

HWY_INLINE void chromaRow(
    const Yuv420Rows& out, const Sums& sums, const std::uint8_t* rounding, std::size_t count) {
    const Words w;
    const WordVector middle = hn::Set(w, 128u * 256);
    for (std::size_t i = 0; i < count; i += hn::Lanes(w)) {
        const HalfVector even = aboutEven(sums.even, 2 * i), odd = aboutEven(sums.odd, 2 * i);
        const WordVector blue = weigh(even, cbEven), red = weigh(even, crEven);
        storeBytes(out.cb + i,
            hn::Sub(hn::Add(middle, low(blue)), hn::Add(high(blue), low(weigh(odd, cbOdd)))), rounding + i);
        storeBytes(out.cr + i, hn::Sub(hn::Add(middle, high(red)), hn::Add(low(red), low(weigh(odd, crOdd)))),
            rounding + i);
    }
}

HWY_INLINE void setBefore(Sums& sums, std::uint32_t p, std::uint32_t q) {
    sums.even[0] = (p & 0x00FF00FFu) + (q & 0x00FF00FFu);
    sums.odd[0] = (p >> 8 & 0x00FF00FFu) + (q >> 8 & 0x00FF00FFu);
}

// The last pixels go through rows of their own, so that nothing is read or written past the end.
HWY_INLINE void convertTail(const Yuv420Rows& out, const std::uint32_t* row0, const std::uint32_t* row1,
    Sums& sums, const RoundingRows& rounding, std::size_t count) {
    std::uint32_t pixels[2][chunkPixels + padPixels] = {};
    std::uint8_t bytes[4][chunkPixels + padPixels];
    std::memcpy(pixels[0], row0, count * 4);
    std::memcpy(pixels[1], row1, count * 4);
    const Yuv420Rows own{bytes[0], bytes[1], bytes[2], bytes[3]};
    lumaRows(own, pixels[0], pixels[1], sums, rounding, count);
    chromaRow(own, sums, rounding.chroma, count / 2);
    std::memcpy(out.luma0, own.luma0, count);
    std::memcpy(out.luma1, own.luma1, count);
    std::memcpy(out.cb, own.cb, count / 2);
    std::memcpy(out.cr, own.cr, count / 2);
}

void toYuv420(const Yuv420Rows& out, const std::uint32_t* row0, const std::uint32_t* row1, bool hasLeft,
    const RoundingRows& rounding, std::size_t count) {
    Sums sums;
    for (std::size_t at = 0; at < count; at += chunkPixels) {
        const std::size_t n = std::min(chunkPixels, count - at);
        const std::ptrdiff_t before = hasLeft || at > 0 ? -1 : 0;
        const std::uint32_t *from0 = row0 + at, *from1 = row1 + at;
        const Yuv420Rows to{out.luma0 + at, out.luma1 + at, out.cb + at / 2, out.cr + at / 2};
        const RoundingRows by{rounding.luma0 + at, rounding.luma1 + at, rounding.chroma + at / 2};
        setBefore(sums, from0[before], from1[before]);
        if (n % (2 * mostLanes) != 0) {
            convertTail(to, from0, from1, sums, by, n);
            continue;
        }
        lumaRows(to, from0, from1, sums, by, n);
        chromaRow(to, sums, by.chroma, n / 2);
    }
}

using FourPixels = hn::CappedTag<std::uint8_t, 16>;

// The smallest or the largest of each channel, of eight pixels in each of the rows.
template <class Choose>
HWY_INLINE hn::Vec<FourPixels> chosen(
    const std::uint32_t* const* rows, int rowCount, std::size_t at, const Choose& choose) {
    const FourPixels d;
    const auto pixels = [&](int row, std::size_t from) HWY_ATTR {
        return hn::LoadU(d, reinterpret_cast<const std::uint8_t*>(rows[row] + at + from));
    };
    auto result = choose(pixels(0, 0), pixels(0, 4));
    for (int row = 1; row < rowCount; ++row) result = choose(result, choose(pixels(row, 0), pixels(row, 4)));
    result = choose(result, hn::ShiftRightBytes<8>(d, result));
    return choose(result, hn::ShiftRightBytes<4>(d, result));
}

void findRamps(
    std::uint8_t* isRamp, const std::uint32_t* const* rows, int rowCount, int most, std::size_t blocks) {
    using V = hn::Vec<FourPixels>;
    const FourPixels d;
    const hn::Repartition<std::uint32_t, FourPixels> words;
    for (std::size_t i = 0; i < blocks; ++i) {
        const V least = chosen(rows, rowCount, i * 8, [](V a, V b) HWY_ATTR { return hn::Min(a, b); });
        const V largest = chosen(rows, rowCount, i * 8, [](V a, V b) HWY_ATTR { return hn::Max(a, b); });
        const V range = hn::Sub(largest, least);
        const std::uint32_t differs = hn::GetLane(hn::BitCast(words, range));
        const V beyond = hn::SaturatedSub(range, hn::Set(d, std::uint8_t(most)));
        isRamp[i] = differs != 0 && hn::GetLane(hn::BitCast(words, beyond)) == 0 ? 255 : 0;
    }
}

void fillPlane(Kernels& table) {
    table.toYuv420 = toYuv420;
    table.findRamps = findRamps;
}

}   // namespace tavix::imaging::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tavix::imaging {
HWY_EXPORT(fillPlane);
void fillPlaneKernels(Kernels& table) { HWY_DYNAMIC_DISPATCH(fillPlane)(table); }
}   // namespace tavix::imaging
#endif
