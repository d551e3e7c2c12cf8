// A vector of surface points: where triangles meet the eye's rays, and adding their light to the tile's sums.
#if defined(TAVIX_SCENE3D_SURFACES_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef TAVIX_SCENE3D_SURFACES_INL_H
#undef TAVIX_SCENE3D_SURFACES_INL_H
#else
#define TAVIX_SCENE3D_SURFACES_INL_H
#endif

#include "TavixPlatform/Scene3D/Kernels/Lanes-inl.h"
#include "TavixPlatform/Scene3D/Kernels/SceneKernels.h"

#include <algorithm>

HWY_BEFORE_NAMESPACE();
namespace tavix::scene3d::HWY_NAMESPACE {

// A vector of points that are shaded together: requests, or a part of a run.
struct Batch {
    const Request* requests;
    const PixelRun* run;   // null for requests
    int firstOfRun;
    std::size_t count;
};

// Calls shade(batch) for all that is asked for.
template <class Shade> HWY_INLINE void forEachBatch(const ShadingJob& job, const Shade& shade) {
    const std::size_t lanes = hn::Lanes(Floats());
    for (std::size_t i = 0; i < job.requests.size(); i += lanes)
        shade(Batch{job.requests.data() + i, nullptr, 0, std::min(lanes, job.requests.size() - i)});
    for (const PixelRun& run : job.runs)
        for (int i = 0; i < run.length; i += int(lanes))
            shade(Batch{nullptr, &run, i, std::min(lanes, std::size_t(run.length - i))});
}

// Places in pixels of the frame.
struct Places {
    FloatVector x, y;
};
HWY_INLINE Places placesOfRun(const Shades& shades, const Batch& batch) {
    const int x = shades.x0 + batch.run->x + batch.firstOfRun, y = shades.y0 + batch.run->y;
    const FloatVector half = constant(0.5f);
    return {plus(hn::ConvertTo(Floats(), hn::Iota(Ints(), x)), half), plus(constant(float(y)), half)};
}
// The middle of a request's samples.
HWY_INLINE Vec2 placeOf(const Shades& shades, const Request& r) {
    return {float(shades.x0) + r.x, float(shades.y0) + r.y};
}
// The same from the triangle's anchor.
HWY_INLINE Vec2 anchorOf(const Triangle& t) {
    constexpr float subpixel = 1.0f / (1 << subpixelBits);
    return {float(t.x[0]) * subpixel, float(t.y[0]) * subpixel};
}
HWY_INLINE Vec2 fromAnchor(const Triangle& t, Vec2 place) {
    const Vec2 anchor = anchorOf(t);
    return {place.x - anchor.x, place.y - anchor.y};
}
HWY_INLINE Places fromAnchor(const Triangle& t, const Places& places) {
    const Vec2 anchor = anchorOf(t);
    return {minus(places.x, constant(anchor.x)), minus(places.y, constant(anchor.y))};
}

// Bright samples count less, as 1 / (1 + luminance): the mean then stays near the middle of what the eye
// makes of the samples, and a tone curve that follows does not leave the edge of a highlight jagged. Where
// one surface covers the whole pixel the weight cancels.
HWY_INLINE void addLight(const Shades& shades, const Batch& batch, const Lanes3& light) {
    const Floats d;
    const Four four;
    const FloatVector luminance = dot(light, constant(Vec3{0.2126f, 0.7152f, 0.0722f}));
    const FloatVector weight = inverse(hn::Add(constant(1), luminance));
    const Lanes3 weighed = times(light, weight);
    HWY_ALIGN float values[mostLanes * 4];
    if (batch.run) {   // nobody else adds to these pixels
        float* sums = shades.sums + std::size_t(batch.run->y * tilePx + batch.run->x + batch.firstOfRun) * 4;
        const bool isWhole = batch.count == hn::Lanes(d);
        const Lanes3 whole = times(weighed, constant(shades.samplesPerPixel));
        hn::StoreInterleaved4(whole.x, whole.y, whole.z, times(weight, constant(shades.samplesPerPixel)), d,
            isWhole ? sums : values);
        if (!isWhole) std::copy_n(values, batch.count * 4, sums);
        return;
    }
    hn::StoreInterleaved4(weighed.x, weighed.y, weighed.z, weight, d, values);
    for (std::size_t i = 0; i < batch.count; ++i) {
        const Request& r = batch.requests[i];
        float* sum = shades.sums + std::size_t(r.pixel) * 4;
        const FourVector part = hn::Mul(hn::Load(four, values + i * 4), hn::Set(four, r.count));
        hn::Store(hn::Add(hn::Load(four, sum), part), four, sum);
    }
}

}   // namespace tavix::scene3d::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
