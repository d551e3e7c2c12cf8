// Planes of decoded video to pixels.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "TavixPlatform/Imaging/Kernels/Video.cpp"
#include <hwy/foreach_target.h>

#include "TavixPlatform/Imaging/Kernels/Channels-inl.h"
#include "TavixPlatform/Imaging/Kernels/Families.h"

#include <algorithm>
#include <cstring>

HWY_BEFORE_NAMESPACE();
namespace tavix::imaging::HWY_NAMESPACE {

using Signed = hn::RebindToSigned<Halves>;
using SignedVector = hn::Vec<Signed>;
using SampleBytes = hn::Rebind<std::uint8_t, Halves>;

constexpr std::size_t mostHalves = 2 * mostLanes, blockPixels = 256;
static_assert(blockPixels % (2 * mostHalves) == 0);

// One block of a row, with a vector of room beyond; chroma has a neighbour before its first sample.
struct VideoBlock {
    HWY_ALIGN std::uint16_t luma[blockPixels + mostHalves], chroma[blockPixels + 2 * mostHalves];
    HWY_ALIGN std::int16_t cb[blockPixels + 2 * mostHalves], cr[blockPixels + 2 * mostHalves];
    HWY_ALIGN std::uint16_t pixels[2 * (blockPixels + mostHalves)];
};

HWY_INLINE HalfVector loadSamples(const std::uint8_t* from) {
    return hn::PromoteTo(Halves(), hn::LoadU(SampleBytes(), from));
}
HWY_INLINE HalfVector loadSamples(const std::uint16_t* from) { return hn::LoadU(Halves(), from); }

// out[i] = near * weight + far * (4 - weight), for whole vectors while they fit and one by one at the end.
template <class Sample>
HWY_INLINE void weighRows(
    std::uint16_t* out, const Sample* near, const Sample* far, int nearWeight, std::size_t count) {
    const Halves h;
    const HalfVector n = hn::Set(h, std::uint16_t(nearWeight)), f = hn::Set(h, std::uint16_t(4 - nearWeight));
    const std::size_t lanes = hn::Lanes(h);
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes)
        hn::StoreU(hn::Add(hn::Mul(loadSamples(near + i), n), hn::Mul(loadSamples(far + i), f)), h, out + i);
    for (; i < count; ++i) out[i] = std::uint16_t(near[i] * nearWeight + far[i] * (4 - nearWeight));
}

template <class Sample> HWY_INLINE void widenRow(std::uint16_t* out, const Sample* from, std::size_t count) {
    const Halves h;
    const std::size_t lanes = hn::Lanes(h);
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes) hn::StoreU(loadSamples(from + i), h, out + i);
    for (; i < count; ++i) out[i] = from[i];
}

// Sixteen times a chroma sample as a signed distance from grey, in 1/128 of an eight-bit step.
struct ChromaScale {
    int bits;
    HWY_INLINE SignedVector operator()(HalfVector sum) const {
        const Signed s;
        const HalfVector grey = hn::Set(Halves(), std::uint16_t(1u << (bits + 3)));
        const SignedVector distance = hn::BitCast(s, hn::Sub(sum, grey));
        return bits <= 11 ? hn::ShiftLeftSame(distance, 11 - bits) : hn::ShiftRight<1>(distance);
    }
};

// Chroma of the pixels first ... first + count - 1, one value a pixel.
template <class Sample>
HWY_INLINE void chromaOf(std::int16_t* out, std::uint16_t* scratch, const VideoRow& row, int plane,
    const VideoRule& rule, std::size_t first, std::size_t count) {
    const Halves h;
    const Signed s;
    const ChromaScale scale{rule.bits};
    const auto* near = static_cast<const Sample*>(row.chroma[plane]);
    const auto* far = static_cast<const Sample*>(row.farChroma[plane]);
    if (!rule.halvesWidth) {
        weighRows(scratch, near + first, far + first, rule.nearWeight, count);
        for (std::size_t i = 0; i < count; i += hn::Lanes(h))
            hn::StoreU(scale(hn::ShiftLeft<2>(hn::LoadU(h, scratch + i))), s, out + i);
        return;
    }
    const std::size_t all = (row.width + 1) / 2, begin = first / 2,
                      end = std::min(begin + count / 2 + 2, all);
    const std::size_t before = begin > 0 ? 1 : 0;
    weighRows(scratch + 1 - before, near + begin - before, far + begin - before, rule.nearWeight,
        end - begin + before);
    if (!before) scratch[0] = scratch[1];
    scratch[1 + end - begin] = scratch[end - begin];   // the edge goes on
    const auto weight = [&](int w) HWY_ATTR { return hn::Set(h, std::uint16_t(w)); };
    const HalfVector evenNear = weight(rule.evenWeight), evenFar = weight(4 - rule.evenWeight),
                     oddNear = weight(rule.oddWeight), oddFar = weight(4 - rule.oddWeight);
    for (std::size_t i = 0; i < (count + 1) / 2; i += hn::Lanes(h)) {
        const HalfVector left = hn::LoadU(h, scratch + i), here = hn::LoadU(h, scratch + i + 1),
                         right = hn::LoadU(h, scratch + i + 2);
        hn::StoreInterleaved2(scale(hn::Add(hn::Mul(here, evenNear), hn::Mul(left, evenFar))),
            scale(hn::Add(hn::Mul(here, oddNear), hn::Mul(right, oddFar))), s, out + 2 * i);
    }
}

