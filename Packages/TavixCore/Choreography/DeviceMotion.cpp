#include "TavixCore/Choreography/DeviceMotion.h"

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Support/FieldTables.h"

#include <algorithm>
#include <variant>

namespace tavix {
namespace {

constexpr double leastDelaySec = 0.0005;
constexpr double shortestPreviewSec = 0.1;

void moveAside(DeviceMotion& motion, double anchorX) {
    if (!motion.placement.track.empty()) {
        for (DevicePlacementKeyframe& keyframe : motion.placement.track) keyframe.offset.x += anchorX;
        return;
    }
    const auto track = std::ranges::find(motion.tracks, AnimProperty::x, &PropertyTrack::property);
    if (track == motion.tracks.end())
        motion.tracks.push_back({AnimProperty::x, {{0, anchorX, LinearCurve{}, {}, {}}}});
    else
        for (CompositionKeyframe& keyframe : track->keyframes) keyframe.value += anchorX;
}

void turn(DeviceScene3D& scene, double yawDeg) {
    if (scene.poseTrack.empty()) scene.tiltDegrees.y += yawDeg;
    for (DevicePoseKeyframe& keyframe : scene.poseTrack) keyframe.tiltDegrees.y += yawDeg;
}

// What the two ways to show a motion have in common: in a document, and in a preview of its own.
void give(const DeviceMotion& motion, CompositionLayer& layer, DeviceContent& device) {
    device.scene3D = motion.sceneInsteadOf(device.scene3D);
    device.placement = motion.placement.track.empty() ? std::nullopt : std::optional(motion.placement);
    layer.enter = motion.enter;
    layer.tracks = motion.tracks;
}

}   // namespace

DeviceMotion DeviceMotion::anchored(double anchorX, double faceInwardDeg) const {
    DeviceMotion aside = *this;
    if (anchorX == 0) return aside;
    moveAside(aside, anchorX);
    if (faceInwardDeg != 0 && uses3D) turn(aside.scene3D, anchorX > 0 ? -faceInwardDeg : faceInwardDeg);
    return aside;
}

DeviceMotion DeviceMotion::delayed(double bySec) const {
    DeviceMotion later = *this;
    if (!(bySec > leastDelaySec)) return later;
    for (DevicePoseKeyframe& keyframe : later.scene3D.poseTrack) keyframe.tSec += bySec;
    for (DeviceScalarKeyframe& keyframe : later.scene3D.depthTrack) keyframe.tSec += bySec;
    for (DevicePlacementKeyframe& keyframe : later.placement.track) keyframe.tSec += bySec;
    for (PropertyTrack& track : later.tracks)
        for (CompositionKeyframe& keyframe : track.keyframes) keyframe.t += bySec;
    later.enter.reset();
    later.sceneDurationSec += bySec;
    return later;
}

bool DeviceMotion::apply(CompositionScene& scene, CompositionLayer& layer) const {
    auto* const device = std::get_if<DeviceContent>(&layer.content);
    if (!device) return false;
    give(*this, layer, *device);
    if (!scene.durationBeats) scene.durationSec = std::max(scene.durationSec, sceneDurationSec);
    return true;
}

bool DeviceMotion::apply(CompositionSpec& spec, std::size_t scene, std::size_t layer) const {
    if (scene >= spec.scenes.size() || layer >= spec.scenes[scene].layers.size()) return false;
    return apply(spec.scenes[scene], spec.scenes[scene].layers[layer]);
}

std::optional<DeviceScene3D> DeviceMotion::sceneInsteadOf(
    const std::optional<DeviceScene3D>& authored) const {
    if (!uses3D) return std::nullopt;
    DeviceScene3D scene = scene3D;
    if (authored) scene.finish = authored->finish;
    return scene;
}

std::optional<DeviceMotion::LayerIndex> DeviceMotion::firstDeviceLayer(const CompositionSpec& spec) {
    for (std::size_t scene = 0; scene < spec.scenes.size(); ++scene)
        for (std::size_t layer = 0; layer < spec.scenes[scene].layers.size(); ++layer)
            if (std::holds_alternative<DeviceContent>(spec.scenes[scene].layers[layer].content))
                return LayerIndex{scene, layer};
    return std::nullopt;
}

CompositionSpec DeviceMotion::previewSpec(
    const std::string& screenPath, const CompositionOutput& output) const {
    DeviceContent device;
    device.screen = StillScreen{screenPath};
    CompositionLayer layer;
    give(*this, layer, device);
    layer.content = std::move(device);
    CompositionScene scene;
    scene.durationSec = std::max(sceneDurationSec, shortestPreviewSec);
    scene.layers.push_back(std::move(layer));
    CompositionSpec spec;
    spec.output = output;
    spec.scenes.push_back(std::move(scene));
    return spec;
}

const Fields<DeviceMotion>& fieldsOf(std::type_identity<DeviceMotion>) {
    using M = DeviceMotion;
    static const Fields<M> table{"DeviceMotion",
        {field<&M::scene3D>("scene3D", "The device as a model in space.").required(),
            field<&M::placement>("placement", "Where the device sits, in time.").required(),
            field<&M::enter>("enter", "Where the layer comes from as it appears."),
            field<&M::tracks>("tracks", "Animated properties of the layer.").unlessDefault(),
            field<&M::uses3D>("uses3D", "Whether the device is a model in space.").unlessDefault(),
            field<&M::sceneDurationSec>("sceneDurationSec", "The whole length.")
                .measuredIn(Unit::seconds)
                .required()}};
    return table;
}

}   // namespace tavix
