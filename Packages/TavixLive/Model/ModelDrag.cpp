// A device in the hand of somebody who drags it over the stage.
#include "TavixLive/Model/CompositionEditorModel.h"

#include <utility>

namespace tavix {

namespace {

constexpr const char* stepName = "Move device";

}   // namespace

void CompositionEditorModel::beginDeviceDrag(std::size_t scene, std::size_t layer) {
    letGo();
    deviceDragStart_ = DeviceOperations::dragStart(edited(), scene, layer, state.currentTime());
    if (deviceDragStart_) beginGesture(stepName);
}

void CompositionEditorModel::follow(const DeviceKeyframes::UnifiedState& stands) {
    const DeviceOperations::DeviceDragStart& start = *deviceDragStart_;
    liveUpsertUnifiedKeyframe(start.scene, start.layer, start.atSec, stands);
}

void CompositionEditorModel::dragDeviceMove(
    double dxPoints, double dyPoints, double fittedHeight, DeviceOperations::DeviceMoveAxis axis) {
    if (deviceDragStart_ && fittedHeight > 0)
        follow(DeviceOperations::moved(
            *deviceDragStart_, dxPoints, dyPoints, {fittedHeight, state.previewOverscan()}, axis));
}

void CompositionEditorModel::dragDeviceRotate(
    const PixelPoint& from, const PixelPoint& to, const DeviceGizmoMath::Arcball& ball) {
    if (deviceDragStart_) follow(DeviceOperations::rotated(*deviceDragStart_, from, to, ball));
}

void CompositionEditorModel::dragDeviceScale(double dyPoints) {
    if (deviceDragStart_) follow(DeviceOperations::scaled(*deviceDragStart_, dyPoints));
}

void CompositionEditorModel::endDeviceDrag() {
    if (!std::exchange(deviceDragStart_, std::nullopt)) return;
    commitLiveEdits();
    endGesture();
}

// What is in the hand becomes a part of the document before anything else happens to it.
void CompositionEditorModel::letGo() {
    endDeviceDrag();
    commitLiveEdits();
}

// As it is under the hand.
std::optional<DeviceContent> CompositionEditorModel::liveDevice(std::size_t scene, std::size_t layer) const {
    const auto* device = edited().content<DeviceContent>(scene, layer);
    if (device == nullptr) return std::nullopt;
    DeviceContent held = *device;
    if (liveTarget_ == LiveTarget{scene, layer}) applyLiveEdits(held);
    return held;
}

void CompositionEditorModel::liveUpsertUnifiedKeyframe(
    std::size_t scene, std::size_t layer, double atSec, const DeviceKeyframes::UnifiedState& stands) {
    auto held = liveDevice(scene, layer);
    if (!held) return;
    DeviceKeyframes::upsertUnifiedKeyframe(*held, atSec, stands);
    if (!held->scene3D) {
        EditState changed = draft();
        *changed.content<DeviceContent>(scene, layer) = std::move(*held);
        return become(stepName, std::move(changed));
    }
    hold({scene, layer});
    livePlacement_ = held->placement;
    liveScene3D_ = held->scene3D;
    liveApply();
}

void CompositionEditorModel::liveSetRestTilt(
    std::size_t scene, std::size_t layer, DeviceKeyframes::TiltAxis axis, double degrees) {
    auto held = liveDevice(scene, layer);
    if (!held || !held->scene3D) return;
    DeviceKeyframes::setRestTilt(*held, axis, degrees);
    liveUpdateScene3D(scene, layer, *held->scene3D);
}

}   // namespace tavix
