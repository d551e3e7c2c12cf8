#include "TavixPlatform/Scene3D/Mesh.h"

#include "TavixPlatform/Scene3D/SceneError.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace tavix::scene3d {

namespace {

[[noreturn]] void refuse(const char* what, std::size_t vertex) {
    throw SceneError("The " + std::string(what) + " of vertex " + std::to_string(vertex) +
                     " of the mesh is not a finite number.");
}

void requireFinite(const MeshData& data) {
    for (std::size_t i = 0; i < data.positions.size(); ++i)
        if (!isFinite(data.positions[i])) refuse("position", i);
    for (std::size_t i = 0; i < data.normals.size(); ++i)
        if (!isFinite(data.normals[i])) refuse("normal", i);
    for (std::size_t i = 0; i < data.texcoords.size(); ++i)
        if (!(std::isfinite(data.texcoords[i].x) && std::isfinite(data.texcoords[i].y)))
            refuse("texture coordinate", i);
}

void requireAtMost(std::size_t most, std::size_t count, const char* things) {
    if (count > most)
        throw SceneError("The mesh has " + std::to_string(count) + " " + things + "; at most " +
                         std::to_string(most) + " can be drawn.");
}

void requireOneEach(std::size_t positions, std::size_t count, const char* things) {
    if (count != 0 && count != positions)
        throw SceneError("The mesh has " + std::to_string(positions) + " positions and " +
                         std::to_string(count) + " " + things + "; it needs one each.");
}

void requireWholeness(const MeshData& data) {
    const std::size_t count = data.positions.size();
    requireAtMost(Mesh::mostVertices, count, "vertices");
    requireOneEach(count, data.normals.size(), "normals");
    requireOneEach(count, data.texcoords.size(), "texture coordinates");
    for (const MeshPart& part : data.parts) {
        const auto past = std::ranges::find_if(part.indices, [&](std::uint32_t i) { return i >= count; });
        if (past != part.indices.end())
            throw SceneError("A triangle of the mesh names vertex " + std::to_string(*past) +
                             ", but there are " + std::to_string(count) + ".");
    }
}

// Unit normals. A missing one is the mean of the triangles around, weighed by their area.
void completeNormals(MeshData& data) {
    data.normals.resize(data.positions.size());
    std::vector<Vec3> sums;
    for (Vec3& normal : data.normals) {
        normal = normalized(normal);
        if (normal == Vec3{} && sums.empty()) sums.resize(data.positions.size());
    }
    if (sums.empty()) return;
    for (const MeshPart& part : data.parts) {
        for (std::size_t i = 0; i + 2 < part.indices.size(); i += 3) {
            const std::uint32_t a = part.indices[i], b = part.indices[i + 1], c = part.indices[i + 2];
            const Vec3 area =
                cross(data.positions[b] - data.positions[a], data.positions[c] - data.positions[a]);
            for (const std::uint32_t corner : {a, b, c}) sums[corner] = sums[corner] + area;
        }
    }
    for (std::size_t i = 0; i < sums.size(); ++i) {
        if (data.normals[i] != Vec3{}) continue;
        const Vec3 mean = normalized(sums[i]);
        data.normals[i] = mean == Vec3{} || !isFinite(mean) ? Vec3{0, 0, 1} : mean;
    }
}

}   // namespace

Mesh::Mesh(MeshData data) : data_(std::move(data)) {
    for (const Vec3 position : data_.positions) bounds_.add(position);
    for (const MeshPart& part : data_.parts) triangleCount_ += part.indices.size() / 3;
}

MeshRef Mesh::make(MeshData data) {
    requireWholeness(data);
    requireFinite(data);
    std::size_t triangles = 0;
    for (MeshPart& part : data.parts) {
        part.indices.resize(part.indices.size() / 3 * 3);
        triangles += part.indices.size() / 3;
    }
    requireAtMost(mostTriangles, triangles, "triangles");
    completeNormals(data);
    return MeshRef(new Mesh(std::move(data)));
}

}   // namespace tavix::scene3d
