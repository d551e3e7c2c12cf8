// From sums of light to pixels.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "TavixPlatform/Scene3D/Kernels/Resolve.cpp"
#include <hwy/foreach_target.h>

#include "TavixPlatform/Scene3D/Kernels/Lanes-inl.h"
#include "TavixPlatform/Scene3D/Kernels/SceneKernels.h"
#include "TavixPlatform/Scene3D/TransferCurve.h"

#include <algorithm>

HWY_BEFORE_NAMESPACE();
namespace tavix::scene3d::HWY_NAMESPACE {

using HalfWords = hn::Rebind<std::uint16_t, Floats>;
using PixelBytes = hn::Rebind<std::uint8_t, Floats>;

struct Resolved {
    Lanes3 color;   // not multiplied by alpha
    FloatVector alpha;
};
HWY_INLINE Resolved load(const float* sums, const std::uint8_t* covered, float perSample) {
    const Floats d;
    Lanes3 sum;
    FloatVector weight;
    hn::LoadInterleaved4(d, sums, sum.x, sum.y, sum.z, weight);
    const auto count = hn::ConvertTo(d, hn::PromoteTo(Ints(), hn::LoadU(PixelBytes(), covered)));
    const auto isEmpty = hn::Le(weight, constant(0));
    const FloatVector scale =
        hn::IfThenZeroElse(isEmpty, inverse(hn::IfThenElse(isEmpty, constant(1), weight)));
    return {times(sum, scale), hn::Mul(count, constant(perSample))};
}

HWY_INLINE bool isClear(const std::uint8_t* covered) {
    return hn::AllTrue(PixelBytes(), hn::Eq(hn::LoadU(PixelBytes(), covered), hn::Zero(PixelBytes())));
}

// The nearest 16-bit float, of equally near ones the even one. Only for 0 and above; limited to the largest.
HWY_INLINE hn::Vec<HalfWords> toHalf(FloatVector v) {
    const Ints di;
    const FloatVector limited = hn::Min(v, constant(65504));
    const IntVector bits = hn::BitCast(di, limited);
    const IntVector even = hn::And(hn::ShiftRight<13>(bits), constantInt(1));
    const IntVector rounded = hn::Add(bits, hn::Add(constantInt(0xfff), even));
    const IntVector normal = hn::ShiftRight<13>(hn::Sub(rounded, constantInt((127 - 15) << 23)));
    const IntVector small = hn::NearestInt(hn::Mul(limited, constant(16777216)));   // steps of 2^-24
    const auto isSmall = hn::RebindMask(di, hn::Lt(limited, constant(6.103515625e-5f)));
    return hn::DemoteTo(HalfWords(), hn::IfThenElse(isSmall, small, normal));
}

void resolveHalf(
    std::uint16_t* dst, const float* sums, const std::uint8_t* covered, float perSample, std::size_t count) {
    const std::size_t lanes = hn::Lanes(Floats());
    for (std::size_t i = 0; i < count; i += lanes) {
        if (isClear(covered + i)) {
            std::fill_n(dst + i * 4, std::min(lanes, count - i) * 4, std::uint16_t(0));
            continue;
        }
        const Resolved r = load(sums + i * 4, covered + i, perSample);
        std::uint16_t tail[mostLanes * 4];
        const bool isWhole = i + lanes <= count;
        const Lanes3 color = times(r.color, r.alpha);
        hn::StoreInterleaved4(toHalf(color.x), toHalf(color.y), toHalf(color.z), toHalf(r.alpha), HalfWords(),
            isWhole ? dst + i * 4 : tail);
        if (!isWhole) std::copy_n(tail, (count - i) * 4, dst + i * 4);
    }
}

// sRGB-encoded, times alpha, as a byte.
HWY_INLINE hn::Vec<PixelBytes> toByte(FloatVector linear, FloatVector alpha) {
    const Floats d;
    const Ints di;
    const IntVector entry = hn::NearestInt(hn::Mul(hn::Sqrt(unit(linear)), constant(rootTableSize - 1)));
    const FloatVector encoded = hn::GatherIndex(d, srgbOfRoots().data(), entry);
    return hn::DemoteTo(
        PixelBytes(), hn::ConvertTo(di, sumOf(hn::Mul(encoded, alpha), constant(255), constant(0.5f))));
}

void resolveBytes(
    std::uint32_t* dst, const float* sums, const std::uint8_t* covered, float perSample, std::size_t count) {
    const Floats d;
    const std::size_t lanes = hn::Lanes(d);
    for (std::size_t i = 0; i < count; i += lanes) {
        if (isClear(covered + i)) {
            std::fill_n(dst + i, std::min(lanes, count - i), 0u);
            continue;
        }
        const Resolved r = load(sums + i * 4, covered + i, perSample);
        const auto alpha =
            hn::DemoteTo(PixelBytes(), hn::ConvertTo(Ints(), sumOf(r.alpha, constant(255), constant(0.5f))));
        std::uint32_t tail[mostLanes];
        const bool isWhole = i + lanes <= count;
        hn::StoreInterleaved4(toByte(r.color.z, r.alpha), toByte(r.color.y, r.alpha),
            toByte(r.color.x, r.alpha), alpha, PixelBytes(),
            reinterpret_cast<std::uint8_t*>(isWhole ? dst + i : tail));
        if (!isWhole) std::copy_n(tail, count - i, dst + i);
    }
}

void fillResolve(SceneKernels& table) {
    table.resolveHalf = resolveHalf;
    table.resolveBytes = resolveBytes;
}

}   // namespace tavix::scene3d::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tavix::scene3d {
HWY_EXPORT(fillResolve);
void fillResolveKernels(SceneKernels& table) { HWY_DYNAMIC_DISPATCH(fillResolve)(table); }
}   // namespace tavix::scene3d
#endif
