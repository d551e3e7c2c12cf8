#include "TavixRender/Judge/DeviceHull.h"

#include "TavixPlatform/Scene3D/SceneError.h"
#include "TavixRender/DeviceScene/DeviceModelLoader.h"
#include "TavixRender/DeviceScene/DeviceStudio.h"

#include <cmath>
#include <numbers>
#include <set>

namespace tavix::DeviceHull {
namespace {

using scene3d::Vec3;

// Spread evenly over the sphere. The round edges of a phone 1000 pixels tall are met to half a pixel.
constexpr int directionCount = 400;

std::vector<Vec3> directions() {
    std::vector<Vec3> spread;
    const double golden = std::numbers::pi * (3 - std::sqrt(5.0));
    for (int i = 0; i < directionCount; ++i) {
        const double z = 1 - (2.0 * i + 1) / directionCount, r = std::sqrt(1 - z * z);
        spread.push_back({float(r * std::cos(golden * i)), float(r * std::sin(golden * i)), float(z)});
    }
    return spread;
}

std::vector<Vec3> outermost(const std::vector<Vec3>& points) {
    std::set<std::size_t> kept;
    for (const Vec3& way : directions()) {
        std::size_t best = 0;
        float reach = -1e30F;
        for (std::size_t i = 0; i < points.size(); ++i) {
            const float along = points[i].x * way.x + points[i].y * way.y + points[i].z * way.z;
            if (along > reach) reach = along, best = i;
        }
        kept.insert(best);
    }
    std::vector<Vec3> hull;
    for (const std::size_t i : kept) hull.push_back(points[i]);
    return hull;
}

void addVertices(const scene3d::Entity& entity, const scene3d::Model& model, std::vector<Vec3>& points) {
    const scene3d::Affine3 world = entity.worldTransform();
    const scene3d::MeshData& data = model.mesh->data();
    std::vector<bool> isDrawn(data.positions.size(), false);
    for (const scene3d::MeshPart& part : data.parts)
        for (const std::uint32_t index : part.indices) isDrawn[index] = true;
    for (std::size_t i = 0; i < data.positions.size(); ++i)
        if (isDrawn[i]) points.push_back(world.apply(data.positions[i]));
}

Points measured() {
    const scene3d::EntityRef model = DeviceModelLoader::freshModelInstance();
    if (!model) return {};
    DeviceStudio::PreparedModel prepared = DeviceStudio::prepare(model, DeviceFinish::silver);
    if (!prepared.screen) return {};
    const scene3d::Bounds bounds = model->visualBounds();
    const float unit = bounds.extents().y > 0 ? 1 / bounds.extents().y : 1;
    const Vec3 center = bounds.center();
    const auto standing = [&](std::vector<Vec3> points) {
        for (Vec3& p : points)
            p = {-(p.x - center.x) * unit, (p.y - center.y) * unit, -(p.z - center.z) * unit};
        return points.empty() ? points : outermost(points);
    };
    for (const scene3d::EntityRef& entity : prepared.rearCameraHardware) entity->isEnabled = false;
    for (const auto& mesh : prepared.rearCameraMeshes) mesh.entity->model = mesh.hidden;
    std::vector<Vec3> body, camera;
    const auto take = [&](const scene3d::Entity& entity) {
        if (entity.isEnabled && entity.model) addVertices(entity, *entity.model, body);
    };
    take(*prepared.screen);
    for (const scene3d::EntityRef& entity : prepared.body) take(*entity);
    for (const scene3d::EntityRef& entity : prepared.rearCameraHardware)
        if (entity->model) addVertices(*entity, *entity->model, camera);
    for (const auto& mesh : prepared.rearCameraMeshes) addVertices(*mesh.entity, mesh.visible, camera);

    Points points{standing(std::move(body)), {}};
    points.back = points.front;
    const std::vector<Vec3> outerCamera = standing(std::move(camera));
    points.back.insert(points.back.end(), outerCamera.begin(), outerCamera.end());
    return points;
}

}   // namespace

const Points& ofTheModel() {
    static const Points points = [] {
        try {
            return measured();
        } catch (const scene3d::SceneError&) {
            return Points{};   // a render tells of it
        }
    }();
    return points;
}

}   // namespace tavix::DeviceHull
