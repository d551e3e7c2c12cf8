// Triangles with their normals and texture coordinates. Immutable once made, shared by entities and read by
// any thread; who edits a mesh copies its data, changes that and makes a new one.
#pragma once

#include "TavixPlatform/Scene3D/Vectors.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace tavix::scene3d {

// A part has one material: that of its slot in the model that shows the mesh.
struct MeshPart {
    std::vector<std::uint32_t> indices;   // three per triangle, counter-clockwise seen from outside
    std::uint32_t materialSlot = 0;
};

struct MeshData {
    std::vector<Vec3> positions;
    std::vector<Vec3>
        normals;   // one per position; where one is missing or zero it is made from the triangles
    std::vector<Vec2> texcoords;   // one per position, v downward from the top of the picture; or none
    std::vector<MeshPart> parts;
};

class Mesh;
using MeshRef = std::shared_ptr<const Mesh>;

class Mesh {
public:
    static constexpr std::size_t mostVertices = 4u << 20, mostTriangles = 4u << 20;

    // Throws SceneError when an index points past the vertices, a number is not finite, counts disagree or
    // pass the limits above. Indices past the last whole triangle of a part are dropped.
    static MeshRef make(MeshData data);

    const MeshData& data() const { return data_; }
    const Bounds& bounds() const { return bounds_; }
    std::size_t triangleCount() const { return triangleCount_; }

private:
    explicit Mesh(MeshData data);
    MeshData data_;
    Bounds bounds_;
    std::size_t triangleCount_ = 0;
};

}   // namespace tavix::scene3d
