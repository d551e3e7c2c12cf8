// Edits of devices: named motions and formations, flat or in space, and the drag of a device over the stage.
#pragma once

#include "TavixCore/Geometry/DeviceGizmoMath.h"
#include "TavixLive/Operations/DeviceKeyframes.h"
#include "TavixLive/Operations/EditState.h"

#include <map>
#include <string>

namespace tavix::DeviceOperations {

// True of a device that would lose motion of its own to a named one.
bool deviceHasAuthoredMotion(const CompositionSpec& spec, std::size_t scene, std::size_t layer);
void applyDeviceMotionPreset(
    EditState& state, std::size_t scene, std::size_t layer, const DeviceMotionRef& ref);
// The layers of the formation take the layer's place; the scene grows to their length.
void applyDeviceChoreographyPreset(
    EditState& state, std::size_t scene, std::size_t layer, const DeviceChoreographyRef& ref);

// The settings in space of devices that are flat for now, by "scene.layer".
using Scene3DStash = std::map<std::string, DeviceScene3D>;
void setDevice3D(EditState& state, Scene3DStash& stash, std::size_t scene, std::size_t layer, bool isEnabled);

// Lengthens the scene, by 0.01 s at least, and keeps the device there as it stood at the old end. Gives the
// new end on the scene's clock.
std::optional<double> appendKeyframe(EditState& state, std::size_t scene, std::size_t layer, double extraSec);

enum class DeviceMoveAxis { x, y, free };
// How a drag began.
struct DeviceDragStart {
    std::size_t scene = 0, layer = 0;
    double atSec = 0;   // since the layer's start
    DeviceKeyframes::UnifiedState state;
};
// At a time of the film; nothing where there is no device.
std::optional<DeviceDragStart> dragStart(
    const EditState& state, std::size_t scene, std::size_t layer, double filmSec);
// Where the drag has led since, each from its start alone. Distances are in points of the view; y points
// down.
struct StageView {
    double fittedHeight = 0;   // of the canvas in the view
    double overscan = 1;
};
DeviceKeyframes::UnifiedState moved(const DeviceDragStart& start, double dxPoints, double dyPoints,
    const StageView& view, DeviceMoveAxis axis);
DeviceKeyframes::UnifiedState rotated(const DeviceDragStart& start, const PixelPoint& from,
    const PixelPoint& to, const DeviceGizmoMath::Arcball& ball);
DeviceKeyframes::UnifiedState scaled(const DeviceDragStart& start, double dyPoints);

}   // namespace tavix::DeviceOperations
