// Colour of float pixels, in planes.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "TavixPlatform/Imaging/Kernels/Color.cpp"
#include <hwy/foreach_target.h>

#include "TavixPlatform/Imaging/Kernels/Families.h"

#include <cstring>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace tavix::imaging::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;
using Floats = hn::CappedTag<float, 16>;
using FloatVector = hn::Vec<Floats>;
using PixelBytes = hn::Rebind<std::uint8_t, Floats>;
using PixelInts = hn::Rebind<std::int32_t, Floats>;

struct Pixels {
    FloatVector b, g, r, a;
};

HWY_INLINE FloatVector constant(float value) { return hn::Set(Floats(), value); }

// Products and sums stay apart, so that every instruction set rounds alike.
HWY_INLINE FloatVector plusProduct(FloatVector sum, FloatVector a, FloatVector b) {
    return hn::Add(sum, hn::Mul(a, b));
}
HWY_INLINE FloatVector mixed(FloatVector a, FloatVector b, FloatVector t) {
    return plusProduct(a, hn::Sub(b, a), t);
}
HWY_INLINE FloatVector unit(FloatVector v) { return hn::Min(hn::Max(v, hn::Zero(Floats())), constant(1)); }

// ITU-R BT.709 luma.
HWY_INLINE FloatVector luma(const Pixels& p) {
    return plusProduct(
        plusProduct(hn::Mul(p.r, constant(0.2126f)), p.g, constant(0.7152f)), p.b, constant(0.0722f));
}

// Straight colour; black where there is no alpha.
HWY_INLINE Pixels straight(const Pixels& p) {
    const auto isClear = hn::Le(p.a, hn::Zero(Floats()));
    const FloatVector inverse =
        hn::IfThenZeroElse(isClear, hn::Div(constant(1), hn::IfThenElse(isClear, constant(1), p.a)));
    return {hn::Mul(p.b, inverse), hn::Mul(p.g, inverse), hn::Mul(p.r, inverse), p.a};
}
HWY_INLINE Pixels premultiplied(const Pixels& p) {
    return {hn::Mul(p.b, p.a), hn::Mul(p.g, p.a), hn::Mul(p.r, p.a), p.a};
}

template <class Step> HWY_INLINE void forPixels(FloatRow row, std::size_t count, const Step& step) {
    const Floats d;
    for (std::size_t i = 0; i < count; i += hn::Lanes(d)) {
        const Pixels p = step(Pixels{hn::LoadU(d, row.plane[0] + i), hn::LoadU(d, row.plane[1] + i),
                                  hn::LoadU(d, row.plane[2] + i), hn::LoadU(d, row.plane[3] + i)},
            i);
        hn::StoreU(p.b, d, row.plane[0] + i);
        hn::StoreU(p.g, d, row.plane[1] + i);
        hn::StoreU(p.r, d, row.plane[2] + i);
        hn::StoreU(p.a, d, row.plane[3] + i);
    }
}

HWY_INLINE Pixels loadAt(FloatRow row, std::size_t i) {
    const Floats d;
    return {hn::LoadU(d, row.plane[0] + i), hn::LoadU(d, row.plane[1] + i), hn::LoadU(d, row.plane[2] + i),
        hn::LoadU(d, row.plane[3] + i)};
}

HWY_INLINE FloatVector fromBytes(hn::Vec<PixelBytes> bytes) {
    return hn::Mul(hn::ConvertTo(Floats(), hn::PromoteTo(PixelInts(), bytes)), constant(1.0f / 255));
}

void unpack(FloatRow dst, const std::uint32_t* src, std::size_t count) {
    const Floats d;
    const PixelBytes bytes;
    const std::size_t lanes = hn::Lanes(d);
    for (std::size_t i = 0; i < count; i += lanes) {
        std::uint32_t tail[16] = {};
        const std::uint32_t* from = src + i;
        if (count - i < lanes) {
            std::memcpy(tail, from, (count - i) * 4);
            from = tail;
        }
        hn::Vec<PixelBytes> b, g, r, a;
        hn::LoadInterleaved4(bytes, reinterpret_cast<const std::uint8_t*>(from), b, g, r, a);
        hn::StoreU(fromBytes(b), d, dst.plane[0] + i);
        hn::StoreU(fromBytes(g), d, dst.plane[1] + i);
        hn::StoreU(fromBytes(r), d, dst.plane[2] + i);
        hn::StoreU(fromBytes(a), d, dst.plane[3] + i);
    }
}

// A plane value as a byte. The offset is the rounding half plus the dither.
HWY_INLINE hn::Vec<PixelBytes> toBytes(FloatVector value, FloatVector offset) {
    return hn::DemoteTo(PixelBytes(), hn::ConvertTo(PixelInts(), plusProduct(offset, value, constant(255))));
}

void pack(std::uint32_t* dst, FloatRow src, const float* dither, std::size_t count) {
    const Floats d;
    const PixelBytes bytes;
    const std::size_t lanes = hn::Lanes(d);
    for (std::size_t i = 0; i < count; i += lanes) {
        const Pixels p = loadAt(src, i);
        const FloatVector a = unit(p.a), zero = hn::Zero(d);
        const FloatVector offset =
            dither ? hn::Add(hn::LoadU(d, dither + i), constant(0.5f)) : constant(0.5f);
        std::uint32_t tail[16];
        std::uint32_t* to = count - i < lanes ? tail : dst + i;
        hn::StoreInterleaved4(toBytes(hn::Min(hn::Max(p.b, zero), a), offset),
            toBytes(hn::Min(hn::Max(p.g, zero), a), offset), toBytes(hn::Min(hn::Max(p.r, zero), a), offset),
            toBytes(a, offset), bytes, reinterpret_cast<std::uint8_t*>(to));
        if (to == tail) std::memcpy(dst + i, tail, (count - i) * 4);
    }
}

