#include "TavixPlatform/Scene3D/Geometry.h"

#include <algorithm>
#include <utility>

namespace tavix::scene3d {

namespace {

constexpr float pixelsPerSubpixel = 1.0f / (1 << subpixelBits);

// Differences of a quantity along two edges, and the edges, make its plane.
struct Gradients {
    float dx1, dy1, dx2, dy2, inverseArea;
    float perX(float d1, float d2) const { return (d1 * dy2 - d2 * dy1) * inverseArea; }
    float perY(float d1, float d2) const { return (d2 * dx1 - d1 * dx2) * inverseArea; }
};

Gradients gradientsOf(const Corner* const (&c)[3], std::int64_t area) {
    const auto px = [](std::int32_t subpixels) { return float(subpixels) * pixelsPerSubpixel; };
    return {px(c[1]->x - c[0]->x), px(c[1]->y - c[0]->y), px(c[2]->x - c[0]->x), px(c[2]->y - c[0]->y),
        1 / (float(area) * (pixelsPerSubpixel * pixelsPerSubpixel))};
}

// Samples stand at odd units, in x and in y.
bool missesAllSamples(std::int32_t least, std::int32_t most, int unitBits) {
    const std::int32_t first = 1 << unitBits;
    return (most - first) >> (unitBits + 1) == (least - first - 1) >> (unitBits + 1);
}

// How much the unit normal turns from a pixel to the next, squared and averaged over a pixel's filter
// (Tokuyoshi and Kaplanyan, 2019). Taken at the triangle's middle.
float varianceOf(const Triangle& t, const Corner* const (&c)[3]) {
    const auto normal = [](const Attributes& a) { return Vec3{a.nx, a.ny, a.nz}; };
    const Vec3 sum = normal(c[0]->attributes) + normal(c[1]->attributes) + normal(c[2]->attributes);
    const float size = length(sum);
    if (!(size > 0)) return 0;
    const Vec3 n = sum * (1 / size);
    const float perPixel = 3 / size;
    const auto turn = [&](const Attributes& a) {
        const Vec3 g = normal(a);
        const Vec3 across = (g - n * dot(n, g)) * perPixel;
        return dot(across, across);
    };
    constexpr float filterVariance = 0.25f;
    return filterVariance * (turn(t.perX) + turn(t.perY));
}

}   // namespace

void TriangleGroup::clear() {
    triangles.clear();
    texcoords.clear();
    inTiles.clear();
    region = {};
}

void TriangleMaker::add(Corner a, Corner b, Corner c) {
    const Corner* corners[3] = {&a, &b, &c};
    std::int64_t area = std::int64_t(b.x - a.x) * (c.y - a.y) - std::int64_t(c.x - a.x) * (b.y - a.y);
    if (area == 0 || (area < 0 && settings_.sides == Sides::front)) return;
    if (area < 0) {   // seen from behind: the other way round, with the normal towards the eye
        area = -area;
        std::swap(corners[1], corners[2]);
        for (Corner* corner : {&a, &b, &c}) {
            Attributes& n = corner->attributes;
            n = {-n.nx, -n.ny, -n.nz, n.inverseDepth};
        }
    }
    const auto [leastX, mostX] = std::minmax({a.x, b.x, c.x});
    const auto [leastY, mostY] = std::minmax({a.y, b.y, c.y});
    const imaging::PixelRegion pixels{std::max(leastX >> subpixelBits, 0),
        std::max(leastY >> subpixelBits, 0), std::min((mostX >> subpixelBits) + 1, settings_.widthPx),
        std::min((mostY >> subpixelBits) + 1, settings_.heightPx)};
    if (pixels.isEmpty()) return;
    if (missesAllSamples(leastX, mostX, settings_.unitBits) ||
        missesAllSamples(leastY, mostY, settings_.unitBits))
        return;

    Triangle& t = group_.triangles.emplace_back();
    const Gradients g = gradientsOf(corners, area);
    const Attributes &a0 = corners[0]->attributes, &a1 = corners[1]->attributes, &a2 = corners[2]->attributes;
    for (const auto member : {&Attributes::nx, &Attributes::ny, &Attributes::nz, &Attributes::inverseDepth}) {
        const float d1 = a1.*member - a0.*member, d2 = a2.*member - a0.*member;
        t.perX.*member = g.perX(d1, d2);
        t.perY.*member = g.perY(d1, d2);
    }
    t.atAnchor = a0;
    for (std::size_t i = 0; i < 3; ++i) {
        t.x[i] = corners[i]->x;
        t.y[i] = corners[i]->y;
    }
    t.leastInverseDepth = std::min({a0.inverseDepth, a1.inverseDepth, a2.inverseDepth});
    t.mostInverseDepth = std::max({a0.inverseDepth, a1.inverseDepth, a2.inverseDepth});
    t.material = settings_.material;
    t.group = settings_.group;
    t.normalVariance = varianceOf(t, corners);
    if (settings_.isTextured) addTexcoords(t, corners, g.inverseArea);
    putIntoTiles(pixels);
}

void TriangleMaker::addTexcoords(Triangle& triangle, const Corner* const (&c)[3], float inverseArea) {
    Gradients g = gradientsOf(c, 1);
    g.inverseArea = inverseArea;
    Vec2 at[3];
    for (int i = 0; i < 3; ++i)
        at[i] = {c[i]->texcoord.x * c[i]->attributes.inverseDepth,
            c[i]->texcoord.y * c[i]->attributes.inverseDepth};
    const Vec2 d1{at[1].x - at[0].x, at[1].y - at[0].y}, d2{at[2].x - at[0].x, at[2].y - at[0].y};
    triangle.texcoords = std::uint32_t(group_.texcoords.size());
    group_.texcoords.push_back(
        {{g.perX(d1.x, d2.x), g.perX(d1.y, d2.y)}, {g.perY(d1.x, d2.x), g.perY(d1.y, d2.y)}, at[0]});
}

void TriangleMaker::putIntoTiles(const imaging::PixelRegion& pixels) {
    group_.region = imaging::unionOf(group_.region, pixels);
    const auto triangle = std::uint32_t(group_.triangles.size() - 1);
    for (int ty = pixels.y0 / tilePx; ty <= (pixels.y1 - 1) / tilePx; ++ty)
        for (int tx = pixels.x0 / tilePx; tx <= (pixels.x1 - 1) / tilePx; ++tx)
            group_.inTiles.push_back({std::uint32_t(ty * settings_.tilesAcross + tx), triangle});
}

}   // namespace tavix::scene3d
