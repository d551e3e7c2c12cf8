// A vector of surface points: where triangles meet the eye's rays, and adding their light to the tile's sums.
#if defined(TAVIX_SCENE3D_SURFACES_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef TAVIX_SCENE3D_SURFACES_INL_H
#undef TAVIX_SCENE3D_SURFACES_INL_H
#else
#define TAVIX_SCENE3D_SURFACES_INL_H
#endif

#include "TavixPlatform/Scene3D/Kernels/Lanes-inl.h"
#include "TavixPlatform/Scene3D/Kernels/SceneKernels.h"

HWY_BEFORE_NAMESPACE();
namespace tavix::scene3d::HWY_NAMESPACE {

// The middle of a request's samples, in pixels of the frame.
HWY_INLINE Vec2 placeOf(const Shades& shades, const Request& r) {
    const MaskPoint& point = shades.points[r.mask];
    return {float(shades.x0 + r.pixel % tilePx) + point.x, float(shades.y0 + r.pixel / tilePx) + point.y};
}
// The same from the triangle's anchor.
HWY_INLINE Vec2 fromAnchor(const Triangle& t, Vec2 place) {
    constexpr float subpixel = 1.0f / (1 << subpixelBits);
    return {place.x - float(t.x[0]) * subpixel, place.y - float(t.y[0]) * subpixel};
}

// Bright samples count less, as 1 / (1 + luminance): the mean then stays near the middle of what the eye
// makes of the samples, and a tone curve that follows does not leave the edge of a highlight jagged. Where
// one surface covers the whole pixel the weight cancels.
HWY_INLINE void addLight(
    const Shades& shades, const Request* requests, std::size_t count, const Lanes3& light) {
    const Floats d;
    const FloatVector luminance = dot(light, constant(Vec3{0.2126f, 0.7152f, 0.0722f}));
    const FloatVector weight = inverse(hn::Add(constant(1), luminance));
    HWY_ALIGN float values[mostLanes * 4];
    const Lanes3 weighed = times(light, weight);
    hn::StoreInterleaved4(weighed.x, weighed.y, weighed.z, weight, d, values);
    const Four four;
    for (std::size_t i = 0; i < count; ++i) {
        const Request& r = requests[i];
        float* sum = shades.sums + std::size_t(r.pixel) * 4;
        const FourVector part =
            hn::Mul(hn::Load(four, values + i * 4), hn::Set(four, shades.points[r.mask].count));
        hn::Store(hn::Add(hn::Load(four, sum), part), four, sum);
    }
}

}   // namespace tavix::scene3d::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
