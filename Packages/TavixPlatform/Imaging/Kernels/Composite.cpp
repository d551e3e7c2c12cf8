// Compositing of 8-bit pixels.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "TavixPlatform/Imaging/Kernels/Composite.cpp"
#include <hwy/foreach_target.h>

#include "TavixPlatform/Imaging/Kernels/Channels-inl.h"
#include "TavixPlatform/Imaging/Kernels/Families.h"

HWY_BEFORE_NAMESPACE();
namespace tavix::imaging::HWY_NAMESPACE {

HWY_INLINE WordVector overPixels(WordVector dst, WordVector src) {
    return sum(src, scaled(dst, hn::Sub(hn::Set(Halves(), std::uint16_t(255)), alphas(src))));
}

void over(std::uint32_t* dst, const std::uint32_t* src, std::size_t count, unsigned opacity) {
    const HalfVector factor = hn::Set(Halves(), std::uint16_t(opacity));
    if (opacity == 0) return;
    forRow(dst, src, count, [&](WordVector d, WordVector s) HWY_ATTR {
        const Words w;
        const WordVector alphaBits = hn::And(s, hn::Set(w, 0xFF000000u));
        if (hn::AllTrue(w, hn::Eq(alphaBits, hn::Zero(w)))) return d;
        if (opacity == 255) {
            if (hn::AllTrue(w, hn::Eq(alphaBits, hn::Set(w, 0xFF000000u)))) return s;
            return overPixels(d, s);
        }
        return overPixels(d, scaled(s, factor));
    });
}

void overSolid(std::uint32_t* dst, std::uint32_t color, std::size_t count) {
    const WordVector src = hn::Set(Words(), color);
    forRow(dst, dst, count, [&](WordVector d, WordVector) HWY_ATTR { return overPixels(d, src); });
}

void fade(std::uint32_t* dst, const std::uint32_t* src, std::size_t count, unsigned opacity) {
    const HalfVector factor = hn::Set(Halves(), std::uint16_t(opacity));
    forRow(dst, src, count, [&](WordVector, WordVector s) HWY_ATTR { return scaled(s, factor); });
}

void add(std::uint32_t* dst, const std::uint32_t* src, std::size_t count) {
    forRow(dst, src, count, [&](WordVector d, WordVector s) HWY_ATTR { return sum(d, s); });
}

void lighten(std::uint32_t* dst, const std::uint32_t* src, std::size_t count) {
    forRow(dst, src, count, [&](WordVector d, WordVector s) HWY_ATTR {
        return hn::BitCast(Words(), hn::Max(hn::BitCast(Bytes(), d), hn::BitCast(Bytes(), s)));
    });
}

void atop(std::uint32_t* dst, const std::uint32_t* src, std::size_t count) {
    forRow(dst, src, count, [&](WordVector d, WordVector s) HWY_ATTR {
        const HalfVector rest = hn::Sub(hn::Set(Halves(), std::uint16_t(255)), alphas(s));
        const WordVector alphaBits = hn::Set(Words(), 0xFF000000u);
        const WordVector mixed = sum(scaled(s, alphas(d)), scaled(d, rest));
        // Rounded twice, colour could pass the alpha by a step.
        const auto limit = hn::BitCast(Bytes(), joinedAlphas(d));
        const auto colors = hn::Min(hn::BitCast(Bytes(), mixed), limit);
        return hn::Or(hn::AndNot(alphaBits, hn::BitCast(Words(), colors)), hn::And(alphaBits, d));
    });
}

// Both sides are weighted before they are added, so equal pixels stay as they are to within a step.
void mix(std::uint32_t* dst, const std::uint32_t* from, const std::uint32_t* to, const std::uint32_t* weight,
    std::size_t count) {
    std::size_t i = 0;
    const Words w;
    const auto step = [&](WordVector f, WordVector t, WordVector k) HWY_ATTR {
        const HalfVector kt = doubled(k), kf = hn::Sub(hn::Set(Halves(), std::uint16_t(255)), kt);
        const Channels a = split(f), b = split(t);
        return join({by255(hn::Add(hn::Mul(a.even, kf), hn::Mul(b.even, kt))),
            by255(hn::Add(hn::Mul(a.odd, kf), hn::Mul(b.odd, kt)))});
    };
    const std::size_t lanes = hn::Lanes(w);
    for (; i + lanes <= count; i += lanes)
        hn::StoreU(step(hn::LoadU(w, from + i), hn::LoadU(w, to + i), hn::LoadU(w, weight + i)), w, dst + i);
    if (i == count) return;
    std::uint32_t f[mostLanes] = {}, t[mostLanes] = {}, k[mostLanes] = {};
    std::memcpy(f, from + i, (count - i) * 4);
    std::memcpy(t, to + i, (count - i) * 4);
    std::memcpy(k, weight + i, (count - i) * 4);
    hn::StoreU(step(hn::LoadU(w, f), hn::LoadU(w, t), hn::LoadU(w, k)), w, f);
    std::memcpy(dst + i, f, (count - i) * 4);
}

// ITU-R BT.709 luma of encoded values: 0.2126 R + 0.7152 G + 0.0722 B in 1/65536, rounded.
void luminance(std::uint32_t* dst, const std::uint32_t* src, std::size_t count) {
    forRow(dst, src, count, [&](WordVector, WordVector s) HWY_ATTR {
        const Words w;
        const WordVector byte = hn::Set(w, 0xFFu);
        const WordVector b = hn::And(s, byte), g = hn::And(hn::ShiftRight<8>(s), byte),
                         r = hn::And(hn::ShiftRight<16>(s), byte);
        const WordVector total =
            hn::Add(hn::Add(hn::Mul(r, hn::Set(w, 13933u)), hn::Mul(g, hn::Set(w, 46871u))),
                hn::Add(hn::Mul(b, hn::Set(w, 4732u)), hn::Set(w, 32768u)));
        return hn::ShiftRight<16>(total);
    });
}

void fillComposite(Kernels& table) {
    table.over = over;
    table.overSolid = overSolid;
    table.fade = fade;
    table.add = add;
    table.lighten = lighten;
    table.atop = atop;
    table.mix = mix;
    table.luminance = luminance;
}

}   // namespace tavix::imaging::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tavix::imaging {
HWY_EXPORT(fillComposite);
void fillCompositeKernels(Kernels& table) { HWY_DYNAMIC_DISPATCH(fillComposite)(table); }
}   // namespace tavix::imaging
#endif
