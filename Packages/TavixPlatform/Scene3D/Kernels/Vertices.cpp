// Vertices from a mesh to the screen.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "TavixPlatform/Scene3D/Kernels/Vertices.cpp"
#include <hwy/foreach_target.h>

#include "TavixPlatform/Scene3D/Kernels/Lanes-inl.h"
#include "TavixPlatform/Scene3D/Kernels/SceneKernels.h"

#include <algorithm>

HWY_BEFORE_NAMESPACE();
namespace tavix::scene3d::HWY_NAMESPACE {

HWY_INLINE FloatVector rowTimes(const float row[3], const Lanes3& v) {
    return sumOf(constant(row[0]), v.x, sumOf(constant(row[1]), v.y, hn::Mul(constant(row[2]), v.z)));
}

HWY_INLINE Lanes3 loadThree(const Vec3* from) {
    Lanes3 v;
    hn::LoadInterleaved3(Floats(), &from->x, v.x, v.y, v.z);
    return v;
}

// As many vertices as a vector has lanes.
HWY_INLINE void projectVector(const VertexTransform& t, const Vec3* positions, const Vec3* normals,
    std::int32_t* x, std::int32_t* y, Attributes* attributes) {
    const Floats d;
    const Ints di;
    const Lanes3 p = loadThree(positions);
    const FloatVector viewX = hn::Add(rowTimes(t.toView[0], p), constant(t.toView[0][3]));
    const FloatVector viewY = hn::Add(rowTimes(t.toView[1], p), constant(t.toView[1][3]));
    const FloatVector depth = hn::Add(rowTimes(t.toView[2], p), constant(t.toView[2][3]));
    const auto isBehind = hn::Lt(depth, constant(t.near));
    const FloatVector inverseDepth = inverse(hn::IfThenElse(isBehind, constant(1), depth));
    const FloatVector scale = hn::Mul(constant(t.focalPx), inverseDepth);
    const FloatVector screenX = hn::Mul(viewX, scale), screenY = hn::Mul(viewY, scale);
    const FloatVector farthest = hn::Max(hn::Abs(screenX), hn::Abs(screenY));
    const auto isInside = hn::AndNot(isBehind, hn::Le(farthest, constant(guardPx)));
    const FloatVector subpixels = constant(1 << subpixelBits);
    const auto snapped = [&](FloatVector v) HWY_ATTR {
        return hn::NearestInt(hn::IfThenElseZero(isInside, hn::Mul(v, subpixels)));
    };
    hn::StoreU(hn::IfThenElse(hn::RebindMask(di, isInside), hn::Add(snapped(screenX), constantInt(t.centerX)),
                   constantInt(clippedMark)),
        di, x);
    hn::StoreU(hn::Add(snapped(screenY), constantInt(t.centerY)), di, y);
    const Lanes3 n = loadThree(normals);
    const Lanes3 world =
        normalized(Lanes3{rowTimes(t.normals[0], n), rowTimes(t.normals[1], n), rowTimes(t.normals[2], n)});
    const Lanes3 scaled = times(world, inverseDepth);
    hn::StoreInterleaved4(scaled.x, scaled.y, scaled.z, inverseDepth, d, &attributes->nx);
}

void project(const VertexTransform& transform, const VertexRun& run) {
    const std::size_t lanes = hn::Lanes(Floats());
    std::size_t i = 0;
    for (; i + lanes <= run.count; i += lanes)
        projectVector(
            transform, run.positions + i, run.normals + i, run.x + i, run.y + i, run.attributes + i);
    if (i == run.count) return;
    const std::size_t rest = run.count - i;
    Vec3 positions[mostLanes], normals[mostLanes];
    std::int32_t x[mostLanes], y[mostLanes];
    Attributes attributes[mostLanes];
    std::copy_n(run.positions + i, rest, positions);
    std::copy_n(run.normals + i, rest, normals);
    projectVector(transform, positions, normals, x, y, attributes);
    std::copy_n(x, rest, run.x + i);
    std::copy_n(y, rest, run.y + i);
    std::copy_n(attributes, rest, run.attributes + i);
}

void fillVertices(SceneKernels& table) { table.project = project; }

}   // namespace tavix::scene3d::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tavix::scene3d {
HWY_EXPORT(fillVertices);
void fillVertexKernels(SceneKernels& table) { HWY_DYNAMIC_DISPATCH(fillVertices)(table); }
}   // namespace tavix::scene3d
#endif
