#include "TavixRender/DeviceScene/DeviceMeshRepair.h"

#include <array>
#include <cmath>
#include <functional>

namespace tavix::DeviceStudio {

namespace {

using scene3d::Vec3;
using Corners = std::array<Vec3, 3>;

struct Thinned {
    scene3d::MeshRef mesh;   // the same object when nothing was removed
    int removedTriangles = 0;
};

Thinned without(const scene3d::MeshRef& mesh, const std::function<bool(const Corners&)>& isUnwanted) {
    scene3d::MeshData data = mesh->data();
    int removed = 0;
    for (scene3d::MeshPart& part : data.parts) {
        std::vector<std::uint32_t> kept;
        kept.reserve(part.indices.size());
        for (std::size_t i = 0; i + 2 < part.indices.size(); i += 3) {
            const std::uint32_t a = part.indices[i], b = part.indices[i + 1], c = part.indices[i + 2];
            if (isUnwanted({data.positions[a], data.positions[b], data.positions[c]}))
                ++removed;
            else
                kept.insert(kept.end(), {a, b, c});
        }
        part.indices = std::move(kept);
    }
    if (removed == 0) return {mesh, 0};
    return {scene3d::Mesh::make(std::move(data)), removed};
}

bool isBottomCenter(Vec3 at) { return at.y < 0.006f && std::abs(at.x) < 0.015f; }

// The model stands with its back to +z.
bool isRear(const Corners& c) { return (c[0].z + c[1].z + c[2].z) / 3 > 0.003f; }

}   // namespace

int removeBottomCenterArtifact(scene3d::Entity& entity) {
    if (!entity.model) return 0;
    Thinned thinned = without(entity.model->mesh, [](const Corners& c) {
        return isBottomCenter(c[0]) && isBottomCenter(c[1]) && isBottomCenter(c[2]);
    });
    entity.model->mesh = std::move(thinned.mesh);
    return thinned.removedTriangles;
}

std::optional<PreparedModel::RearCameraMesh> rearCameraMeshVariant(const scene3d::EntityRef& entity) {
    if (!entity->model) return std::nullopt;
    Thinned thinned = without(entity->model->mesh, isRear);
    if (thinned.removedTriangles == 0) return std::nullopt;
    PreparedModel::RearCameraMesh result{entity, *entity->model, *entity->model, thinned.removedTriangles};
    result.hidden.mesh = std::move(thinned.mesh);
    return result;
}

}   // namespace tavix::DeviceStudio
