// Light on physically based surfaces: GGX (Walter et al., 2007) with the height-correlated shadowing of Smith
// (Heitz, 2014) over a matte base, under an optional clearcoat of the same kind. What the upper layer
// sends back, the lower one does not get.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "TavixPlatform/Scene3D/Kernels/Lit.cpp"
#include <hwy/foreach_target.h>

#include "TavixPlatform/Scene3D/Kernels/Lookups-inl.h"
#include "TavixPlatform/Scene3D/Kernels/Surfaces-inl.h"

#include <algorithm>

HWY_BEFORE_NAMESPACE();
namespace tavix::scene3d::HWY_NAMESPACE {

constexpr float inversePi = 0.31830988618f;
constexpr float leastRoughness = 0.045f;   // keeps a highlight wider than rounding errors

struct Points {
    Lanes3 position, normal, eye;   // `eye`: unit, towards the camera
    FloatVector facing;             // cosine between normal and eye, above 0
    FloatVector variance;           // of the normal
};

// What triangles give at their points: the normal and 1 / depth, each divided by depth.
struct Given {
    Places place;
    Lanes3 normal;
    FloatVector inverseDepth, variance;
};
HWY_INLINE Given givenByOne(const Shades& shades, const Batch& batch) {
    const Triangle& t = *batch.run->triangle;
    Given g;
    g.place = placesOfRun(shades, batch);
    const Places at = fromAnchor(t, g.place);
    const auto plane = [&](float perX, float perY, float atAnchor) HWY_ATTR {
        return plus(plus(times(constant(perX), at.x), times(constant(perY), at.y)), constant(atAnchor));
    };
    g.normal = {plane(t.perX.nx, t.perY.nx, t.atAnchor.nx), plane(t.perX.ny, t.perY.ny, t.atAnchor.ny),
        plane(t.perX.nz, t.perY.nz, t.atAnchor.nz)};
    g.inverseDepth = plane(t.perX.inverseDepth, t.perY.inverseDepth, t.atAnchor.inverseDepth);
    g.variance = constant(t.normalVariance);
    return g;
}
HWY_INLINE Given givenByEach(const Shades& shades, const Batch& batch) {
    const Floats d;
    const Four four;
    HWY_ALIGN float attributes[mostLanes * 4], x[mostLanes], y[mostLanes], variance[mostLanes];
    for (std::size_t i = 0; i < hn::Lanes(d); ++i) {
        const Request& r = batch.requests[i < batch.count ? i : 0];   // lanes without one repeat the first
        const Triangle& t = *r.triangle;
        const Vec2 place = placeOf(shades, r), offset = fromAnchor(t, place);
        x[i] = place.x;
        y[i] = place.y;
        variance[i] = t.normalVariance;
        const FourVector value = hn::Add(hn::Add(hn::Mul(hn::Load(four, &t.perX.nx), hn::Set(four, offset.x)),
                                             hn::Mul(hn::Load(four, &t.perY.nx), hn::Set(four, offset.y))),
            hn::Load(four, &t.atAnchor.nx));
        hn::Store(value, four, attributes + i * 4);
    }
    Given g;
    hn::LoadInterleaved4(d, attributes, g.normal.x, g.normal.y, g.normal.z, g.inverseDepth);
    g.place = {hn::Load(d, x), hn::Load(d, y)};
    g.variance = hn::Load(d, variance);
    return g;
}

// Follows the rays of the eye back into the world.
HWY_INLINE Points pointsOf(const Shades& shades, const View& camera, const Batch& batch) {
    const Given given = batch.run ? givenByOne(shades, batch) : givenByEach(shades, batch);
    const FloatVector perPixel = constant(1 / camera.focalPx);
    const FloatVector rayX = times(minus(given.place.x, constant(0.5f * float(camera.widthPx))), perPixel);
    const FloatVector rayY = times(minus(given.place.y, constant(0.5f * float(camera.heightPx))), perPixel);
    const Lanes3 ray = plus(constant(camera.forward),
        plus(times(constant(camera.right), rayX), times(constant(camera.up), rayY)));
    const FloatVector depth = inverse(hn::Max(given.inverseDepth, constant(1e-9f)));
    Points p;
    p.position = plus(constant(camera.eye), times(ray, depth));
    p.eye = normalized(times(ray, constant(-1)));
    p.normal = normalized(given.normal);
    p.facing = hn::Max(dot(p.normal, p.eye), constant(1e-3f));
    p.variance = given.variance;
    return p;
}

// A roughness widened by how much the normal varies within the pixel, so that small bevels do not sparkle.
struct Gloss {
    FloatVector alpha2;   // GGX's alpha, squared
    FloatVector roughness;
};
HWY_INLINE Gloss glossOf(float roughness, FloatVector variance) {
    const float r = std::max(roughness, leastRoughness), alpha = r * r;
    const FloatVector widened = hn::Min(hn::Add(variance, variance), constant(0.18f));
    Gloss gloss;
    gloss.alpha2 = hn::Min(hn::Add(constant(alpha * alpha), widened), constant(1));
    gloss.roughness = hn::Sqrt(hn::Sqrt(gloss.alpha2));
    return gloss;
}

// The part of the reflection that the light's direction decides: distribution times visibility.
HWY_INLINE FloatVector lobe(FloatVector alpha2, FloatVector nh, FloatVector nl, FloatVector nv) {
    const FloatVector one = constant(1);
    const FloatVector base = sumOf(squared(nh), minus(alpha2, one), one);
    const FloatVector distribution =
        hn::Div(times(alpha2, constant(inversePi)), hn::Max(squared(base), constant(1e-12f)));
    const FloatVector rest = minus(one, alpha2);
    const FloatVector shadowing = plus(times(nl, hn::Sqrt(sumOf(squared(nv), rest, alpha2))),
        times(nv, hn::Sqrt(sumOf(squared(nl), rest, alpha2))));
    return times(distribution, hn::Div(constant(0.5f), hn::Max(shadowing, constant(1e-6f))));
}

HWY_INLINE FloatVector fifthPower(FloatVector v) {
    const FloatVector v2 = squared(v);
    return times(squared(v2), v);
}

// Without reflectance towards the normal there is none at a grazing angle either.
HWY_INLINE float grazingReflectance(float reflectance) { return std::min(50 * reflectance, 1.0f); }
HWY_INLINE float grazingReflectance(const Vec3& f0) {
    return grazingReflectance(std::max({f0.x, f0.y, f0.z}));
}

// A surface under one direction of view: how its layers share the light.
struct Layers {
    Gloss base, coat;
    Lanes3 matte;    // colour of the matte part
    Lanes3 gain;     // what repeated bounces give back to the glossy part (Turquin, 2019)
    Lanes3 glossy;   // light from everywhere by the glossy part
    FloatVector coatGlossy;
    FloatVector underCoat;   // share of the light that passes the clearcoat
};

HWY_INLINE Layers layersOf(const Illumination& illumination, const Surface& surface, const Points& p) {
    const FloatVector one = constant(1);
    Layers layers;
    layers.base = glossOf(surface.roughness, p.variance);
    const ReflectancePair pair = reflectanceAt(*illumination.reflectance, layers.base.roughness, p.facing);
    const FloatVector lost = minus(inverse(hn::Max(plus(pair.scale, pair.bias), constant(0.1f))), one);
    const auto single = [&](float f0, float grazing) HWY_ATTR {
        return sumOf(constant(f0), pair.scale, times(pair.bias, constant(grazing)));
    };
    const auto whole = [&](float f0, float grazing)
                           HWY_ATTR { return times(single(f0, grazing), sumOf(constant(f0), lost, one)); };
    const Vec3 &mean = surface.reflectance, &metal = surface.metalReflectance;
    const float meanGrazing = grazingReflectance(mean), metalGrazing = grazingReflectance(metal);
    const FloatVector plain = whole(surface.plainReflectance, grazingReflectance(surface.plainReflectance));
    const FloatVector plainShare = times(plain, constant(1 - surface.metallic));
    const auto channel = [&](float f0, float metalF0, FloatVector& gain, FloatVector& glossy) HWY_ATTR {
        glossy = sumOf(whole(metalF0, metalGrazing), constant(surface.metallic), plainShare);
        gain = hn::Div(glossy, hn::Max(single(f0, meanGrazing), constant(1e-5f)));
    };
    channel(mean.x, metal.x, layers.gain.x, layers.glossy.x);
    channel(mean.y, metal.y, layers.gain.y, layers.glossy.y);
    channel(mean.z, metal.z, layers.gain.z, layers.glossy.z);
    layers.matte = times(constant(surface.diffuse), minus(one, plain));
    if (surface.clearcoat > 0) {
        layers.coat = glossOf(surface.clearcoatRoughness, p.variance);
        const ReflectancePair coat =
            reflectanceAt(*illumination.reflectance, layers.coat.roughness, p.facing);
        layers.coatGlossy = times(sumOf(constant(0.04f), coat.scale, coat.bias), constant(surface.clearcoat));
        layers.underCoat = minus(one, layers.coatGlossy);
    }
    return layers;
}

HWY_INLINE Lanes3 fromEnvironment(
    const Illumination& illumination, const Surface& surface, const Points& p, const Layers& layers) {
    const FloatVector twice = times(constant(2), dot(p.normal, p.eye));
    const Lanes3 mirrored = minus(times(p.normal, twice), p.eye);
    const Lanes3 reflection = environmentAt(illumination, mirrored, layers.base.roughness);
    const Lanes3 ambient = irradianceAt(*illumination.environment.environment, p.normal);
    Lanes3 sum = plus(times(layers.matte, ambient), times(layers.glossy, reflection));
    if (surface.clearcoat > 0) {
        const Lanes3 coat = environmentAt(illumination, mirrored, layers.coat.roughness);
        sum = plus(times(sum, layers.underCoat), times(coat, layers.coatGlossy));
    }
    return times(sum, constant(illumination.environment.intensity));
}

HWY_INLINE Lanes3 fromLight(
    const PreparedLight& light, const Surface& surface, const Points& p, const Layers& layers) {
    const FloatVector one = constant(1), zero = constant(0);
    Lanes3 towards;
    FloatVector strength = one;
    if (light.kind == PreparedLight::Kind::directional) {
        towards = times(constant(light.axis), constant(-1));
    } else {
        const Lanes3 path = minus(constant(light.position), p.position);
        const FloatVector square = hn::Max(dot(path, path), constant(1e-12f));
        towards = times(path, inverse(hn::Sqrt(square)));
        strength = attenuation(light, square);
        if (light.kind == PreparedLight::Kind::spot) {
            const FloatVector along = minus(zero, dot(towards, constant(light.axis)));
            const FloatVector cone =
                unit(times(minus(along, constant(light.outerCosine)), constant(light.inverseConeWidth)));
            strength = times(strength, squared(cone));
        }
    }
    const FloatVector cosine = dot(p.normal, towards);
    strength = times(strength, hn::Max(cosine, zero));
    const auto isLit = hn::Gt(strength, zero);
    if (hn::AllFalse(Floats(), isLit)) return {zero, zero, zero};
    if (light.shadow) strength = times(strength, litFraction(*light.shadow, p.position, p.normal));

    const FloatVector nl = hn::Max(cosine, constant(1e-4f));
    const Lanes3 half = normalized(plus(towards, p.eye));
    const FloatVector nh = unit(dot(p.normal, half)), away = minus(one, unit(dot(towards, half)));
    const FloatVector schlick = fifthPower(away);
    const FloatVector base = lobe(layers.base.alpha2, nh, nl, p.facing);
    const Lanes3 f0 = constant(surface.reflectance);
    const float grazing = grazingReflectance(surface.reflectance);
    const auto channel = [&](FloatVector matte, FloatVector f, FloatVector gain) HWY_ATTR {
        const FloatVector fresnel = sumOf(minus(constant(grazing), f), schlick, f);
        return sumOf(times(base, fresnel), gain, times(matte, constant(inversePi)));
    };
    Lanes3 sum = {channel(layers.matte.x, f0.x, layers.gain.x), channel(layers.matte.y, f0.y, layers.gain.y),
        channel(layers.matte.z, f0.z, layers.gain.z)};
    if (surface.clearcoat > 0) {
        const FloatVector fresnel =
            times(sumOf(constant(0.96f), schlick, constant(0.04f)), constant(surface.clearcoat));
        const FloatVector coat = times(lobe(layers.coat.alpha2, nh, nl, p.facing), fresnel);
        sum = times(sum, layers.underCoat);
        sum = plus(sum, Lanes3{coat, coat, coat});
    }
    return times(times(sum, constant(light.power)), strength);
}

void shadeLit(
    const Shades& shades, const Illumination& illumination, const Surface& surface, const ShadingJob& job) {
    forEachBatch(job, [&](const Batch& batch) HWY_ATTR {
        const Points points = pointsOf(shades, illumination.camera, batch);
        const Layers layers = layersOf(illumination, surface, points);
        Lanes3 sum = {constant(0), constant(0), constant(0)};
        if (illumination.environment.environment)
            sum = fromEnvironment(illumination, surface, points, layers);
        for (const PreparedLight& light : illumination.lights)
            sum = plus(sum, fromLight(light, surface, points, layers));
        addLight(shades, batch, sum);
    });
}

void fillLit(SceneKernels& table) { table.shadeLit = shadeLit; }

}   // namespace tavix::scene3d::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tavix::scene3d {
HWY_EXPORT(fillLit);
void fillLitKernels(SceneKernels& table) { HWY_DYNAMIC_DISPATCH(fillLit)(table); }
}   // namespace tavix::scene3d
#endif
