#include "TavixRender/DeviceScene/DeviceStage.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tavix {

namespace {

using scene3d::Entity;
using scene3d::EntityRef;
using scene3d::Rotation;
using scene3d::Vec3;

// Models look along -z, and cameras do too: turned round, the screen faces the camera.
constexpr double halfTurnDegrees = 180;
constexpr double leastWorldHeight = 0.1, leastViewHeight = 0.01;
constexpr double neutralDepthDistance = 1.5;   // less the usual depth of 0.5 is one camera distance
constexpr double facesAway = -0.001;           // the cosine of a yaw that shows the back

double radians(double degrees) { return degrees * std::numbers::pi / 180; }

Vec3 vec3(double x, double y, double z) { return {float(x), float(y), float(z)}; }
Vec3 evenScale(double scale) { return vec3(scale, scale, scale); }

EntityRef added(Entity& parent, const char* name) {
    EntityRef entity = Entity::make(name);
    parent.add(entity);
    return entity;
}

scene3d::Sides sidesOf(const std::vector<scene3d::Material>& materials) {
    const auto isOpen = [](const scene3d::Material& material) {
        return std::visit([](const auto& m) { return m.sides == scene3d::Sides::both; }, material);
    };
    return std::ranges::any_of(materials, isOpen) ? scene3d::Sides::both : scene3d::Sides::front;
}

// One material for all of a mesh.
void cover(Entity& entity, const scene3d::Material& material) {
    entity.model->materials.assign(std::max<std::size_t>(entity.model->materials.size(), 1), material);
}

}   // namespace

DeviceLens::DeviceLens(double cameraDistance, double fovDegrees)
    : distance_(cameraDistance), viewHeight_(2 * cameraDistance * std::tan(radians(fovDegrees) / 2)) {}

double DeviceLens::modelHeight(double heightFraction) const {
    return std::max(viewHeight_ * heightFraction, leastWorldHeight);
}

double DeviceLens::cameraPosition(const DeviceStance& stance) const {
    return stance.depth ? (neutralDepthDistance - *stance.depth) * distance_ : distance_;
}

scene3d::Transform DeviceLens::rig(const DeviceStance& stance) const {
    scene3d::Transform transform;
    if (!stance.placement) return transform;
    const auto& [offset, size] = *stance.placement;
    transform.position = vec3(offset.x * viewHeight_, -offset.y * viewHeight_, 0);
    transform.scale = evenScale(size);
    return transform;
}

Rotation DeviceLens::turn(const DeviceStance& stance) {
    const Vector3& pose = stance.poseDegrees;
    return Rotation::about({0, 0, 1}, -pose.z) * Rotation::about({0, 1, 0}, pose.y) *
           Rotation::about({1, 0, 0}, -pose.x);
}

DeviceLens::Standing DeviceLens::standing(const DeviceStance& stance) const {
    scene3d::Transform turned;
    turned.orientation = turn(stance);
    Standing standing;
    standing.turn_ = turned.matrix();
    standing.rig_ = rig(stance).matrix();
    return standing;
}

bool DeviceLens::showsBack(const DeviceStance& stance) {
    return std::cos(radians(stance.poseDegrees.y)) < facesAway;
}

std::optional<DeviceStage> DeviceStage::build(EntityRef model, DeviceFinish finish) {
    DeviceStage stage;
    stage.prepared_ = DeviceStudio::prepare(model, finish);
    if (!stage.prepared_.screen) return std::nullopt;
    stage.model_ = std::move(model);
    stage.model_->transform.orientation = Rotation::about({0, 1, 0}, halfTurnDegrees);
    const scene3d::Bounds bounds = stage.model_->visualBounds();
    stage.modelUnit_ = bounds.extents().y > 0 ? 1 / double(bounds.extents().y) : 1;
    stage.modelCenter_ = bounds.center();
    stage.hangUp();
    stage.screenTexture_ = std::make_shared<scene3d::Texture>();
    for (const EntityRef& entity : stage.prepared_.screenOccluders)
        stage.occluders_.push_back({entity, entity->model->materials});
    return stage;
}

// The lights belong to the rig and not to the phone: they travel and grow with it, and it turns in their
// light.
void DeviceStage::hangUp() {
    scene_.root = Entity::make("stage");
    rig_ = added(*scene_.root, "rig");
    phone_ = added(*rig_, "phone");
    phone_->add(model_);
    lights_ = {added(*rig_, "key light"), added(*rig_, "fill light"), added(*rig_, "rim light")};
    camera_ = added(*scene_.root, "camera");
    scene_.camera = camera_;
    scene_.environment = DeviceStudio::environmentLight();
}

void DeviceStage::setUp(const DeviceScene& scene, std::optional<double> heightFraction) {
    lens_ = DeviceLens(scene.cameraDistance, scene.fovDegrees);
    camera_->camera = scene3d::PerspectiveCamera{.fieldOfViewDeg = float(scene.fovDegrees)};
    const double fraction = heightFraction.value_or(1 / std::max(lens_.viewHeight(), leastViewHeight));
    const double scale = modelUnit_ * lens_.modelHeight(fraction);
    model_->transform.scale = evenScale(scale);
    model_->transform.position = modelCenter_ * float(-scale);
    DeviceStudio::installLighting(lights_, *rig_, scene);
}

void DeviceStage::stand(const DeviceStance& stance) {
    phone_->transform.orientation = DeviceLens::turn(stance);
    rig_->transform = lens_.rig(stance);
    camera_->transform.position = vec3(0, 0, lens_.cameraPosition(stance));
    showsItsBack_ = DeviceLens::showsBack(stance);
}

double DeviceStage::magnification(const DeviceStance& stance) const {
    const double size = stance.placement ? stance.placement->scale : 1;
    return size * lens_.distance() / std::max(lens_.cameraPosition(stance), leastViewHeight);
}

// Dark, the screen takes no time here; its own pass lies over all of it.
const scene3d::Scene& DeviceStage::bodyScene() {
    cover(*prepared_.screen, scene3d::Unlit{.name = "dark screen", .tint = {0, 0, 0}, .texture = nullptr});
    for (const Occluder& occluder : occluders_) occluder.entity->model->materials = occluder.materials;
    showRearCamera(showsItsBack_);
    for (const EntityRef& entity : prepared_.body) entity->isEnabled = true;
    prepared_.screen->isEnabled = true;
    return scene_;
}

const scene3d::Scene& DeviceStage::screenScene() {
    cover(*prepared_.screen, scene3d::Unlit{.name = "screen", .tint = {1, 1, 1}, .texture = screenTexture_});
    showRearCamera(false);
    for (const Occluder& occluder : occluders_)
        cover(*occluder.entity, scene3d::Cutout{"bezel", sidesOf(occluder.materials)});
    for (const EntityRef& entity : prepared_.body) entity->isEnabled = false;
    for (const EntityRef& entity : prepared_.screenOccluders) entity->isEnabled = true;
    prepared_.screen->isEnabled = true;
    return scene_;
}

void DeviceStage::showRearCamera(bool isVisible) {
    for (const EntityRef& entity : prepared_.rearCameraHardware) entity->isEnabled = isVisible;
    for (const auto& mesh : prepared_.rearCameraMeshes)
        mesh.entity->model = isVisible ? mesh.visible : mesh.hidden;
}

}   // namespace tavix
