// From a parsed glTF file to entities. Inside the library only.
#pragma once

#include "TavixPlatform/Scene3D/Entity.h"
#include "TavixPlatform/Scene3D/GltfAccess.h"

#include <string>
#include <vector>

namespace tinygltf {
struct Material;
struct Mesh;
class Node;
struct Primitive;
}   // namespace tinygltf

namespace tavix::scene3d {

class GltfScene {
public:
    GltfScene(const tinygltf::Model& model, const std::string& name) : model_(model), access_(model, name) {}
    EntityRef build();

private:
    static constexpr std::size_t mostNodes = 65536;
    static constexpr int mostDepth = 256;

    void requireKnownExtensions() const;
    void addNode(Entity& parent, int node, int depth);
    Model modelOf(int mesh);
    void addPrimitive(const tinygltf::Primitive& primitive, Model& model, MeshData& data);
    std::vector<std::uint32_t> trianglesOf(const tinygltf::Primitive& primitive, std::size_t vertices) const;

    const tinygltf::Model& model_;
    GltfAccess access_;
    std::vector<bool> isVisited_;
    std::vector<std::optional<Model>> models_;   // by the file's mesh, once read
    std::size_t triangleCount_ = 0;              // of all nodes
};

}   // namespace tavix::scene3d
