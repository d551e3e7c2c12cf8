// All that the picture of one device layer needs to move: what a named motion is expanded to.
#pragma once

#include "TavixCore/Animation/PropertyTrack.h"
#include "TavixCore/Device/DevicePlacement.h"
#include "TavixCore/Device/DeviceScene.h"
#include "TavixCore/Document/CompositionOutput.h"
#include "TavixCore/Typography/KineticStyle.h"

#include <cstddef>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace tavix {

struct CompositionLayer;
struct CompositionScene;
struct CompositionSpec;

struct DeviceMotion {
    struct LayerIndex {
        std::size_t scene, layer;
        bool operator==(const LayerIndex&) const = default;
    };

    DeviceScene3D scene3D;
    DevicePlacementSpec placement;
    std::optional<KineticPhase> enter;
    std::vector<PropertyTrack> tracks;
    bool uses3D = true;   // otherwise the layer goes without `scene3D`
    double sceneDurationSec = 0;

    // The same motion aside of the middle, by a fraction of the canvas height. A device in space may turn
    // inwards by an angle; one that is not moved aside never does.
    DeviceMotion anchored(double anchorX, double faceInwardDeg) const;

    // Begins later, and then without its `enter`. A delay of half a millisecond or less is none.
    DeviceMotion delayed(double bySec) const;

    // Gives a layer this motion in place of what moved it before; the scene grows to the motion's length
    // unless it is measured in beats. False when there is no such layer, or it shows no device.
    bool apply(CompositionSpec& spec, std::size_t scene, std::size_t layer) const;
    bool apply(CompositionScene& scene, CompositionLayer& layer) const;

    // The scene of a device that had this one before: the finish that its author chose stays. Nothing for a
    // motion that leaves it flat.
    std::optional<DeviceScene3D> sceneInsteadOf(const std::optional<DeviceScene3D>& authored) const;

    static std::optional<LayerIndex> firstDeviceLayer(const CompositionSpec& spec);

    // A document that shows this motion alone, on the default phone with a still screen.
    CompositionSpec previewSpec(const std::string& screenPath, const CompositionOutput& output) const;

    bool operator==(const DeviceMotion&) const = default;
};

const Fields<DeviceMotion>& fieldsOf(std::type_identity<DeviceMotion>);

}   // namespace tavix
