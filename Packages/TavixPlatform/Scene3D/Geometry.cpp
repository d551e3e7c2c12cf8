#include "TavixPlatform/Scene3D/Geometry.h"

#include "TavixPlatform/Imaging/ScratchLoop.h"

#include <algorithm>

namespace tavix::scene3d {

namespace {

constexpr std::size_t verticesPerJob = 4096, trianglesPerGroup = 4096;

VertexTransform transformOf(const MeshInstance& instance, const View& view) {
    VertexTransform t{};
    const auto& world = instance.toWorld.rows;
    const Vec3 axes[3] = {view.right, view.up, view.forward};
    for (std::size_t i = 0; i < 3; ++i) {
        const double a[3] = {axes[i].x, axes[i].y, axes[i].z};
        for (std::size_t j = 0; j < 4; ++j) {
            const double eye[3] = {view.eye.x, view.eye.y, view.eye.z};
            double sum = 0;
            for (std::size_t k = 0; k < 3; ++k) sum += a[k] * (world[k][j] - (j == 3 ? eye[k] : 0));
            t.toView[i][j] = float(sum);
        }
    }
    const Affine3 inverse = instance.toWorld.inverse();   // normals go by its transpose
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j) t.normals[i][j] = float(inverse.rows[j][i]);
    t.focalPx = view.focalPx;
    t.near = view.near;
    t.centerX = view.widthPx << (subpixelBits - 1);
    t.centerY = view.heightPx << (subpixelBits - 1);
    return t;
}

}   // namespace

void ScreenGeometry::build(const DrawList& list, const View& view, const SamplePattern& pattern,
    const SceneKernels& kernels, imaging::ScratchLoop& loop) {
    list_ = &list;
    view_ = view;
    pattern_ = &pattern;
    tilesAcross_ = (view.widthPx + tilePx - 1) / tilePx;
    tilesUp_ = (view.heightPx + tilePx - 1) / tilePx;
    projectVertices(kernels, loop);
    groupCount_ = (list.triangleCount + trianglesPerGroup - 1) / trianglesPerGroup;
    if (groups_.size() < groupCount_) groups_.resize(groupCount_);
    loop.run(int(groupCount_), [this](int i, imaging::Scratch&) { assemble(std::size_t(i)); });
    sortToTiles();
}

void ScreenGeometry::projectVertices(const SceneKernels& kernels, imaging::ScratchLoop& loop) {
    transforms_.clear();
    vertexJobs_.clear();
    x_.resize(list_->vertexCount);
    y_.resize(list_->vertexCount);
    attributes_.resize(list_->vertexCount);
    for (const MeshInstance& instance : list_->instances) {
        const auto index = std::uint32_t(transforms_.size());
        transforms_.push_back(transformOf(instance, view_));
        const std::size_t count = instance.mesh->data().positions.size();
        for (std::size_t begin = 0; begin < count; begin += verticesPerJob)
            vertexJobs_.push_back({index, begin, std::min(begin + verticesPerJob, count)});
    }
    loop.run(int(vertexJobs_.size()),
        [this, &kernels](int i, imaging::Scratch&) { projectRun(vertexJobs_[std::size_t(i)], kernels); });
}

void ScreenGeometry::projectRun(const VertexJob& job, const SceneKernels& kernels) {
    const MeshInstance& instance = list_->instances[job.instance];
    const MeshData& data = instance.mesh->data();
    const std::size_t to = instance.firstVertex + job.begin;
    kernels.project(transforms_[job.instance],
        {data.positions.data() + job.begin, data.normals.data() + job.begin, job.end - job.begin,
            x_.data() + to, y_.data() + to, attributes_.data() + to});
}

void ScreenGeometry::assemble(std::size_t groupIndex) {
    TriangleGroup& group = groups_[groupIndex];
    group.clear();
    const std::size_t begin = groupIndex * trianglesPerGroup;
    const std::size_t end = std::min(begin + trianglesPerGroup, list_->triangleCount);
    auto part = std::ranges::upper_bound(list_->parts, begin, {}, &PartInstance::firstTriangle) - 1;
    for (; part != list_->parts.end() && part->firstTriangle < end; ++part) {
        const std::size_t count = part->part->indices.size() / 3;
        const std::size_t from = std::max(begin, part->firstTriangle) - part->firstTriangle;
        const std::size_t to = std::min(end - part->firstTriangle, count);
        if (from < to) assemblePart(group, *part, from, to);
    }
}

