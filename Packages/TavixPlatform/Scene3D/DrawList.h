// What of a scene is to be drawn: its enabled meshes with their place in the world, their materials, its
// lights. Inside the library only.
#pragma once

#include "TavixPlatform/Scene3D/Entity.h"

#include <cstdint>
#include <vector>

namespace tavix::scene3d {

struct MeshInstance {
    const Mesh* mesh;
    Affine3 toWorld;
    bool isMirrored;
    std::size_t firstVertex;   // among those of all instances
};

struct PartInstance {
    const MeshPart* part;
    std::uint32_t instance;
    std::uint32_t material;
    Sides sides;
    bool isTextured;
    std::size_t firstTriangle;   // among those of all parts
};

struct LightInstance {
    const Light* light;
    Affine3 toWorld;
};

// Points into the scene, which must stay as it is while the list is in use. Keeps its memory.
class DrawList {
public:
    void gather(const Entity& root);

    std::vector<MeshInstance> instances;
    std::vector<PartInstance> parts;
    std::vector<LightInstance> lights;
    std::vector<const Material*> materials;   // equal ones are one
    std::size_t vertexCount = 0, triangleCount = 0;

private:
    void gatherTree(const Entity& entity, const Affine3& parentToWorld);
    void addModel(const Model& model, const Affine3& toWorld);
    std::uint32_t materialIndex(const Material& material);
};

}   // namespace tavix::scene3d
