// Surfaces that show a colour or a texture as it stands.
//
// A pixel's footprint on the texture is filtered by a grid of bilinear probes on a level where it is one to
// three texels wide: sharper than blending levels, and one probe exactly on a texel where texels and pixels
// meet one to one.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "TavixPlatform/Scene3D/Kernels/Textured.cpp"
#include <hwy/foreach_target.h>

#include "TavixPlatform/Scene3D/Kernels/Surfaces-inl.h"
#include "TavixPlatform/Scene3D/TransferCurve.h"

#include <algorithm>

HWY_BEFORE_NAMESPACE();
namespace tavix::scene3d::HWY_NAMESPACE {

// Footprints of a vector of requests, in texels of level 0.
struct Footprints {
    HWY_ALIGN float u[mostLanes], v[mostLanes];               // of the pixel's middle
    HWY_ALIGN float acrossU[mostLanes], acrossV[mostLanes];   // to the next pixel on the right
    HWY_ALIGN float upU[mostLanes], upV[mostLanes];           // and above
    HWY_ALIGN float acrossLength[mostLanes], upLength[mostLanes];
    HWY_ALIGN std::int32_t level[mostLanes];
};

constexpr int mostProbes = 8;   // along a side of the footprint

// The planes of texture coordinates and of 1 / depth, lane by lane.
struct PlaneLanes {
    HWY_ALIGN float u[mostLanes], v[mostLanes], perXu[mostLanes], perXv[mostLanes], perYu[mostLanes],
        perYv[mostLanes], depth[mostLanes], perXdepth[mostLanes], perYdepth[mostLanes];
};
HWY_INLINE void gatherPlanes(const Shades& shades, const TexturedSurface& surface, const Request* requests,
    std::size_t count, PlaneLanes& p) {
    for (std::size_t i = 0; i < hn::Lanes(Floats()); ++i) {
        const Request& r = requests[i < count ? i : 0];
        const Triangle& t = *r.triangle;
        const TexcoordPlanes& planes = surface.texcoordsOfGroups[t.group][t.texcoords];
        const Vec2 at = fromAnchor(t, placeOf(shades, r));
        p.u[i] = planes.atAnchor.x + (planes.perX.x * at.x + planes.perY.x * at.y);
        p.v[i] = planes.atAnchor.y + (planes.perX.y * at.x + planes.perY.y * at.y);
        p.depth[i] = t.atAnchor.inverseDepth + (t.perX.inverseDepth * at.x + t.perY.inverseDepth * at.y);
        p.perXu[i] = planes.perX.x;
        p.perXv[i] = planes.perX.y;
        p.perYu[i] = planes.perY.x;
        p.perYv[i] = planes.perY.y;
        p.perXdepth[i] = t.perX.inverseDepth;
        p.perYdepth[i] = t.perY.inverseDepth;
    }
}

HWY_INLINE FloatVector lengthOf(FloatVector a, FloatVector b) { return hn::Sqrt(sumOf(a, a, hn::Mul(b, b))); }

// The whole part of the logarithm to base 2, of a normal positive number.
HWY_INLINE IntVector exponentOf(FloatVector v) {
    return hn::Sub(hn::ShiftRight<23>(hn::BitCast(Ints(), v)), constantInt(127));
}

HWY_INLINE void findFootprints(const PlaneLanes& p, const TextureLevels& texture, Footprints& out) {
    const Floats d;
    const Ints di;
    const FloatVector depth = inverse(hn::Max(hn::Load(d, p.depth), constant(1e-9f)));
    const FloatVector width = constant(float(texture.level[0].size.width));
    const FloatVector height = constant(float(texture.level[0].size.height));
    const FloatVector u = hn::Mul(hn::Load(d, p.u), depth), v = hn::Mul(hn::Load(d, p.v), depth);
    // The quotient rule, on planes divided by depth.
    const auto change = [&](const float* perPixel, const float* depthPerPixel, FloatVector at,
                            FloatVector size) HWY_ATTR {
        const FloatVector top = hn::Sub(hn::Load(d, perPixel), hn::Mul(at, hn::Load(d, depthPerPixel)));
        return hn::Mul(hn::Mul(top, depth), size);
    };
    const FloatVector acrossU = change(p.perXu, p.perXdepth, u, width);
    const FloatVector acrossV = change(p.perXv, p.perXdepth, v, height);
    const FloatVector upU = change(p.perYu, p.perYdepth, u, width);
    const FloatVector upV = change(p.perYv, p.perYdepth, v, height);
    const FloatVector across = lengthOf(acrossU, acrossV), up = lengthOf(upU, upV);
    const FloatVector tiny = constant(1e-6f), huge = constant(1e6f);
    const FloatVector minor = hn::Min(hn::Max(hn::Min(across, up), tiny), huge);
    const FloatVector major = hn::Min(hn::Max(hn::Max(across, up), tiny), huge);
    // The narrow side spans 1.4 to 2.8 texels, unless the wide one would then need too many probes.
    const IntVector fine = exponentOf(hn::Mul(minor, constant(0.70710678f)));
    const IntVector coarse = hn::Add(exponentOf(hn::Mul(major, constant(1.0f / mostProbes))), constantInt(1));
    const IntVector level =
        hn::Min(hn::Max(hn::Max(fine, coarse), constantInt(0)), constantInt(texture.count - 1));
    hn::Store(hn::Mul(u, width), d, out.u);
    hn::Store(hn::Mul(v, height), d, out.v);
    hn::Store(acrossU, d, out.acrossU);
    hn::Store(acrossV, d, out.acrossV);
    hn::Store(upU, d, out.upU);
    hn::Store(upV, d, out.upV);
    hn::Store(across, d, out.acrossLength);
    hn::Store(up, d, out.upLength);
    hn::Store(level, di, out.level);
}

// Two neighbouring texels along one axis and the share of the second. Within 1/64 of a texel's middle that
// texel shows alone: what rounding adds to a coordinate does not blur a picture that fits the pixels.
struct Pair {
    int first, second;
    float share;
};
HWY_INLINE Pair pairAt(float position, int count) {
    constexpr float still = 1.0f / 64;
    const float limited = std::min(std::max(position - 0.5f, 0.0f), float(count - 1));
    const int first = int(limited);
    const float share =
        std::min(std::max((limited - float(first) - still) * (1 / (1 - 2 * still)), 0.0f), 1.0f);
    return {first, std::min(first + 1, count - 1), share};
}

// Linear light of a texel, blue first. Level 0 is bytes, 0 to 1; the others words, 0 to 65535.
struct ByteTexels {
    const std::uint8_t* pixels;
    std::ptrdiff_t strideBytes;
    const float* linear;
    HWY_INLINE FourVector at(int x, int y) const {
        const std::uint8_t* p = pixels + y * strideBytes + std::ptrdiff_t(x) * 4;
        HWY_ALIGN const float v[4] = {linear[p[0]], linear[p[1]], linear[p[2]], 0};
        return hn::Load(Four(), v);
    }
};
struct WordTexels {
    const std::uint16_t* texels;
    int width;
    HWY_INLINE FourVector at(int x, int y) const {
        const hn::FixedTag<std::uint16_t, 4> words;
        const hn::FixedTag<std::int32_t, 4> wide;
        return hn::ConvertTo(
            Four(), hn::PromoteTo(wide, hn::LoadU(words, texels + (std::ptrdiff_t(y) * width + x) * 4)));
    }
};

template <class Texels>
HWY_INLINE FourVector bilinear(const Texels& texels, imaging::Size size, float u, float v) {
    const Four four;
    const Pair x = pairAt(u, size.width), y = pairAt(v, size.height);
    const FourVector s = hn::Set(four, x.share), t = hn::Set(four, y.share);
    const auto mixed = [](FourVector a, FourVector b, FourVector share)
                           HWY_ATTR { return hn::Add(a, hn::Mul(hn::Sub(b, a), share)); };
    return mixed(mixed(texels.at(x.first, y.first), texels.at(x.second, y.first), s),
        mixed(texels.at(x.first, y.second), texels.at(x.second, y.second), s), t);
}

// How many probes a side of the footprint takes, and how far apart they stand as a fraction of it. The probes
// themselves are a texel wide, so they spread over what the side is longer than that.
struct Probes {
    int count;
    float first, step;
};
HWY_INLINE Probes probesFor(float texels) {
    const float spread = texels - (1 + 1.0f / 32);
    if (!(spread > 0)) return {1, 0, 0};
    const int count = std::min(int(spread) + 2, mostProbes);
    const float whole = std::min(spread / texels, 1.0f);
    return {count, -0.5f * whole, whole / float(count - 1)};
}

template <class Texels>
HWY_INLINE FourVector filtered(
    const Texels& texels, imaging::Size size, float scale, const Footprints& f, std::size_t i) {
    const Four four;
    const Probes across = probesFor(f.acrossLength[i] * scale), up = probesFor(f.upLength[i] * scale);
    FourVector sum = hn::Zero(four);
    for (int j = 0; j < up.count; ++j) {
        const float b = up.first + float(j) * up.step;
        for (int k = 0; k < across.count; ++k) {
            const float a = across.first + float(k) * across.step;
            const float u = f.u[i] + (a * f.acrossU[i] + b * f.upU[i]),
                        v = f.v[i] + (a * f.acrossV[i] + b * f.upV[i]);
            sum = hn::Add(sum, bilinear(texels, size, u * scale, v * scale));
        }
    }
    const int count = across.count * up.count;
    return count == 1 ? sum : hn::Mul(sum, hn::Set(four, 1 / float(count)));
}

HWY_INLINE FourVector sampleTexture(const TextureLevels& texture, const Footprints& f, std::size_t i) {
    const int level = f.level[i];
    const TextureLevels::Level& place = texture.level[level];
    if (level == 0) {
        const imaging::ConstBitmapView view = texture.bitmap->view();
        return filtered(
            ByteTexels{view.pixels, view.strideBytes, linearOfBytes().data()}, place.size, 1, f, i);
    }
    const float scale = 1 / float(1 << level);
    const WordTexels texels{texture.texels.data() + place.firstTexel * 4, place.size.width};
    return hn::Mul(filtered(texels, place.size, scale, f, i), hn::Set(Four(), 1.0f / 65535));
}

void shadeUnlit(
    const Shades& shades, const TexturedSurface& surface, const Request* requests, std::size_t count) {
    const Floats d;
    const std::size_t lanes = hn::Lanes(d);
    for (std::size_t i = 0; i < count; i += lanes) {
        const std::size_t rest = std::min(lanes, count - i);
        Lanes3 light = constant(surface.tint);
        if (surface.texture) {
            PlaneLanes planes;
            Footprints footprints;
            gatherPlanes(shades, surface, requests + i, rest, planes);
            findFootprints(planes, *surface.texture, footprints);
            HWY_ALIGN float values[mostLanes * 4] = {};
            for (std::size_t k = 0; k < rest; ++k)
                hn::Store(sampleTexture(*surface.texture, footprints, k), Four(), values + k * 4);
            Lanes3 texel;
            FloatVector unused;
            hn::LoadInterleaved4(d, values, texel.z, texel.y, texel.x, unused);
            light = times(light, texel);
        }
        addLight(shades, requests + i, rest, light);
    }
}

void fillTextured(SceneKernels& table) { table.shadeUnlit = shadeUnlit; }

}   // namespace tavix::scene3d::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tavix::scene3d {
HWY_EXPORT(fillTextured);
void fillTextureKernels(SceneKernels& table) { HWY_DYNAMIC_DISPATCH(fillTextured)(table); }
}   // namespace tavix::scene3d
#endif
