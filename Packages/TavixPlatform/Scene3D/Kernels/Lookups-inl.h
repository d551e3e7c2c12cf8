// What shading looks up: the surroundings, the reflectance table, shadows, and how lights fade.
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
HWY_INLINE Lanes3 environmentAt(
    const Illumination& illumination, const Lanes3& direction, FloatVector roughness) {
    const Floats d;
    const Ints di;
    const Four four;
    const IntVector level = levelOf(roughness);
    const FloatVector side = hn::GatherIndex(d, illumination.environmentSides, level);
    const IntVector first = hn::GatherIndex(di, illumination.environmentFirst, level);
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
    const float* texels = illumination.environment.environment->texels().data();
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

// Light left at a squared distance of world space: it falls by the light's power, and fades to nothing at its
// radius as (1 - (d / r)^4)² (Karis, 2013).
HWY_INLINE FloatVector attenuation(const PreparedLight& light, FloatVector square) {
    const FloatVector own = hn::Mul(square, constant(light.unitsPerLength * light.unitsPerLength));
    const FloatVector ratio = hn::Mul(own, constant(light.inverseRadius * light.inverseRadius));
    const FloatVector window = squared(unit(hn::Sub(constant(1), squared(ratio))));
    const FloatVector limited = hn::Max(own, constant(1e-4f));   // a light is not smaller than a hundredth
    if (light.halfExponent == 1) return hn::Div(window, limited);
    return hn::Mul(window, exp2(hn::Mul(log2(limited), constant(-light.halfExponent))));
}

// A place on a shadow map: what 1 / depth a plane through the point has around it. That changes evenly over
// the map, by n / (n . p) per unit of distance at depth 1, so depths are compared with the plane and a
// slanted surface does not shade itself.
struct ShadowPoint {
    IntVector texel;          // the one whose middle lies below and left of the point
    FloatVector s, t;         // from there, 0 to 1
    FloatVector depth;        // at that texel
    FloatVector perX, perY;   // to the next ones
};

HWY_INLINE FloatVector isLitAt(const ShadowMap& map, const ShadowPoint& p, int x, int y) {
    const IntVector texel = hn::Add(p.texel, constantInt(y * ShadowMap::stridePx + x));
    const FloatVector stored = hn::GatherIndex(Floats(), map.inverseDepths.data(), texel);
    const FloatVector own = sumOf(p.perX, constant(float(x)), sumOf(p.perY, constant(float(y)), p.depth));
    return hn::IfThenElseZero(hn::Ge(own, stored), constant(1));
}

// The mean over 6 by 6 texels, with weights that fall smoothly to nothing at 3 texels from the point.
HWY_INLINE FloatVector softLight(const ShadowMap& map, const ShadowPoint& p) {
    constexpr int reach = 3;
    const auto weigh = [](FloatVector at, FloatVector(&weights)[2 * reach]) HWY_ATTR {
        FloatVector sum = constant(0);
        for (int i = 0; i < 2 * reach; ++i) {
            const FloatVector distance = hn::Sub(constant(float(i + 1 - reach)), at);
            weights[i] =
                squared(hn::Sub(constant(1), hn::Mul(squared(distance), constant(1.0f / (reach * reach)))));
            sum = hn::Add(sum, weights[i]);
        }
        return sum;
    };
    FloatVector across[2 * reach], up[2 * reach];
    const FloatVector whole = hn::Mul(weigh(p.s, across), weigh(p.t, up));
    FloatVector sum = constant(0);
    for (int j = 0; j < 2 * reach; ++j) {
        FloatVector row = constant(0);
        for (int i = 0; i < 2 * reach; ++i)
            row = sumOf(isLitAt(map, p, i + 1 - reach, j + 1 - reach), across[i], row);
        sum = sumOf(row, up[j], sum);
    }
    return hn::Div(sum, whole);
}

HWY_INLINE ShadowPoint shadowPointOf(const ShadowMap& map, const Lanes3& position, const Lanes3& normal) {
    const Ints di;
    const View& view = map.view;
    const Lanes3 right = constant(view.right), up = constant(view.up), forward = constant(view.forward);
    const FloatVector focal = constant(view.focalPx), near = constant(view.near);
    const Lanes3 seen = minus(position, constant(view.eye));
    // A little off the surface, for what its curve adds.
    const FloatVector texel = hn::Div(hn::Max(dot(seen, forward), near), focal);
    const Lanes3 lifted = plus(seen, times(normal, texel));
    const FloatVector depth = hn::Max(dot(lifted, forward), near), inverseDepth = inverse(depth);
    const FloatVector scale = hn::Mul(focal, inverseDepth);
    const FloatVector half = constant(0.5f * ShadowMap::sidePx + ShadowMap::marginPx - 0.5f);
    const auto limited = [](FloatVector v) HWY_ATTR {
        constexpr float least = ShadowMap::marginPx - 1, most = ShadowMap::stridePx - ShadowMap::marginPx;
        return hn::Min(hn::Max(v, constant(least)), constant(most));
    };
    const FloatVector x = limited(sumOf(dot(lifted, right), scale, half)),
                      y = limited(sumOf(dot(lifted, up), scale, half));
    const FloatVector wholeX = hn::Floor(x), wholeY = hn::Floor(y);
    ShadowPoint p;
    p.s = hn::Sub(x, wholeX);
    p.t = hn::Sub(y, wholeY);
    p.texel = hn::Add(
        hn::Mul(hn::ConvertTo(di, wholeY), constantInt(ShadowMap::stridePx)), hn::ConvertTo(di, wholeX));
    const FloatVector steep = hn::Min(dot(normal, lifted), hn::Mul(depth, constant(-0.05f)));
    const FloatVector perTexel = hn::Div(constant(1 / view.focalPx), steep);
    p.perX = hn::Mul(dot(normal, right), perTexel);
    p.perY = hn::Mul(dot(normal, up), perTexel);
    constexpr float bias = 1.0005f;
    p.depth = hn::Sub(hn::Mul(inverseDepth, constant(bias)), sumOf(p.s, p.perX, hn::Mul(p.t, p.perY)));
    return p;
}

// The share of a light's light that reaches points. Where sixteen texels over the filter's width agree, the
// others are taken to as well; only edges of shadows are looked at whole. Of neighbours in a row at least one
// is asked: where two shadows nearly touch, the light between them is narrow.
HWY_INLINE FloatVector litFraction(const ShadowMap& map, const Lanes3& position, const Lanes3& normal) {
    const Floats d;
    const ShadowPoint p = shadowPointOf(map, position, normal);
    FloatVector lit = constant(0);
    for (const int y : {-2, 0, 1, 3})
        for (const int x : {-2, 0, 1, 3}) lit = hn::Add(lit, isLitAt(map, p, x, y));
    const auto isAgreed = hn::Or(hn::Eq(lit, constant(0)), hn::Eq(lit, constant(16)));
    const FloatVector agreed = hn::Min(lit, constant(1));
    if (hn::AllTrue(d, isAgreed)) return agreed;
    return hn::IfThenElse(isAgreed, agreed, softLight(map, p));
}

}   // namespace tavix::scene3d::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
