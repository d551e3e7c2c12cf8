#include "TavixRender/Judge/DeviceHull.h"

#include "TavixPlatform/Scene3D/SceneError.h"
#include "TavixRender/DeviceScene/DeviceModelLoader.h"
#include "TavixRender/DeviceScene/DeviceStudio.h"

#include <algorithm>
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

float along(const Vec3& point, const Vec3& way) {
    return point.x * way.x + point.y * way.y + point.z * way.z;
}

// Points that follow each other, and the box around them. Meshes have their vertices in order, so boxes are
// small.
struct Cluster {
    std::size_t begin, end;
    Vec3 least, most;
    // No point of it reaches further: rounding keeps the order of numbers.
    float reach(const Vec3& way) const {
        return along(
            {way.x > 0 ? most.x : least.x, way.y > 0 ? most.y : least.y, way.z > 0 ? most.z : least.z}, way);
    }
};

std::vector<Cluster> clustersOf(const std::vector<Vec3>& points) {
    constexpr std::size_t pointsOfCluster = 64;
    std::vector<Cluster> clusters;
    for (std::size_t begin = 0; begin < points.size(); begin += pointsOfCluster) {
        Cluster cluster{
            begin, std::min(begin + pointsOfCluster, points.size()), points[begin], points[begin]};
        for (std::size_t i = begin; i < cluster.end; ++i) {
            const Vec3& p = points[i];
            Vec3 &least = cluster.least, &most = cluster.most;
            least = {std::min(least.x, p.x), std::min(least.y, p.y), std::min(least.z, p.z)};
            most = {std::max(most.x, p.x), std::max(most.y, p.y), std::max(most.z, p.z)};
        }
        clusters.push_back(cluster);
    }
    return clusters;
}

// In the order of the points; of those that reach as far as each other, the first one.
std::vector<Vec3> outermost(const std::vector<Vec3>& points) {
    const std::vector<Cluster> clusters = clustersOf(points);
    std::set<std::size_t> kept;
    for (const Vec3& way : directions()) {
        // Whoever was outermost another way is far out this way, too: most clusters are then not looked into.
        float reach = -1e30F;
        for (const std::size_t i : kept) reach = std::max(reach, along(points[i], way));
        std::size_t best = points.size();
        for (const Cluster& cluster : clusters) {
            if (cluster.reach(way) < reach) continue;
            for (std::size_t i = cluster.begin; i < cluster.end; ++i) {
                const float here = along(points[i], way);
                if (here > reach || (here == reach && best == points.size())) reach = here, best = i;
            }
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
