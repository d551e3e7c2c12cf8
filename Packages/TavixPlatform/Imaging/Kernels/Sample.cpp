// Bilinear sampling of 8-bit pixels along a line.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "TavixPlatform/Imaging/Kernels/Sample.cpp"
#include <hwy/foreach_target.h>

#include "TavixPlatform/Imaging/Kernels/Channels-inl.h"
#include "TavixPlatform/Imaging/Kernels/Families.h"

#include <algorithm>

#include <hwy/cache_control.h>

HWY_BEFORE_NAMESPACE();
namespace tavix::imaging::HWY_NAMESPACE {

using Integers = hn::RebindToSigned<Words>;
using IntegerVector = hn::Vec<Integers>;

// Positions are rounded to 1/65536 pixel per block of 16 samples that starts at a multiple of 16, from exact
// sums.
constexpr std::size_t blockSamples = 16;

// Channels in the upper bytes of their halves: 0 to 65280.
HWY_INLINE Channels raised(WordVector pixels) {
    return {hn::ShiftLeft<8>(hn::BitCast(Halves(), pixels)),
        hn::BitCast(Halves(), hn::And(pixels, hn::Set(Words(), 0xFF00FF00u)))};
}

// a + (b - a) f, with f in 1/65536. Written so that equal values come out as they went in.
HWY_INLINE HalfVector blend(HalfVector a, HalfVector b, HalfVector f) {
    return hn::Add(hn::Sub(a, hn::MulHigh(a, f)), hn::MulHigh(b, f));
}
HWY_INLINE Channels blend(const Channels& a, const Channels& b, HalfVector f) {
    return {blend(a.even, b.even, f), blend(a.odd, b.odd, f)};
}

HWY_INLINE WordVector rounded(const Channels& c) {
    const HalfVector half = hn::Set(Halves(), std::uint16_t(128));
    return join({hn::ShiftRight<8>(hn::Add(c.even, half)), hn::ShiftRight<8>(hn::Add(c.odd, half))});
}

HWY_INLINE HalfVector fractions(IntegerVector position) {
    const WordVector f = hn::And(hn::BitCast(Words(), position), hn::Set(Words(), 0xFFFFu));
    return hn::BitCast(Halves(), hn::Or(f, hn::ShiftLeft<16>(f)));
}

HWY_INLINE WordVector bilinear(
    WordVector p00, WordVector p01, WordVector p10, WordVector p11, HalfVector fx, HalfVector fy) {
    return rounded(blend(blend(raised(p00), raised(p01), fx), blend(raised(p10), raised(p11), fx), fy));
}

struct Block {
    std::int32_t u, v;                                           // 16.16 at the block's first sample
    HWY_ALIGN std::int32_t du[blockSamples], dv[blockSamples];   // from there
};

HWY_INLINE WordVector gathered(const SampleLine& line, IntegerVector u, IntegerVector v) {
    const Integers d;
    const Words w;
    const auto* pixels = reinterpret_cast<const std::uint32_t*>(line.pixels);
    const IntegerVector lastX = hn::Set(d, line.width - 1), lastY = hn::Set(d, line.height - 1),
                        zero = hn::Zero(d), one = hn::Set(d, 1),
                        stride = hn::Set(d, std::int32_t(line.strideBytes / 4));
    const IntegerVector x = hn::ShiftRight<16>(u), y = hn::ShiftRight<16>(v);
    const IntegerVector x0 = hn::Min(hn::Max(x, zero), lastX),
                        x1 = hn::Min(hn::Max(hn::Add(x, one), zero), lastX);
    const IntegerVector row0 = hn::Mul(hn::Min(hn::Max(y, zero), lastY), stride),
                        row1 = hn::Mul(hn::Min(hn::Max(hn::Add(y, one), zero), lastY), stride);
    return bilinear(hn::GatherIndex(w, pixels, hn::Add(row0, x0)),
        hn::GatherIndex(w, pixels, hn::Add(row0, x1)), hn::GatherIndex(w, pixels, hn::Add(row1, x0)),
        hn::GatherIndex(w, pixels, hn::Add(row1, x1)), fractions(u), fractions(v));
}

HWY_INLINE void gatherBlock(std::uint32_t* dst, const SampleLine& line, const Block& block) {
    const Integers d;
    for (std::size_t i = 0; i < blockSamples; i += hn::Lanes(d))
        hn::StoreU(gathered(line, hn::Add(hn::Set(d, block.u), hn::Load(d, block.du + i)),
                       hn::Add(hn::Set(d, block.v), hn::Load(d, block.dv + i))),
            Words(), dst + i);
}

// A block whose samples all have four neighbours. Neighbours in a row are loaded in pairs, which is quicker
// than gathering them.
HWY_INLINE void pairBlock(std::uint32_t* dst, const SampleLine& line, const Block& block) {
    const Integers d;
    const Words w;
    const std::size_t lanes = hn::Lanes(d);
    const IntegerVector stride = hn::Set(d, std::int32_t(line.strideBytes / 4));
    HWY_ALIGN std::int32_t offsets[blockSamples];
    HWY_ALIGN std::uint32_t pairs[2][2 * blockSamples];
    for (std::size_t i = 0; i < blockSamples; i += lanes) {
        const IntegerVector x = hn::ShiftRight<16>(hn::Add(hn::Set(d, block.u), hn::Load(d, block.du + i)));
        const IntegerVector y = hn::ShiftRight<16>(hn::Add(hn::Set(d, block.v), hn::Load(d, block.dv + i)));
        hn::Store(hn::Add(hn::Mul(y, stride), x), d, offsets + i);
    }
    // The next row of the picture will look one or two source rows further on.
    hwy::Prefetch(line.pixels + std::ptrdiff_t(offsets[0]) * 4 + 3 * line.strideBytes);
    hwy::Prefetch(line.pixels + std::ptrdiff_t(offsets[0]) * 4 - 2 * line.strideBytes);
    for (std::size_t i = 0; i < blockSamples; ++i) {
        const std::uint8_t* at = line.pixels + std::ptrdiff_t(offsets[i]) * 4;
        std::memcpy(pairs[0] + 2 * i, at, 8);
        std::memcpy(pairs[1] + 2 * i, at + line.strideBytes, 8);
    }
    for (std::size_t i = 0; i < blockSamples; i += lanes) {
        WordVector p[2][2];
        for (int row = 0; row < 2; ++row) {
            const WordVector a = hn::Load(w, pairs[row] + 2 * i), b = hn::Load(w, pairs[row] + 2 * i + lanes);
            p[row][0] = hn::ConcatEven(w, b, a);
            p[row][1] = hn::ConcatOdd(w, b, a);
        }
        const IntegerVector u = hn::Add(hn::Set(d, block.u), hn::Load(d, block.du + i));
        const IntegerVector v = hn::Add(hn::Set(d, block.v), hn::Load(d, block.dv + i));
        hn::StoreU(bilinear(p[0][0], p[0][1], p[1][0], p[1][1], fractions(u), fractions(v)), w, dst + i);
    }
}

#if HWY_ARCH_X86 && HWY_TARGET <= HWY_AVX3
// Picking from two vectors by lane is an instruction there, which the portable operations do not name.
HWY_INLINE WordVector picked(WordVector low, WordVector high, IntegerVector lanes) {
    return WordVector{_mm512_permutex2var_epi32(low.raw, lanes.raw, high.raw)};
}

// A block of samples that all have four neighbours, on a few rows and within two vectors of pixels: these are
// loaded as they lie, and the neighbours picked from them. False where the block is none.
HWY_INLINE bool pickBlock(std::uint32_t* dst, const SampleLine& line, const Block& block) {
    const Integers d;
    const Words w;
    static_assert(hn::MaxLanes(Words()) == blockSamples);
    constexpr int reach = 2 * int(blockSamples), mostRows = 5;
    const std::size_t end = blockSamples - 1;
    const auto [left, right] = std::minmax({block.u >> 16, (block.u + block.du[end]) >> 16});
    const auto [top, bottom] = std::minmax({block.v >> 16, (block.v + block.dv[end]) >> 16});
    const int x0 = std::min(left, line.width - reach), rowCount = bottom + 2 - top;
    if (x0 < 0 || right + 1 - x0 >= reach || rowCount > mostRows) return false;

    const IntegerVector u = hn::Add(hn::Set(d, block.u), hn::Load(d, block.du));
    const IntegerVector v = hn::Add(hn::Set(d, block.v), hn::Load(d, block.dv));
    const IntegerVector x = hn::Sub(hn::ShiftRight<16>(u), hn::Set(d, x0)), next = hn::Add(x, hn::Set(d, 1));
    const IntegerVector y = hn::Sub(hn::ShiftRight<16>(v), hn::Set(d, top));
    WordVector p00 = hn::Zero(w), p01 = p00, p10 = p00, p11 = p00;
    const std::uint8_t* row = line.pixels + std::ptrdiff_t(top) * line.strideBytes + std::ptrdiff_t(x0) * 4;
    // The next row of the picture will look one or two source rows further on.
    hwy::Prefetch(row + (rowCount + 1) * line.strideBytes);
    hwy::Prefetch(row - 2 * line.strideBytes);
    for (int r = 0; r < rowCount; ++r, row += line.strideBytes) {
        const auto* pixels = reinterpret_cast<const std::uint32_t*>(row);
        const WordVector low = hn::LoadU(w, pixels), high = hn::LoadU(w, pixels + blockSamples);
        const WordVector here = picked(low, high, x), beside = picked(low, high, next);
        const auto isFirst = hn::RebindMask(w, hn::Eq(y, hn::Set(d, r)));
        const auto isSecond = hn::RebindMask(w, hn::Eq(y, hn::Set(d, r - 1)));
        p00 = hn::IfThenElse(isFirst, here, p00);
        p01 = hn::IfThenElse(isFirst, beside, p01);
        p10 = hn::IfThenElse(isSecond, here, p10);
        p11 = hn::IfThenElse(isSecond, beside, p11);
    }
    hn::StoreU(bilinear(p00, p01, p10, p11, fractions(u), fractions(v)), w, dst);
    return true;
}
#else
HWY_INLINE bool pickBlock(std::uint32_t*, const SampleLine&, const Block&) { return false; }
#endif

bool isInside(const SampleLine& line, const Block& block) {
    const auto within = [](std::int64_t first, std::int64_t last, int size) {
        return std::min(first, last) >= 0 && (std::max(first, last) >> 16) + 1 < size;
    };
    const std::size_t end = blockSamples - 1;
    return within(block.u, std::int64_t(block.u) + block.du[end], line.width) &&
           within(block.v, std::int64_t(block.v) + block.dv[end], line.height);
}

void sampleAt(
    std::uint32_t* dst, const SampleLine& source, const float* u, const float* v, std::size_t count) {
    const hn::RebindToFloat<Words> f;
    const Integers d;
    const auto fixed = [&](const float* at, int size) HWY_ATTR {
        const auto inside = hn::Min(hn::Max(hn::LoadU(f, at), hn::Set(f, -1.0f)), hn::Set(f, float(size)));
        return hn::ConvertTo(d, hn::Mul(inside, hn::Set(f, 65536.0f)));
    };
    for (std::size_t i = 0; i < count; i += hn::Lanes(d)) {
        const WordVector pixels = gathered(source, fixed(u + i, source.width), fixed(v + i, source.height));
        if (i + hn::Lanes(d) <= count) {
            hn::StoreU(pixels, Words(), dst + i);
            continue;
        }
        std::uint32_t tail[mostLanes];
        hn::StoreU(pixels, Words(), tail);
        std::memcpy(dst + i, tail, (count - i) * 4);
    }
}

void project(float* u, float* v, const ProjectLine& line, int first, std::size_t count) {
    const hn::RebindToFloat<Words> f;
    const Integers d;
    for (std::size_t i = 0; i < count; i += hn::Lanes(f)) {
        const auto at = hn::ConvertTo(f, hn::Iota(d, first + int(i)));
        const auto along = [&](float from, float step)
                               HWY_ATTR { return hn::Add(hn::Set(f, from), hn::Mul(hn::Set(f, step), at)); };
        const auto w = along(line.w0, line.dw);
        hn::StoreU(hn::Div(along(line.u0, line.du), w), f, u + i);
        hn::StoreU(hn::Div(along(line.v0, line.dv), w), f, v + i);
    }
}

// Samples one pixel apart along a row, all inside: neighbours are loaded, not gathered.
HWY_INLINE void slideBlock(std::uint32_t* dst, const SampleLine& line, const Block& block) {
    const Words w;
    const Integers d;
    const int x = block.u >> 16, y = block.v >> 16;
    const auto row = [&](int at) HWY_ATTR {
        return reinterpret_cast<const std::uint32_t*>(
                   line.pixels + std::clamp(at, 0, line.height - 1) * line.strideBytes) +
               x;
    };
    const std::uint32_t *row0 = row(y), *row1 = row(y + 1);
    const HalfVector fx = fractions(hn::Set(d, block.u)), fy = fractions(hn::Set(d, block.v));
    for (std::size_t i = 0; i < blockSamples; i += hn::Lanes(w))
        hn::StoreU(bilinear(hn::LoadU(w, row0 + i), hn::LoadU(w, row0 + i + 1), hn::LoadU(w, row1 + i),
                       hn::LoadU(w, row1 + i + 1), fx, fy),
            w, dst + i);
}

void sample(std::uint32_t* dst, const SampleLine& line, std::int64_t first, std::size_t count) {
    Block block;
    for (std::size_t i = 0; i < blockSamples; ++i) {
        block.du[i] = std::int32_t((std::int64_t(i) * line.du) >> 16);
        block.dv[i] = std::int32_t((std::int64_t(i) * line.dv) >> 16);
    }
    const bool slides = line.du == std::int64_t(1) << 32 && line.dv == 0;
    const std::int64_t end = first + std::int64_t(count), size = std::int64_t(blockSamples);
    for (std::int64_t at = first & ~(size - 1); at < end; at += size) {
        block.u = std::int32_t((line.u0 + at * line.du) >> 16);
        block.v = std::int32_t((line.v0 + at * line.dv) >> 16);
        const bool isWhole = at >= first && at + size <= end;
        std::uint32_t partial[blockSamples];
        std::uint32_t* out = isWhole ? dst + (at - first) : partial;
        const int x = block.u >> 16;
        if (slides && x >= 0 && x + int(blockSamples) < line.width)
            slideBlock(out, line, block);
        else if (!isInside(line, block))
            gatherBlock(out, line, block);
        else if (!pickBlock(out, line, block))
            pairBlock(out, line, block);
        if (isWhole) continue;
        const std::int64_t from = std::max(at, first), to = std::min(at + size, end);
        std::memcpy(dst + (from - first), partial + (from - at), std::size_t(to - from) * 4);
    }
}

void fillSample(Kernels& table) {
    table.sample = sample;
    table.sampleAt = sampleAt;
    table.project = project;
}

}   // namespace tavix::imaging::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tavix::imaging {
HWY_EXPORT(fillSample);
void fillSampleKernels(Kernels& table) { HWY_DYNAMIC_DISPATCH(fillSample)(table); }
}   // namespace tavix::imaging
#endif
