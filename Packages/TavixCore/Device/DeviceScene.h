// Settings of the device as a model in space: on a composition layer, and on the reel path.
#pragma once

#include "TavixCore/Device/DeviceFinish.h"
#include "TavixCore/Device/DeviceKeyframes.h"
#include "TavixCore/Device/DevicePlacement.h"
#include "TavixCore/Theme/BackgroundFill.h"
#include "TavixCore/Values/Vector3.h"

#include <optional>
#include <vector>

namespace tavix {

// Of a reel, stored in `effects.json`.
struct DeviceScene {
    bool enabled = false;
    DeviceFinish finish = DeviceFinish::silver;
    Vector3 tiltDegrees{8, -14, 0};
    double driftDegrees = 6;   // of the slow sway about the tilt
    double driftPeriodSec = 7;
    double cameraDistance = 3.2;   // in units of the model's space
    double fovDegrees = 22;
    double floorReflectivity = 0;
    double floorRoughness = 0.25;
    double lightIntensity = 1;
    Vector3 keyLightDegrees{-35, 30, 0};
    std::optional<BackgroundFill> backdrop;
    std::vector<DevicePoseKeyframe> poseTrack;
    double poseResponseSec = 0.5;
    double poseDamping = 0.7;
    std::vector<CardFlip> flips;
    std::vector<DevicePlacementKeyframe> placementTrack;
    double placementResponseSec = 0.9;
    double placementDamping = 0.85;

    static const DeviceScene disabled;

    // The slow sway without keyframes.
    Vector3 pose(double timeSec) const;
    // Turns the scene to a new rest; flips are laid out again around it.
    void setBaseTilt(const Vector3& tilt);
    bool operator==(const DeviceScene&) const = default;
};

// Of a device layer.
struct DeviceScene3D {
    DeviceFinish finish = DeviceFinish::silver;
    Vector3 tiltDegrees{8, -14, 0};
    std::vector<DevicePoseKeyframe> poseTrack;
    double poseResponseSec = 0.5;
    double poseDamping = 0.7;
    double driftDegrees = 6;
    double driftPeriodSec = 7;
    double cameraDistance = 3.2;
    double fovDegrees = 22;
    double lightIntensity = 1;
    Vector3 keyLightDegrees{-35, 30, 0};
    double motionBlur = 0.35;
    std::vector<DeviceScalarKeyframe> depthTrack;

    // What both records share; motion blur and depth have no place in the other.
    DeviceScene asDeviceScene() const;
    bool operator==(const DeviceScene3D&) const = default;
};

const Fields<DeviceScene>& fieldsOf(std::type_identity<DeviceScene>);
const Fields<DeviceScene3D>& fieldsOf(std::type_identity<DeviceScene3D>);

}   // namespace tavix
