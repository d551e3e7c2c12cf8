// The triangles of a view, on the screen and sorted to tiles. Inside the library only.
#pragma once

#include "TavixPlatform/Imaging/Geometry.h"
#include "TavixPlatform/Scene3D/DrawList.h"
#include "TavixPlatform/Scene3D/Frame.h"
#include "TavixPlatform/Scene3D/Kernels/SceneKernels.h"

#include <cstdint>
#include <span>
#include <vector>

namespace tavix::imaging {
class ScratchLoop;
}

namespace tavix::scene3d {

// A vertex of a triangle that is being made.
struct Corner {
    std::int32_t x, y;
    Attributes attributes;
    Vec2 texcoord;   // not divided by depth
};

// Triangles made from one run of the draw list, so that the order does not depend on threads.
struct TriangleGroup {
    struct InTile {
        std::uint32_t tile, triangle;
    };
    std::vector<Triangle> triangles;
    std::vector<TexcoordPlanes> texcoords;
    std::vector<InTile> inTiles;
    imaging::PixelRegion region;   // of the triangles, in pixels

    void clear();
};

// Keeps its memory from frame to frame.
class ScreenGeometry {
public:
    void build(const DrawList& list, const View& view, const SamplePattern& pattern,
        const SceneKernels& kernels, imaging::ScratchLoop& loop);

    const imaging::PixelRegion& region() const { return region_; }   // empty when nothing is in sight
    int tilesAcross() const { return tilesAcross_; }
    int tilesUp() const { return tilesUp_; }
    std::span<const Triangle* const> trianglesIn(int tile) const {
        const auto t = std::size_t(tile);
        return {sorted_.data() + tileEnds_[t], sorted_.data() + tileEnds_[t + 1]};
    }
    const TexcoordPlanes* const* texcoordsOfGroups() const { return texcoordsOfGroups_.data(); }

private:
    struct VertexJob {
        std::uint32_t instance;
        std::size_t begin, end;
    };
    void projectVertices(const SceneKernels& kernels, imaging::ScratchLoop& loop);
    void projectRun(const VertexJob& job, const SceneKernels& kernels);
    void assemble(std::size_t group);
    void assemblePart(TriangleGroup& group, const PartInstance& part, std::size_t begin, std::size_t end);
    void sortToTiles();

    const DrawList* list_ = nullptr;
    View view_;
    const SamplePattern* pattern_ = nullptr;
    int tilesAcross_ = 0, tilesUp_ = 0;
    imaging::PixelRegion region_;
    std::vector<VertexTransform> transforms_;   // of the instances
    std::vector<VertexJob> vertexJobs_;
    std::vector<std::int32_t> x_, y_;
    std::vector<Attributes> attributes_;
    std::vector<TriangleGroup> groups_;
    std::size_t groupCount_ = 0;
    std::vector<const TexcoordPlanes*> texcoordsOfGroups_;
    std::vector<std::uint32_t> tileEnds_;
    std::vector<const Triangle*> sorted_;
};

// Makes triangles for a view and puts them into a group.
class TriangleMaker {
public:
    struct Settings {
        int widthPx, heightPx, tilesAcross;
        int unitBits;   // of the sample pattern
        std::uint32_t group, material;
        Sides sides;
        bool isTextured;
    };
    TriangleMaker(TriangleGroup& group, const Settings& settings) : group_(group), settings_(settings) {}
    // Drops what is turned away, has no area or misses every sample.
    void add(Corner a, Corner b, Corner c);

private:
    void addTexcoords(Triangle& triangle, const Corner* const (&corners)[3], float inverseArea);
    void putIntoTiles(const imaging::PixelRegion& pixels);

    TriangleGroup& group_;
    Settings settings_;
};

// A vertex in a view's space: what clipping works on.
struct ViewCorner {
    double x, y, depth;
    Vec3 normal;   // of world space
    Vec2 texcoord;
    bool isProjected;   // an original vertex in sight, whose place on the screen is known
    std::int32_t screenX, screenY;
    Attributes attributes;
};
// The convex part of a triangle that lies before the near plane and within the guard band, as corners in
// order; at most 8. Neighbours that share an edge get the same points along it.
int clipTriangle(const ViewCorner (&triangle)[3], const VertexTransform& view, Corner (&out)[8]);

}   // namespace tavix::scene3d
