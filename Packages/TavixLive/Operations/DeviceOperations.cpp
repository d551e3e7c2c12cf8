#include "TavixLive/Operations/DeviceOperations.h"

#include "TavixCore/Choreography/DeviceChoreographyExpander.h"
#include "TavixCore/Choreography/DeviceMotionExpander.h"
#include "TavixCore/Time/CompositionTimeline.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tavix::DeviceOperations {

namespace {

using DeviceKeyframes::UnifiedState;

constexpr double leastExtraSec = 0.01;
// A device far from the camera moves further for the same way of the pointer.
constexpr double cameraDepth = 1.5, leastDistance = 0.2, leastOverscan = 0.05;
constexpr double scalePerPoint = -0.006, mostScale = 5;

}   // namespace

bool deviceHasAuthoredMotion(const CompositionSpec& spec, std::size_t scene, std::size_t layer) {
    if (scene >= spec.scenes.size() || layer >= spec.scenes[scene].layers.size()) return false;
    const CompositionLayer& shown = spec.scenes[scene].layers[layer];
    const auto* device = std::get_if<DeviceContent>(&shown.content);
    if (device == nullptr) return false;
    const bool movesInSpace =
        device->scene3D && !(device->scene3D->poseTrack.empty() && device->scene3D->depthTrack.empty());
    return device->placement || movesInSpace || !shown.tracks.empty() || shown.enter;
}

void applyDeviceMotionPreset(
    EditState& state, std::size_t scene, std::size_t layer, const DeviceMotionRef& ref) {
    DeviceMotionExpander::expand(ref.preset, ref.params).apply(state.spec, scene, layer);
}

void applyDeviceChoreographyPreset(
    EditState& state, std::size_t scene, std::size_t layer, const DeviceChoreographyRef& ref) {
    auto* device = state.content<DeviceContent>(scene, layer);
    if (device == nullptr) return;
    device->choreographyPreset = ref;
    // As reading does it: of this scene alone.
    CompositionSpec part;
    part.output = state.spec.output;
    part.scenes.push_back(std::move(state.spec.scenes[scene]));
    DeviceChoreographyExpander::bake(part);
    state.spec.scenes[scene] = std::move(part.scenes.front());
    for (CompositionLayer& each : state.spec.scenes[scene].layers)
        if (each.origin.baked == LayerOrigin::Baked::formation) each.origin = {};   // nobody wrote its name
    clampSelection(state);
}

void setDevice3D(
    EditState& state, Scene3DStash& stash, std::size_t scene, std::size_t layer, bool isEnabled) {
    auto* device = state.content<DeviceContent>(scene, layer);
    if (device == nullptr || device->scene3D.has_value() == isEnabled) return;
    const std::string key = std::to_string(scene) + "." + std::to_string(layer);
    if (isEnabled) {
        const auto stashed = stash.find(key);
        device->scene3D = stashed == stash.end() ? DeviceScene3D{} : stashed->second;
    } else {
        stash[key] = *std::exchange(device->scene3D, std::nullopt);
    }
}

std::optional<double> appendKeyframe(
    EditState& state, std::size_t scene, std::size_t layer, double extraSec) {
    auto* device = state.content<DeviceContent>(scene, layer);
    if (device == nullptr) return std::nullopt;
    double& lengthSec = state.scene(scene)->durationSec;
    const double fromSec = state.layer(scene, layer)->fromSec;   // which its keyframes count from
    const UnifiedState atEnd = DeviceKeyframes::unifiedState(*device, state.spec.output, lengthSec - fromSec);
    lengthSec += std::max(extraSec, leastExtraSec);
    DeviceKeyframes::upsertUnifiedKeyframe(*device, lengthSec - fromSec, atEnd);
    return lengthSec;
}

std::optional<DeviceDragStart> dragStart(
    const EditState& state, std::size_t scene, std::size_t layer, double filmSec) {
    const auto* device = state.content<DeviceContent>(scene, layer);
    if (device == nullptr) return std::nullopt;
    const double startSec =
        CompositionTimeline(state.spec).startSec[scene] + state.layer(scene, layer)->fromSec;
    const double atSec = std::max(filmSec - startSec, 0.0);
    return DeviceDragStart{
        scene, layer, atSec, DeviceKeyframes::unifiedState(*device, state.spec.output, atSec)};
}

UnifiedState moved(const DeviceDragStart& start, double dxPoints, double dyPoints, const StageView& view,
    DeviceMoveAxis axis) {
    UnifiedState state = start.state;
    if (!(view.fittedHeight > 0)) return state;
    const double perPoint = std::max(cameraDepth - state.depth, leastDistance) /
                            (std::max(view.overscan, leastOverscan) * view.fittedHeight);
    if (axis != DeviceMoveAxis::y) state.offset.x += perPoint * dxPoints;
    if (axis != DeviceMoveAxis::x) state.offset.y += perPoint * dyPoints;
    return state;
}

UnifiedState rotated(const DeviceDragStart& start, const PixelPoint& from, const PixelPoint& to,
    const DeviceGizmoMath::Arcball& ball) {
    UnifiedState state = start.state;
    state.tiltDegrees = DeviceGizmoMath::arcballTilt(state.tiltDegrees, from, to, ball);
    return state;
}

UnifiedState scaled(const DeviceDragStart& start, double dyPoints) {
    UnifiedState state = start.state;
    state.scale =
        std::clamp(state.scale * std::exp(dyPoints * scalePerPoint), leastPlacementScale, mostScale);
    return state;
}

}   // namespace tavix::DeviceOperations
