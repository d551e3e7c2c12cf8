// Surfaces that show a colour or a texture as it stands.
//
// A pixel's footprint on the texture is filtered by a grid of bilinear probes on a level where it is one to
// three texels wide: sharper than blending levels, and one probe exactly on a texel where texels and pixels
// meet one to one.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "TavixPlatform/Scene3D/Kernels/Textured.cpp"
#include <hwy/foreach_target.h>

#include "TavixPlatform/Scene3D/Kernels/Surfaces-inl.h"

#include <algorithm>

HWY_BEFORE_NAMESPACE();
namespace tavix::scene3d::HWY_NAMESPACE {

using Words = hn::Rebind<std::uint32_t, Floats>;

// Texture coordinates and 1 / depth at points, and their planes.
struct PlaneLanes {
    FloatVector u, v, perXu, perXv, perYu, perYv, depth, perXdepth, perYdepth;
};
HWY_INLINE PlaneLanes planesOfEach(const Shades& shades, const TexturedSurface& surface, const Batch& batch) {
    const Floats d;
    HWY_ALIGN float values[9][mostLanes];
    for (std::size_t i = 0; i < hn::Lanes(d); ++i) {
        const Request& r = batch.requests[i < batch.count ? i : 0];
        const Triangle& t = *r.triangle;
        const TexcoordPlanes& planes = surface.texcoordsOfGroups[t.group][t.texcoords];
        const Vec2 at = fromAnchor(t, placeOf(shades, r));
        values[0][i] = planes.atAnchor.x + (planes.perX.x * at.x + planes.perY.x * at.y);
        values[1][i] = planes.atAnchor.y + (planes.perX.y * at.x + planes.perY.y * at.y);
        values[2][i] = planes.perX.x;
        values[3][i] = planes.perX.y;
        values[4][i] = planes.perY.x;
        values[5][i] = planes.perY.y;
        values[6][i] = t.atAnchor.inverseDepth + (t.perX.inverseDepth * at.x + t.perY.inverseDepth * at.y);
        values[7][i] = t.perX.inverseDepth;
        values[8][i] = t.perY.inverseDepth;
    }
    const auto lane = [&](int i) HWY_ATTR { return hn::Load(d, values[i]); };
    return {lane(0), lane(1), lane(2), lane(3), lane(4), lane(5), lane(6), lane(7), lane(8)};
}

HWY_INLINE PlaneLanes planesOfRun(const Shades& shades, const TexturedSurface& surface, const Batch& batch) {
    const Triangle& t = *batch.run->triangle;
    const TexcoordPlanes& planes = surface.texcoordsOfGroups[t.group][t.texcoords];
    const Places at = fromAnchor(t, placesOfRun(shades, batch));
    const auto plane = [&](float atAnchor, float perX, float perY) HWY_ATTR {
        return plus(constant(atAnchor), plus(times(constant(perX), at.x), times(constant(perY), at.y)));
    };
    return {plane(planes.atAnchor.x, planes.perX.x, planes.perY.x),
        plane(planes.atAnchor.y, planes.perX.y, planes.perY.y), constant(planes.perX.x),
        constant(planes.perX.y), constant(planes.perY.x), constant(planes.perY.y),
        plane(t.atAnchor.inverseDepth, t.perX.inverseDepth, t.perY.inverseDepth),
        constant(t.perX.inverseDepth), constant(t.perY.inverseDepth)};
}

// The levels of a texture, and the footprints of a vector of pixels on the level of each, in its texels.
struct Level {
    IntVector first, width;
    FloatVector lastX, lastY;   // the largest coordinates of a texel
};
struct Footprints {
    Level level;
    FloatVector u, v;               // of the pixel's middle
    FloatVector acrossU, acrossV;   // to the next pixel on the right
    FloatVector upU, upV;           // and above
    FloatVector across, up;         // how long these are
};

HWY_INLINE FloatVector lengthOf(FloatVector a, FloatVector b) { return hn::Sqrt(sumOf(a, a, hn::Mul(b, b))); }

// The whole part of the logarithm to base 2, of a normal positive number.
HWY_INLINE IntVector exponentOf(FloatVector v) {
    return hn::Sub(hn::ShiftRight<23>(hn::BitCast(Ints(), v)), constantInt(127));
}

// The narrow side of a footprint shall span some texels, unless the wide one would then need too many probes.
HWY_INLINE IntVector levelFor(FloatVector across, FloatVector up, const TexturedSurface& surface) {
    const FloatVector tiny = constant(1e-6f), huge = constant(1e6f);
    const FloatVector minor = hn::Min(hn::Max(hn::Min(across, up), tiny), huge);
    const FloatVector major = hn::Min(hn::Max(hn::Max(across, up), tiny), huge);
    const IntVector fine = exponentOf(hn::Mul(minor, constant(1 / surface.filter.texelsOfLevel0)));
    const IntVector coarse =
        hn::Add(exponentOf(hn::Mul(major, constant(surface.filter.footprint / surface.filter.mostProbes))),
            constantInt(1));
    return hn::Min(hn::Max(hn::Max(fine, coarse), constantInt(0)), constantInt(surface.texture->count - 1));
}

HWY_INLINE Level levelAt(const TextureLevels& texture, IntVector index) {
    const Ints di;
    const Floats d;
    Level level;
    const std::int32_t only = hn::GetLane(index);
    if (hn::AllTrue(di, hn::Eq(index, constantInt(only))))   // nearly always
        return {constantInt(texture.firstTexel[only]), constantInt(texture.width[only]),
            constant(float(texture.width[only] - 1)), constant(float(texture.height[only] - 1))};
    level.first = hn::GatherIndex(di, texture.firstTexel, index);
    level.width = hn::GatherIndex(di, texture.width, index);
    level.lastX = hn::ConvertTo(d, hn::Sub(level.width, constantInt(1)));
    level.lastY = hn::ConvertTo(d, hn::Sub(hn::GatherIndex(di, texture.height, index), constantInt(1)));
    return level;
}

HWY_INLINE Footprints findFootprints(const PlaneLanes& p, const TexturedSurface& surface) {
    const Floats d;
    const TextureLevels& texture = *surface.texture;
    const FloatVector depth = inverse(hn::Max(p.depth, constant(1e-9f)));
    const FloatVector width = constant(float(texture.width[0]));
    const FloatVector height = constant(float(texture.height[0]));
    const FloatVector u = hn::Mul(p.u, depth), v = hn::Mul(p.v, depth);
    // The quotient rule, on planes divided by depth.
    const auto change = [&](FloatVector perPixel, FloatVector depthPerPixel, FloatVector at, FloatVector size)
                            HWY_ATTR {
                                const FloatVector top = hn::Sub(perPixel, hn::Mul(at, depthPerPixel));
                                return hn::Mul(hn::Mul(top, depth), size);
                            };
    Footprints f;
    f.acrossU = change(p.perXu, p.perXdepth, u, width);
    f.acrossV = change(p.perXv, p.perXdepth, v, height);
    f.upU = change(p.perYu, p.perYdepth, u, width);
    f.upV = change(p.perYv, p.perYdepth, v, height);
    f.across = lengthOf(f.acrossU, f.acrossV);
    f.up = lengthOf(f.upU, f.upV);
    const IntVector level = levelFor(f.across, f.up, surface);
    f.level = levelAt(texture, level);
    // 2 to the power of minus the level.
    const FloatVector scale = hn::BitCast(d, hn::ShiftLeft<23>(hn::Sub(constantInt(127), level)));
    const FloatVector widened = hn::Mul(scale, constant(surface.filter.footprint));
    f.u = hn::Mul(hn::Mul(u, width), scale);
    f.v = hn::Mul(hn::Mul(v, height), scale);
    for (FloatVector* length : {&f.acrossU, &f.acrossV, &f.upU, &f.upV, &f.across, &f.up})
        *length = hn::Mul(*length, widened);
    return f;
}

// Two neighbouring texels along one axis and the share of the second. Within 1/64 of a texel's middle that
// texel shows alone: what rounding adds to a coordinate does not blur a picture that fits the pixels.
struct Pair {
    FloatVector first, second;
    FloatVector share;   // 0 where both are the same
};
HWY_INLINE Pair pairAt(FloatVector position, FloatVector last) {
    constexpr float still = 1.0f / 64;
    const FloatVector limited = hn::Min(hn::Max(hn::Sub(position, constant(0.5f)), constant(0)), last);
    const FloatVector first = hn::Floor(limited);
    const FloatVector share =
        hn::Mul(hn::Sub(hn::Sub(limited, first), constant(still)), constant(1 / (1 - 2 * still)));
    return {first, hn::Min(hn::Add(first, constant(1)), last), unit(share)};
}

// Light of texels, 0 to the square of the largest root.
HWY_INLINE Lanes3 lightOf(IntVector texel) {
    const Floats d;
    const IntVector mask = constantInt(TextureLevels::mostRoot);
    const auto root = [&](IntVector bits) HWY_ATTR { return hn::ConvertTo(d, hn::And(bits, mask)); };
    return {squared(root(hn::ShiftRight<2 * TextureLevels::rootBits>(texel))),
        squared(root(hn::ShiftRight<TextureLevels::rootBits>(texel))), squared(root(texel))};
}

HWY_INLINE Lanes3 mixed(const Lanes3& a, const Lanes3& b, FloatVector share) {
    return plus(a, times(minus(b, a), share));
}

// Texels and their right neighbours, by their indices: two words are read at once.
struct Neighbours {
    IntVector left, right;
};
HWY_INLINE Neighbours neighboursAt(const std::int32_t* texels, IntVector index) {
    const Ints di;
    const hn::RepartitionToWide<Ints> wide;
    const hn::Half<Ints> half;
    const auto* base = reinterpret_cast<const std::int64_t*>(texels);
    const auto pairs = [&](hn::Vec<hn::Half<Ints>> some) HWY_ATTR {
        return hn::BitCast(di, hn::GatherOffset(wide, base, hn::ShiftLeft<2>(hn::PromoteTo(wide, some))));
    };
    const IntVector low = pairs(hn::LowerHalf(half, index)), high = pairs(hn::UpperHalf(half, index));
    return {hn::ConcatEven(di, high, low), hn::ConcatOdd(di, high, low)};
}

HWY_INLINE Lanes3 bilinear(const std::int32_t* texels, const Level& level, FloatVector u, FloatVector v) {
    const Ints di;
    const Pair x = pairAt(u, level.lastX), y = pairAt(v, level.lastY);
    const IntVector column = hn::ConvertTo(di, x.first);
    const auto row = [&](FloatVector at) HWY_ATTR {
        const IntVector first = hn::Add(level.first, hn::Mul(hn::ConvertTo(di, at), level.width));
        // Past the end of a row a texel has no share.
        const Neighbours texel = neighboursAt(texels, hn::Add(first, column));
        return mixed(lightOf(texel.left), lightOf(texel.right), x.share);
    };
    return mixed(row(y.first), row(y.second), y.share);
}

// How many probes a side of the footprint takes, and how far apart they stand as a fraction of it. The probes
// themselves are a texel wide, so they spread over what the side is longer than that.
struct Probes {
    FloatVector count, first, step;
};
HWY_INLINE Probes probesFor(FloatVector texels, float most) {
    const FloatVector one = constant(1), zero = constant(0);
    const FloatVector spread = hn::Max(hn::Sub(texels, constant(1 + 1.0f / 32)), zero);
    const auto isSingle = hn::Or(hn::Le(spread, zero), hn::Le(constant(most), one));
    const FloatVector count =
        hn::IfThenElse(isSingle, one, hn::Min(hn::Add(hn::Floor(spread), constant(2)), constant(most)));
    const FloatVector whole = hn::Div(spread, hn::Max(texels, one));
    const FloatVector gaps = hn::Max(hn::Sub(count, one), one);
    return {count, hn::IfThenZeroElse(isSingle, hn::Mul(whole, constant(-0.5f))), hn::Div(whole, gaps)};
}

HWY_INLINE float largest(FloatVector v) { return hn::GetLane(hn::MaxOfLanes(Floats(), v)); }

HWY_INLINE Lanes3 sampleTexture(const TexturedSurface& surface, const Footprints& f) {
    const auto* texels = reinterpret_cast<const std::int32_t*>(surface.texture->texels.data());
    const float most = surface.filter.mostProbes;
    const Probes across = probesFor(f.across, most), up = probesFor(f.up, most);
    const float mostAcross = largest(across.count), mostUp = largest(up.count);
    Lanes3 sum = {constant(0), constant(0), constant(0)};
    for (float j = 0; j < mostUp; ++j) {
        const FloatVector b = sumOf(up.step, constant(j), up.first);
        const auto isRow = hn::Lt(constant(j), up.count);
        for (float k = 0; k < mostAcross; ++k) {
            const FloatVector a = sumOf(across.step, constant(k), across.first);
            const Lanes3 light = bilinear(texels, f.level, sumOf(a, f.acrossU, sumOf(b, f.upU, f.u)),
                sumOf(a, f.acrossV, sumOf(b, f.upV, f.v)));
            const auto counts = hn::And(isRow, hn::Lt(constant(k), across.count));
            sum = {hn::Add(sum.x, hn::IfThenElseZero(counts, light.x)),
                hn::Add(sum.y, hn::IfThenElseZero(counts, light.y)),
                hn::Add(sum.z, hn::IfThenElseZero(counts, light.z))};
        }
    }
    constexpr float full = float(TextureLevels::mostRoot) * float(TextureLevels::mostRoot);
    return times(sum, inverse(hn::Mul(hn::Mul(across.count, up.count), constant(full))));
}

void shadeUnlit(const Shades& shades, const TexturedSurface& surface, const ShadingJob& job) {
    forEachBatch(job, [&](const Batch& batch) HWY_ATTR {
        Lanes3 light = constant(surface.tint);
        if (surface.texture) {
            const PlaneLanes planes =
                batch.run ? planesOfRun(shades, surface, batch) : planesOfEach(shades, surface, batch);
            light = times(light, sampleTexture(surface, findFootprints(planes, surface)));
        }
        addLight(shades, batch, light);
    });
}

void halveTexels(
    std::uint32_t* dst, const std::uint32_t* row0, const std::uint32_t* row1, std::size_t count) {
    const Words words;
    const Ints di;
    const std::size_t lanes = hn::Lanes(words);
    const auto pairOf = [&](const std::uint32_t* row) HWY_ATTR {
        hn::Vec<Words> even, odd;
        hn::LoadInterleaved2(words, row, even, odd);
        return plus(lightOf(hn::BitCast(di, even)), lightOf(hn::BitCast(di, odd)));
    };
    const auto root = [](FloatVector sum)
                          HWY_ATTR { return hn::NearestInt(hn::Sqrt(hn::Mul(sum, constant(0.25f)))); };
    for (std::size_t i = 0; i < count; i += lanes) {
        const bool isWhole = i + lanes <= count;
        std::uint32_t in0[2 * mostLanes], in1[2 * mostLanes], out[mostLanes];
        if (!isWhole) {
            std::copy_n(row0 + 2 * i, 2 * (count - i), in0);
            std::copy_n(row1 + 2 * i, 2 * (count - i), in1);
        }
        const Lanes3 sum = plus(pairOf(isWhole ? row0 + 2 * i : in0), pairOf(isWhole ? row1 + 2 * i : in1));
        const IntVector texel =
            hn::Or(root(sum.z), hn::Or(hn::ShiftLeft<TextureLevels::rootBits>(root(sum.y)),
                                    hn::ShiftLeft<2 * TextureLevels::rootBits>(root(sum.x))));
        hn::StoreU(hn::BitCast(words, texel), words, isWhole ? dst + i : out);
        if (!isWhole) std::copy_n(out, count - i, dst + i);
    }
}

void fillTextured(SceneKernels& table) {
    table.shadeUnlit = shadeUnlit;
    table.halveTexels = halveTexels;
}

}   // namespace tavix::scene3d::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tavix::scene3d {
HWY_EXPORT(fillTextured);
void fillTextureKernels(SceneKernels& table) { HWY_DYNAMIC_DISPATCH(fillTextured)(table); }
}   // namespace tavix::scene3d
#endif