void ScreenGeometry::assemblePart(
    TriangleGroup& group, const PartInstance& part, std::size_t begin, std::size_t end) {
    const MeshInstance& instance = list_->instances[part.instance];
    const MeshData& data = instance.mesh->data();
    const VertexTransform& transform = transforms_[part.instance];
    TriangleMaker maker(
        group, {view_.widthPx, view_.heightPx, tilesAcross_, pattern_->unitBits,
                   std::uint32_t(&group - groups_.data()), part.material, part.sides, part.isTextured});
    const auto corner = [&](std::uint32_t index) {
        const std::size_t v = instance.firstVertex + index;
        return Corner{x_[v], y_[v], attributes_[v], part.isTextured ? data.texcoords[index] : Vec2{}};
    };
    const auto viewCorner = [&](std::uint32_t index) {
        const Vec3 p = data.positions[index], n = data.normals[index];
        const auto row = [&](const float(&r)[4]) {
            return double(r[0]) * double(p.x) + double(r[1]) * double(p.y) + double(r[2]) * double(p.z) +
                   double(r[3]);
        };
        const auto turned = [&](const float(&r)[3]) { return r[0] * n.x + r[1] * n.y + r[2] * n.z; };
        const Vec3 normal = normalized(
            {turned(transform.normals[0]), turned(transform.normals[1]), turned(transform.normals[2])});
        const Corner c = corner(index);
        return ViewCorner{row(transform.toView[0]), row(transform.toView[1]), row(transform.toView[2]),
            normal, c.texcoord, c.x != clippedMark, c.x, c.y, c.attributes};
    };
    for (std::size_t triangle = begin; triangle < end; ++triangle) {
        const std::uint32_t* indices = part.part->indices.data() + triangle * 3;
        // A mirror turns the order around.
        const std::uint32_t i0 = indices[0], i1 = indices[instance.isMirrored ? 2 : 1],
                            i2 = indices[instance.isMirrored ? 1 : 2];
        const Corner a = corner(i0), b = corner(i1), c = corner(i2);
        if (a.x != clippedMark && b.x != clippedMark && c.x != clippedMark) {
            maker.add(a, b, c);
            continue;
        }
        Corner polygon[8];
        const int count = clipTriangle({viewCorner(i0), viewCorner(i1), viewCorner(i2)}, transform, polygon);
        for (int i = 2; i < count; ++i) maker.add(polygon[0], polygon[i - 1], polygon[i]);
    }
}

void ScreenGeometry::sortToTiles() {
    region_ = {};
    const auto tiles = std::size_t(tilesAcross_) * std::size_t(tilesUp_);
    tileEnds_.assign(tiles + 1, 0);
    texcoordsOfGroups_.clear();
    for (std::size_t g = 0; g < groupCount_; ++g) {
        const TriangleGroup& group = groups_[g];
        region_ = imaging::unionOf(region_, group.region);
        texcoordsOfGroups_.push_back(group.texcoords.data());
        for (const auto& entry : group.inTiles) ++tileEnds_[entry.tile + 1];
    }
    for (std::size_t i = 1; i <= tiles; ++i) tileEnds_[i] += tileEnds_[i - 1];
    sorted_.resize(tileEnds_[tiles]);
    // While entries are placed, each tile's start moves to its end; then all starts stand one tile too far.
    for (std::size_t g = 0; g < groupCount_; ++g)
        for (const auto& entry : groups_[g].inTiles)
            sorted_[tileEnds_[entry.tile]++] = &groups_[g].triangles[entry.triangle];
    for (std::size_t i = tiles; i > 0; --i) tileEnds_[i] = tileEnds_[i - 1];
    tileEnds_[0] = 0;
}

}   // namespace tavix::scene3d
