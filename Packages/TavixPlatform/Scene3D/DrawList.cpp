#include "TavixPlatform/Scene3D/DrawList.h"

#include <algorithm>
#include <cmath>

namespace tavix::scene3d {

namespace {

const Material& defaultMaterial() {
    static const Material material = PhysicallyBased{};
    return material;
}

bool isUsable(const Affine3& transform) {
    for (const auto& row : transform.rows)
        for (const double value : row)
            if (!(std::abs(value) < 1e9)) return false;
    return transform.determinant() != 0;
}

}   // namespace

void DrawList::gather(const Entity& root) {
    instances.clear();
    parts.clear();
    lights.clear();
    materials.clear();
    vertexCount = triangleCount = 0;
    gatherTree(root, root.parent() ? root.parent()->worldTransform() : Affine3{});
}

void DrawList::gatherTree(const Entity& entity, const Affine3& parentToWorld) {
    if (!entity.isEnabled) return;
    const Affine3 toWorld = parentToWorld * entity.transform.matrix();
    if (isUsable(toWorld)) {
        if (entity.light) lights.push_back({&*entity.light, toWorld});
        if (entity.model && entity.model->mesh) addModel(*entity.model, toWorld);
    }
    for (const EntityRef& child : entity.children()) gatherTree(*child, toWorld);
}

void DrawList::addModel(const Model& model, const Affine3& toWorld) {
    const Mesh& mesh = *model.mesh;
    const auto instance = std::uint32_t(instances.size());
    instances.push_back({&mesh, toWorld, toWorld.determinant() < 0, vertexCount});
    vertexCount += mesh.data().positions.size();
    for (const MeshPart& part : mesh.data().parts) {
        const Material& material = part.materialSlot < model.materials.size()
                                       ? model.materials[part.materialSlot]
                                       : defaultMaterial();
        const auto* unlit = std::get_if<Unlit>(&material);
        const bool isTextured =
            unlit && unlit->texture && unlit->texture->size().width > 0 && !mesh.data().texcoords.empty();
        const Sides sides = std::visit([](const auto& m) { return m.sides; }, material);
        parts.push_back({&part, instance, materialIndex(material), sides, isTextured, triangleCount});
        triangleCount += part.indices.size() / 3;
    }
}

std::uint32_t DrawList::materialIndex(const Material& material) {
    constexpr std::size_t looked = 64;   // a model of very many materials is not searched whole
    const std::size_t first = materials.size() > looked ? materials.size() - looked : 0;
    for (std::size_t i = first; i < materials.size(); ++i)
        if (*materials[i] == material) return std::uint32_t(i);
    materials.push_back(&material);
    return std::uint32_t(materials.size() - 1);
}

}   // namespace tavix::scene3d
