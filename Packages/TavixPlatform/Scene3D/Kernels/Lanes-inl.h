// Vectors of floats and what kernels share: arithmetic in short names, normalising, groups of four floats.
#if defined(TAVIX_SCENE3D_LANES_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef TAVIX_SCENE3D_LANES_INL_H
#undef TAVIX_SCENE3D_LANES_INL_H
#else
#define TAVIX_SCENE3D_LANES_INL_H
#endif

#include "TavixPlatform/Scene3D/Frame.h"

#include <cstddef>
#include <cstdint>

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace tavix::scene3d::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;
using Floats = hn::CappedTag<float, 16>;
using Ints = hn::Rebind<std::int32_t, Floats>;
using FloatVector = hn::Vec<Floats>;
using IntVector = hn::Vec<Ints>;
using FloatMask = hn::Mask<Floats>;
using Four = hn::FixedTag<float, 4>;
using FourVector = hn::Vec<Four>;
constexpr std::size_t mostLanes = 16;
// The samples of a cell in vectors.
constexpr int cellVectors = int(samplesPerCell / HWY_MIN(HWY_LANES(float), std::size_t(samplesPerCell)));
constexpr std::size_t cellLanes = samplesPerCell / cellVectors;

HWY_INLINE FloatVector constant(float v) { return hn::Set(Floats(), v); }
HWY_INLINE IntVector constantInt(std::int32_t v) { return hn::Set(Ints(), v); }
HWY_INLINE FloatVector plus(FloatVector a, FloatVector b) { return hn::Add(a, b); }
HWY_INLINE FloatVector minus(FloatVector a, FloatVector b) { return hn::Sub(a, b); }
HWY_INLINE FloatVector times(FloatVector a, FloatVector b) { return hn::Mul(a, b); }
// a b + c, rounded twice.
HWY_INLINE FloatVector sumOf(FloatVector a, FloatVector b, FloatVector c) {
    return hn::Add(hn::Mul(a, b), c);
}
HWY_INLINE FloatVector unit(FloatVector v) { return hn::Min(hn::Max(v, constant(0)), constant(1)); }
HWY_INLINE FloatVector squared(FloatVector v) { return hn::Mul(v, v); }
HWY_INLINE FloatVector inverse(FloatVector v) { return hn::Div(constant(1), v); }

struct Lanes3 {
    FloatVector x, y, z;
};
HWY_INLINE Lanes3 constant(Vec3 v) { return {constant(v.x), constant(v.y), constant(v.z)}; }
HWY_INLINE Lanes3 plus(const Lanes3& a, const Lanes3& b) {
    return {hn::Add(a.x, b.x), hn::Add(a.y, b.y), hn::Add(a.z, b.z)};
}
HWY_INLINE Lanes3 minus(const Lanes3& a, const Lanes3& b) {
    return {hn::Sub(a.x, b.x), hn::Sub(a.y, b.y), hn::Sub(a.z, b.z)};
}
HWY_INLINE Lanes3 times(const Lanes3& a, FloatVector s) {
    return {hn::Mul(a.x, s), hn::Mul(a.y, s), hn::Mul(a.z, s)};
}
HWY_INLINE Lanes3 times(const Lanes3& a, const Lanes3& b) {
    return {hn::Mul(a.x, b.x), hn::Mul(a.y, b.y), hn::Mul(a.z, b.z)};
}
HWY_INLINE FloatVector dot(const Lanes3& a, const Lanes3& b) {
    return sumOf(a.x, b.x, sumOf(a.y, b.y, hn::Mul(a.z, b.z)));
}
HWY_INLINE Lanes3 normalized(const Lanes3& a) {
    const FloatVector size = hn::Sqrt(hn::Max(dot(a, a), constant(1e-30f)));
    return times(a, inverse(size));
}

HWY_INLINE FourVector loadFour(const float* p) { return hn::LoadU(Four(), p); }

}   // namespace tavix::scene3d::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