void overFloat(FloatRow dst, FloatRow src, std::size_t count) {
    forPixels(dst, count, [&](const Pixels& p, std::size_t i) HWY_ATTR {
        const Pixels s = loadAt(src, i);
        const FloatVector rest = hn::Sub(constant(1), unit(s.a));
        return Pixels{plusProduct(s.b, p.b, rest), plusProduct(s.g, p.g, rest), plusProduct(s.r, p.r, rest),
            plusProduct(s.a, p.a, rest)};
    });
}

void gain(FloatRow row, const float* perPixel, std::size_t count) {
    forPixels(row, count, [&](const Pixels& p, std::size_t i) HWY_ATTR {
        const FloatVector k = hn::LoadU(Floats(), perPixel + i);
        return Pixels{hn::Mul(p.b, k), hn::Mul(p.g, k), hn::Mul(p.r, k), p.a};
    });
}

void scaleAll(FloatRow row, float factor, std::size_t count) {
    const FloatVector k = constant(factor);
    forPixels(row, count, [&](const Pixels& p, std::size_t) HWY_ATTR {
        return Pixels{hn::Mul(p.b, k), hn::Mul(p.g, k), hn::Mul(p.r, k), hn::Mul(p.a, k)};
    });
}

HWY_INLINE FloatVector weighed(const Pixels& p, const float weights[4]) {
    return plusProduct(plusProduct(plusProduct(hn::Mul(p.r, constant(weights[0])), p.g, constant(weights[1])),
                           p.b, constant(weights[2])),
        p.a, constant(weights[3]));
}

void colorMatrix(FloatRow row, const MatrixRows& matrix, std::size_t count) {
    forPixels(row, count, [&](const Pixels& p, std::size_t) HWY_ATTR {
        const Pixels s = straight(p);
        return premultiplied(
            {weighed(s, matrix.b), weighed(s, matrix.g), weighed(s, matrix.r), unit(weighed(s, matrix.a))});
    });
}

void colorControls(FloatRow row, const ControlValues& values, std::size_t count) {
    const FloatVector middle = constant(0.5f), contrast = constant(values.contrast),
                      lift = constant(values.brightness + 0.5f), saturation = constant(values.saturation);
    forPixels(row, count, [&](const Pixels& p, std::size_t) HWY_ATTR {
        const Pixels s = straight(p);
        const FloatVector grey = luma(s);
        const auto apply = [&](FloatVector v) HWY_ATTR {
            return unit(plusProduct(lift, hn::Sub(mixed(grey, v, saturation), middle), contrast));
        };
        return premultiplied({apply(s.b), apply(s.g), apply(s.r), p.a});
    });
}

void monochrome(FloatRow row, const float color[3], float intensity, std::size_t count) {
    const FloatVector r = constant(color[0]), g = constant(color[1]), b = constant(color[2]),
                      t = constant(intensity);
    forPixels(row, count, [&](const Pixels& p, std::size_t) HWY_ATTR {
        const FloatVector grey = luma(p);   // linear in the colour, so premultiplied values serve
        return Pixels{mixed(p.b, hn::Mul(grey, b), t), mixed(p.g, hn::Mul(grey, g), t),
            mixed(p.r, hn::Mul(grey, r), t), p.a};
    });
}

void falseColor(FloatRow row, const ColorPair& colors, std::size_t count) {
    const float *dark = colors.dark, *light = colors.light;
    forPixels(row, count, [&](const Pixels& p, std::size_t) HWY_ATTR {
        const FloatVector t = unit(luma(straight(p)));
        const auto channel = [&](int c) HWY_ATTR {
            return hn::Mul(p.a, mixed(constant(dark[c] * dark[3]), constant(light[c] * light[3]), t));
        };
        return Pixels{channel(2), channel(1), channel(0),
            hn::Mul(p.a, mixed(constant(dark[3]), constant(light[3]), t))};
    });
}

// dst + glow (1 - dst): light that never clips and leaves premultiplied values in order.
void screen(FloatRow dst, FloatRow glow, float intensity, std::size_t count) {
    const FloatVector k = constant(intensity);
    forPixels(dst, count, [&](const Pixels& p, std::size_t i) HWY_ATTR {
        const Pixels s = loadAt(glow, i);
        const auto lit = [&](FloatVector v, FloatVector light) HWY_ATTR {
            return plusProduct(v, unit(hn::Mul(light, k)), hn::Sub(constant(1), v));
        };
        return Pixels{lit(p.b, s.b), lit(p.g, s.g), lit(p.r, s.r), lit(p.a, s.a)};
    });
}

void fillColor(Kernels& table) {
    table.unpack = unpack;
    table.pack = pack;
    table.overFloat = overFloat;
    table.gain = gain;
    table.scaleAll = scaleAll;
    table.colorMatrix = colorMatrix;
    table.colorControls = colorControls;
    table.monochrome = monochrome;
    table.falseColor = falseColor;
    table.screen = screen;
}

}   // namespace tavix::imaging::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tavix::imaging {
HWY_EXPORT(fillColor);
void fillColorKernels(Kernels& table) { HWY_DYNAMIC_DISPATCH(fillColor)(table); }
}   // namespace tavix::imaging
#endif
