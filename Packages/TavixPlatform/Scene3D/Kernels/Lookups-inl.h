// What shading looks up: the surroundings, the reflectance table, shadows, and how lamps fade.
#if defined(TAVIX_SCENE3D_LOOKUPS_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef TAVIX_SCENE3D_LOOKUPS_INL_H
#undef TAVIX_SCENE3D_LOOKUPS_INL_H
#else
#define TAVIX_SCENE3D_LOOKUPS_INL_H
#endif

#include "TavixPlatform/Scene3D/Kernels/Lanes-inl.h"
#include "TavixPlatform/Scene3D/Kernels/SceneKernels.h"

HWY_BEFORE_NAMESPACE();
namespace tavix::scene3d::HWY_NAMESPACE {

// The level that serves a roughness.
HWY_INLINE IntVector levelOf(FloatVector roughness) {
    return hn::NearestInt(hn::Mul(unit(roughness), constant(Environment::levelCount - 1)));
}

struct ReflectancePair {
    FloatVector scale, bias;
};
HWY_INLINE ReflectancePair reflectanceAt(
    const ReflectanceTable& table, FloatVector roughness, FloatVector cosine) {
    const Floats d;
    const Ints di;
    const Four four;
    const FloatVector column = hn::Mul(unit(cosine), constant(ReflectanceTable::cosineCount - 1));
    const FloatVector whole = hn::Floor(column), t = hn::Sub(column, whole);
    const IntVector entry =
        hn::Add(hn::Mul(levelOf(roughness), constantInt(ReflectanceTable::cosineCount + 1)),
            hn::ConvertTo(di, whole));
    HWY_ALIGN std::int32_t index[mostLanes];
    HWY_ALIGN float values[mostLanes * 4];
    hn::Store(entry, di, index);
    for (std::size_t i = 0; i < hn::Lanes(d); ++i)   // an entry and its neighbour at once
        hn::Store(
            hn::LoadU(four, &table.entries[0][0].scale + 2 * std::ptrdiff_t(index[i])), four, values + 4 * i);
    FloatVector scale0, bias0, scale1, bias1;
    hn::LoadInterleaved4(d, values, scale0, bias0, scale1, bias1);
    return {sumOf(hn::Sub(scale1, scale0), t, scale0), sumOf(hn::Sub(bias1, bias0), t, bias0)};
}

// Octahedral coordinates of a direction, 0 to 1 across the map; the upper half lies in the middle.
struct MapPoint {
    FloatVector u, v;
};
HWY_INLINE MapPoint octahedral(const Lanes3& direction) {
    const FloatVector one = constant(1), half = constant(0.5f);
    const FloatVector scale =
        inverse(hn::Add(hn::Abs(direction.x), hn::Add(hn::Abs(direction.y), hn::Abs(direction.z))));
    const FloatVector x = hn::Mul(direction.x, scale), z = hn::Mul(direction.z, scale);
    const auto isBelow = hn::Lt(direction.y, constant(0));
    const FloatVector foldedX = hn::CopySign(hn::Sub(one, hn::Abs(z)), x);
    const FloatVector foldedZ = hn::CopySign(hn::Sub(one, hn::Abs(x)), z);
    return {sumOf(hn::IfThenElse(isBelow, foldedX, x), half, half),
        sumOf(hn::IfThenElse(isBelow, foldedZ, z), half, half)};
}

// Light that a surface of that roughness mirrors from a direction.
HWY_INLINE Lanes3 environmentAt(const Illumination& light, const Lanes3& direction, FloatVector roughness) {
    const Floats d;
    const Ints di;
    const Four four;
    const IntVector level = levelOf(roughness);
    const FloatVector side = hn::GatherIndex(d, light.environmentSides, level);
    const IntVector first = hn::GatherIndex(di, light.environmentFirst, level);
    const MapPoint at = octahedral(direction);
    const FloatVector half = constant(0.5f), one = constant(1);
    const FloatVector u = sumOf(at.u, side, half), v = sumOf(at.v, side, half);
    const FloatVector wholeU = hn::Min(hn::Floor(u), side), wholeV = hn::Min(hn::Floor(v), side);
    const FloatVector s = hn::Sub(u, wholeU), t = hn::Sub(v, wholeV);
    const FloatVector restS = hn::Sub(one, s), restT = hn::Sub(one, t);
    const IntVector stride = hn::Add(hn::ConvertTo(di, side), constantInt(2));
    const IntVector texel =
        hn::Add(first, hn::Add(hn::Mul(hn::ConvertTo(di, wholeV), stride), hn::ConvertTo(di, wholeU)));
    HWY_ALIGN std::int32_t index[mostLanes], strides[mostLanes];
    HWY_ALIGN float w00[mostLanes], w10[mostLanes], w01[mostLanes], w11[mostLanes], values[mostLanes * 4];
    hn::Store(texel, di, index);
    hn::Store(stride, di, strides);
    hn::Store(hn::Mul(restS, restT), d, w00);
    hn::Store(hn::Mul(s, restT), d, w10);
    hn::Store(hn::Mul(restS, t), d, w01);
    hn::Store(hn::Mul(s, t), d, w11);
    const float* texels = light.surroundings.environment->texels().data();
    for (std::size_t i = 0; i < hn::Lanes(d); ++i) {
        const float* lower = texels + std::ptrdiff_t(index[i]) * 4;
        const float* upper = lower + std::ptrdiff_t(strides[i]) * 4;
        const FourVector below = hn::Add(hn::Mul(loadFour(lower), hn::Set(four, w00[i])),
            hn::Mul(loadFour(lower + 4), hn::Set(four, w10[i])));
        const FourVector above = hn::Add(hn::Mul(loadFour(upper), hn::Set(four, w01[i])),
            hn::Mul(loadFour(upper + 4), hn::Set(four, w11[i])));
        hn::Store(hn::Add(below, above), four, values + i * 4);
    }
    Lanes3 result;
    FloatVector unused;
    hn::LoadInterleaved4(d, values, result.x, result.y, result.z, unused);
    return result;
}

// Matte light from all around.
HWY_INLINE Lanes3 irradianceAt(const Environment& environment, const Lanes3& n) {
    const auto& c = environment.irradiance();
    const FloatVector basis[8] = {n.y, n.z, n.x, hn::Mul(n.x, n.y), hn::Mul(n.y, n.z),
        hn::Sub(hn::Mul(constant(3), squared(n.z)), constant(1)), hn::Mul(n.x, n.z),
        hn::Sub(squared(n.x), squared(n.y))};
    Lanes3 sum = constant(c[0]);
    for (std::size_t i = 0; i < 8; ++i) sum = plus(sum, times(constant(c[i + 1]), basis[i]));
    const FloatVector zero = constant(0);
    return {hn::Max(sum.x, zero), hn::Max(sum.y, zero), hn::Max(sum.z, zero)};
}

// The logarithm to base 2 of a positive number, within 1e-6: its exponent, and the series of the inverse
// hyperbolic tangent for the rest.
HWY_INLINE FloatVector log2(FloatVector v) {
    const Floats d;
    const Ints di;
    // Splits so that the rest lies between the square roots of 1/2 and 2.
    const IntVector bits = hn::BitCast(di, v), root = constantInt(0x3f3504f3);
    const IntVector exponent = hn::ShiftRight<23>(hn::Sub(bits, root));
    const FloatVector rest = hn::BitCast(d, hn::Sub(bits, hn::ShiftLeft<23>(exponent)));
    const FloatVector s = hn::Div(hn::Sub(rest, constant(1)), hn::Add(rest, constant(1))), s2 = squared(s);
    FloatVector series = constant(2.8853900818f / 9);
    for (const float n : {7.0f, 5.0f, 3.0f, 1.0f}) series = sumOf(series, s2, constant(2.8853900818f / n));
    return sumOf(series, s, hn::ConvertTo(d, exponent));
}

// 2 to a power between -126 and 126, within 3e-7 of it: the series of the exponential around the nearest
// whole.
HWY_INLINE FloatVector exp2(FloatVector v) {
    const Floats d;
    const FloatVector limited = hn::Min(hn::Max(v, constant(-126)), constant(126));
    const IntVector whole = hn::NearestInt(limited);
    const FloatVector x = hn::Mul(hn::Sub(limited, hn::ConvertTo(d, whole)), constant(0.69314718056f));
    FloatVector series = constant(1);
    for (const float n : {6.0f, 5.0f, 4.0f, 3.0f, 2.0f, 1.0f})
        series = sumOf(hn::Mul(series, x), constant(1 / n), constant(1));
    return hn::Mul(series, hn::BitCast(d, hn::ShiftLeft<23>(hn::Add(whole, constantInt(127)))));
}

// Light left at a squared distance of world space: it falls by the lamp's power, and fades to nothing at its
// radius as (1 - (d / r)^4)² (Karis, 2013).
HWY_INLINE FloatVector attenuation(const Lamp& lamp, FloatVector square) {
    const FloatVector own = hn::Mul(square, constant(lamp.unitsPerLength * lamp.unitsPerLength));
    const FloatVector ratio = hn::Mul(own, constant(lamp.inverseRadius * lamp.inverseRadius));
    const FloatVector window = squared(unit(hn::Sub(constant(1), squared(ratio))));
    const FloatVector limited = hn::Max(own, constant(1e-4f));   // a lamp is not smaller than a hundredth
    if (lamp.halfExponent == 1) return hn::Div(window, limited);
    return hn::Mul(window, exp2(hn::Mul(log2(limited), constant(-lamp.halfExponent))));
}

// The share of a lamp's light that reaches points: 16 depths around each, compared one by one and weighed so
// that the result changes smoothly as a point moves over the map. Depths are compared with the plane through
// the point, so that a slanted surface does not shade itself.
HWY_INLINE FloatVector litFraction(const ShadowMap& map, const Lanes3& position, const Lanes3& normal) {
    const Floats d;
    const Ints di;
    const View& view = map.view;
    const Lanes3 right = constant(view.right), up = constant(view.up), forward = constant(view.forward);
    const FloatVector focal = constant(view.focalPx);
    const Lanes3 seen = minus(position, constant(view.eye));
    // Half a texel off the surface, for what its curve adds.
    const FloatVector texel = hn::Div(hn::Max(dot(seen, forward), constant(view.near)), focal);
    const Lanes3 lifted = plus(seen, times(normal, hn::Mul(texel, constant(0.75f))));
    const FloatVector depth = dot(lifted, forward);
    const auto isBefore = hn::Gt(depth, constant(view.near));
    const FloatVector inverseDepth = inverse(hn::IfThenElse(isBefore, depth, constant(1)));
    const FloatVector scale = hn::Mul(focal, inverseDepth);
    const FloatVector half = constant(0.5f * ShadowMap::sidePx + ShadowMap::marginPx - 0.5f);
    const FloatVector x = sumOf(dot(lifted, right), scale, half), y = sumOf(dot(lifted, up), scale, half);
    const FloatVector least = constant(1), most = constant(ShadowMap::stridePx - 3);
    const FloatVector wholeX = hn::Floor(hn::Min(hn::Max(x, least), most));
    const FloatVector wholeY = hn::Floor(hn::Min(hn::Max(y, least), most));
    const FloatVector s = unit(hn::Sub(x, wholeX)), t = unit(hn::Sub(y, wholeY));

    // 1 / depth of the plane changes evenly over the map: by n / (n . p) per unit of distance at depth 1.
    const FloatVector alongNormal = dot(normal, lifted);
    const FloatVector steep = hn::Min(alongNormal, hn::Mul(depth, constant(-0.05f)));
    const FloatVector perTexel = hn::Div(constant(1 / view.focalPx), steep);
    const FloatVector perX = hn::Mul(dot(normal, right), perTexel), perY = hn::Mul(dot(normal, up), perTexel);
    const FloatVector bias = constant(1.0005f);
    const FloatVector corner = sumOf(
        hn::Sub(constant(-1), s), perX, sumOf(hn::Sub(constant(-1), t), perY, hn::Mul(inverseDepth, bias)));

    const FloatVector one = constant(1);
    const FloatVector weightX[4] = {hn::Sub(one, s), one, one, s},
                      weightY[4] = {hn::Sub(one, t), one, one, t};
    IntVector index =
        hn::Add(hn::Mul(hn::Sub(hn::ConvertTo(di, wholeY), constantInt(1)), constantInt(ShadowMap::stridePx)),
            hn::Sub(hn::ConvertTo(di, wholeX), constantInt(1)));
    FloatVector sum = constant(0), rowDepth = corner;
    for (int j = 0; j < 4; ++j) {
        FloatVector row = constant(0), own = rowDepth;
        for (int i = 0; i < 4; ++i) {
            const FloatVector stored =
                hn::GatherIndex(d, map.inverseDepths.data(), hn::Add(index, constantInt(i)));
            row = hn::Add(row, hn::IfThenElseZero(hn::Ge(own, stored), weightX[i]));
            own = hn::Add(own, perX);
        }
        sum = sumOf(row, weightY[j], sum);
        index = hn::Add(index, constantInt(ShadowMap::stridePx));
        rowDepth = hn::Add(rowDepth, perY);
    }
    return hn::IfThenElse(isBefore, hn::Mul(sum, constant(1.0f / 9)), one);
}

}   // namespace tavix::scene3d::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