// A value in 1/32 of an eight-bit step, rounded and limited to a byte.
HWY_INLINE HalfVector byteOf(SignedVector v) {
    const Signed s;
    const SignedVector rounded = hn::ShiftRight<5>(hn::Add(v, hn::Set(s, std::int16_t(16))));
    return hn::BitCast(Halves(), hn::Min(hn::Max(rounded, hn::Zero(s)), hn::Set(s, std::int16_t(255))));
}

HWY_INLINE void mixBlock(std::uint16_t* out, const VideoBlock& block, const std::uint16_t* luma,
    const VideoRule& rule, std::size_t count) {
    const Halves h;
    const Signed s;
    const auto gain = [&](std::int16_t v) HWY_ATTR { return hn::Set(s, v); };
    const SignedVector ofLuma = gain(rule.lumaGain), redOfCr = gain(rule.redOfCr),
                       greenOfCb = gain(rule.greenOfCb), greenOfCr = gain(rule.greenOfCr),
                       blueOfCb = gain(rule.blueOfCb), black = gain(rule.black);
    const HalfVector opaque = hn::Set(h, std::uint16_t(0xFF00));
    for (std::size_t i = 0; i < count; i += hn::Lanes(h)) {
        const SignedVector raised = hn::BitCast(s, hn::ShiftLeftSame(hn::LoadU(h, luma + i), 15 - rule.bits));
        const SignedVector y = hn::MulFixedPoint15(hn::Sub(raised, black), ofLuma);
        const SignedVector cb = hn::LoadU(s, block.cb + i), cr = hn::LoadU(s, block.cr + i);
        const HalfVector r = byteOf(hn::Add(y, hn::MulFixedPoint15(cr, redOfCr)));
        const HalfVector g = byteOf(
            hn::Sub(y, hn::Add(hn::MulFixedPoint15(cb, greenOfCb), hn::MulFixedPoint15(cr, greenOfCr))));
        const HalfVector b = byteOf(hn::Add(y, hn::MulFixedPoint15(cb, blueOfCb)));
        hn::StoreInterleaved2(hn::Or(b, hn::ShiftLeft<8>(g)), hn::Or(r, opaque), h, out + 2 * i);
    }
}

template <class Sample> void videoRow(std::uint32_t* dst, const VideoRow& row, const VideoRule& rule) {
    VideoBlock block;
    for (std::size_t at = 0; at < row.width; at += blockPixels) {
        const std::size_t n = std::min(blockPixels, row.width - at);
        chromaOf<Sample>(block.cb, block.chroma, row, 0, rule, at, n);
        chromaOf<Sample>(block.cr, block.chroma, row, 1, rule, at, n);
        widenRow(block.luma, static_cast<const Sample*>(row.luma) + at, n);
        if (n == blockPixels) {
            mixBlock(reinterpret_cast<std::uint16_t*>(dst + at), block, block.luma, rule, n);
            continue;
        }
        mixBlock(block.pixels, block, block.luma, rule, n);
        std::memcpy(dst + at, block.pixels, n * 4);
    }
}

void videoToPixels(std::uint32_t* dst, const VideoRow& row, const VideoRule& rule) {
    if (rule.bits > 8)
        videoRow<std::uint16_t>(dst, row, rule);
    else
        videoRow<std::uint8_t>(dst, row, rule);
}

void premultiply(std::uint32_t* dst, const std::uint32_t* src, std::size_t count) {
    forRow(dst, src, count, [](WordVector, WordVector p) HWY_ATTR {
        const WordVector alpha = hn::And(p, hn::Set(Words(), 0xFF000000u));
        return hn::Or(alpha, hn::AndNot(hn::Set(Words(), 0xFF000000u), scaled(p, alphas(p))));
    });
}

void fillVideo(Kernels& table) {
    table.videoToPixels = videoToPixels;
    table.premultiply = premultiply;
}

}   // namespace tavix::imaging::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tavix::imaging {
HWY_EXPORT(fillVideo);
void fillVideoKernels(Kernels& table) { HWY_DYNAMIC_DISPATCH(fillVideo)(table); }
}   // namespace tavix::imaging
#endif
