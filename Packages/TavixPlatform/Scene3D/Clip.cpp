#include "TavixPlatform/Scene3D/Geometry.h"

#include <algorithm>
#include <cmath>

namespace tavix::scene3d {

namespace {

// A little within what the projection takes, so that rounding does not pass it.
constexpr double guard = guardPx - 2;
constexpr int planeCount = 5;

// The signed distance to a plane, in units of its own; inside is 0 or more.
double distance(const ViewCorner& v, int plane, const VertexTransform& view) {
    const double focal = double(view.focalPx);
    switch (plane) {
    case 0: return v.depth - double(view.near);
    case 1: return guard * v.depth - focal * v.x;
    case 2: return guard * v.depth + focal * v.x;
    case 3: return guard * v.depth - focal * v.y;
    default: return guard * v.depth + focal * v.y;
    }
}

Vec3 mixed(Vec3 a, Vec3 b, float t) { return a + (b - a) * t; }

ViewCorner between(const ViewCorner& inside, const ViewCorner& outside, double t) {
    const auto f = float(t);
    return {inside.x + (outside.x - inside.x) * t, inside.y + (outside.y - inside.y) * t,
        inside.depth + (outside.depth - inside.depth) * t, mixed(inside.normal, outside.normal, f),
        {inside.texcoord.x + (outside.texcoord.x - inside.texcoord.x) * f,
            inside.texcoord.y + (outside.texcoord.y - inside.texcoord.y) * f},
        false, 0, 0, {}};
}

// Sutherland and Hodgman (1974), against one plane. New points are always found from the inner end.
int clipAgainst(int plane, const VertexTransform& view, const ViewCorner* in, int count, ViewCorner* out) {
    int kept = 0;
    for (int i = 0; i < count; ++i) {
        const ViewCorner &a = in[i], &b = in[(i + 1) % count];
        const double da = distance(a, plane, view), db = distance(b, plane, view);
        if (da >= 0) out[kept++] = a;
        if ((da >= 0) == (db >= 0)) continue;
        out[kept++] = da >= 0 ? between(a, b, da / (da - db)) : between(b, a, db / (db - da));
    }
    return kept;
}

Corner onScreen(const ViewCorner& v, const VertexTransform& view) {
    if (v.isProjected) return {v.screenX, v.screenY, v.attributes, v.texcoord};
    const double scale = double(view.focalPx) / v.depth * (1 << subpixelBits);
    const auto inverseDepth = float(1 / v.depth);
    return {std::int32_t(std::lrint(v.x * scale)) + view.centerX,
        std::int32_t(std::lrint(v.y * scale)) + view.centerY,
        {v.normal.x * inverseDepth, v.normal.y * inverseDepth, v.normal.z * inverseDepth, inverseDepth},
        v.texcoord};
}

}   // namespace

int clipTriangle(const ViewCorner (&triangle)[3], const VertexTransform& view, Corner (&out)[8]) {
    ViewCorner buffers[2][9];
    std::copy(std::begin(triangle), std::end(triangle), buffers[0]);
    int count = 3;
    for (int plane = 0; plane < planeCount && count > 0; ++plane)
        count = clipAgainst(plane, view, buffers[plane % 2], count, buffers[(plane + 1) % 2]);
    for (int i = 0; i < count; ++i) out[i] = onScreen(buffers[planeCount % 2][i], view);
    return count;
}

}   // namespace tavix::scene3d
