// Vectors of pixels as 16-bit channels, shared by the families of 8-bit kernels. Included once per
// instruction set.
#if defined(TAVIX_IMAGING_CHANNELS_INL) == defined(HWY_TARGET_TOGGLE)
#ifdef TAVIX_IMAGING_CHANNELS_INL
#undef TAVIX_IMAGING_CHANNELS_INL
#else
#define TAVIX_IMAGING_CHANNELS_INL
#endif

#include <cstddef>
#include <cstdint>
#include <cstring>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace tavix::imaging::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

// At most 16 pixels at a time, so that the blocks of the sampler hold a whole number of vectors.
using Words = hn::CappedTag<std::uint32_t, 16>;
using Halves = hn::Repartition<std::uint16_t, Words>;
using Bytes = hn::Repartition<std::uint8_t, Words>;
using WordVector = hn::Vec<Words>;
using HalfVector = hn::Vec<Halves>;
constexpr std::size_t mostLanes = 16;

struct Channels {
    HalfVector even, odd;   // blue and red; green and alpha
};

HWY_INLINE Channels split(WordVector pixels) {
    return {hn::BitCast(Halves(), hn::And(pixels, hn::Set(Words(), 0x00FF00FFu))),
        hn::ShiftRight<8>(hn::BitCast(Halves(), pixels))};
}

HWY_INLINE WordVector join(const Channels& c) {
    return hn::BitCast(Words(), hn::Or(c.even, hn::ShiftLeft<8>(c.odd)));
}

// The same byte in both halves of each word.
HWY_INLINE HalfVector doubled(WordVector byteInWord) {
    return hn::BitCast(Halves(), hn::Or(byteInWord, hn::ShiftLeft<16>(byteInWord)));
}

// The alpha of each pixel in all its bytes.
HWY_INLINE WordVector joinedAlphas(WordVector pixels) {
    const HalfVector twice = doubled(hn::ShiftRight<24>(pixels));
    return hn::BitCast(Words(), hn::Or(twice, hn::ShiftLeft<8>(twice)));
}

HWY_INLINE HalfVector alphas(WordVector pixels) { return doubled(hn::ShiftRight<24>(pixels)); }

// A product of two bytes divided by 255, rounded to nearest.
HWY_INLINE HalfVector by255(HalfVector product) {
    const HalfVector t = hn::Add(product, hn::Set(Halves(), std::uint16_t(128)));
    return hn::ShiftRight<8>(hn::Add(t, hn::ShiftRight<8>(t)));
}

HWY_INLINE WordVector scaled(WordVector pixels, HalfVector factor) {
    const Channels c = split(pixels);
    return join({by255(hn::Mul(c.even, factor)), by255(hn::Mul(c.odd, factor))});
}

HWY_INLINE WordVector sum(WordVector a, WordVector b) {
    return hn::BitCast(Words(), hn::SaturatedAdd(hn::BitCast(Bytes(), a), hn::BitCast(Bytes(), b)));
}

// dst[i] = step(dst[i], src[i]). The tail goes through a full vector, so the expression stands once.
template <class Step>
HWY_INLINE void forRow(std::uint32_t* dst, const std::uint32_t* src, std::size_t count, const Step& step) {
    const Words w;
    const std::size_t lanes = hn::Lanes(w);
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes)
        hn::StoreU(step(hn::LoadU(w, dst + i), hn::LoadU(w, src + i)), w, dst + i);
    if (i == count) return;
    std::uint32_t d[mostLanes] = {}, s[mostLanes] = {};
    std::memcpy(d, dst + i, (count - i) * 4);
    std::memcpy(s, src + i, (count - i) * 4);
    hn::StoreU(step(hn::LoadU(w, d), hn::LoadU(w, s)), w, d);
    std::memcpy(dst + i, d, (count - i) * 4);
}

}   // namespace tavix::imaging::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
