#include "TavixCore/Device/DeviceScene.h"

#include "TavixCore/Device/ChoreographyAuthor.h"
#include "TavixCore/Support/FieldTables.h"

#include <cmath>
#include <numbers>

namespace tavix {
namespace {

constexpr double shortestSec = 0.001;

}   // namespace

const DeviceScene DeviceScene::disabled{};

Vector3 DeviceScene::pose(double timeSec) const {
    const double sway = std::sin(2 * std::numbers::pi * timeSec / driftPeriodSec);
    return {tiltDegrees.x + sway * driftDegrees / 2, tiltDegrees.y + sway * driftDegrees, tiltDegrees.z};
}

void DeviceScene::setBaseTilt(const Vector3& tilt) {
    tiltDegrees = tilt;
    if (flips.empty()) return;
    std::vector<double> flipTimesSec;
    for (const CardFlip& flip : flips) flipTimesSec.push_back(flip.atSec);
    poseTrack = ChoreographyAuthor::flipTrack(std::move(flipTimesSec), tilt);
}

DeviceScene DeviceScene3D::asDeviceScene() const {
    DeviceScene scene;
    scene.enabled = true;
    scene.finish = finish;
    scene.tiltDegrees = tiltDegrees;
    scene.driftDegrees = driftDegrees;
    scene.driftPeriodSec = driftPeriodSec;
    scene.cameraDistance = cameraDistance;
    scene.fovDegrees = fovDegrees;
    scene.lightIntensity = lightIntensity;
    scene.keyLightDegrees = keyLightDegrees;
    scene.poseTrack = poseTrack;
    scene.poseResponseSec = poseResponseSec;
    scene.poseDamping = poseDamping;
    return scene;
}

const Fields<DeviceScene>& fieldsOf(std::type_identity<DeviceScene>) {
    using S = DeviceScene;
    static const Fields<S> table{"DeviceScene",
        {field<&S::enabled>("enabled", "Whether the device is a model in space."),
            field<&S::finish>("finish", "Colour of the body."),
            field<&S::tiltDegrees>("tiltDegrees", "Pitch, yaw and roll at rest."),
            field<&S::driftDegrees>("driftDegrees", "How far it sways about its rest."),
            field<&S::driftPeriodSec>("driftPeriodSec", "Seconds of one sway.").atLeast(shortestSec),
            field<&S::cameraDistance>("cameraDistance", "How far the camera stands."),
            field<&S::fovDegrees>("fovDegrees", "The camera's vertical angle of view."),
            field<&S::floorReflectivity>("floorReflectivity", "How much the floor mirrors, 0 to 1."),
            field<&S::floorRoughness>("floorRoughness", "How blurred the mirror is, 0 to 1."),
            field<&S::lightIntensity>("lightIntensity", "Strength of the light; 1 is usual."),
            field<&S::keyLightDegrees>("keyLightDegrees", "From where the key light shines."),
            field<&S::backdrop>("backdrop", "What stands behind the device."),
            field<&S::poseTrack>("poseTrack", "Poses in time."),
            field<&S::poseResponseSec>("poseResponseSec", "Seconds that a pose takes to arrive.")
                .atLeast(shortestSec),
            field<&S::poseDamping>("poseDamping", "From 0.2, springy, to 1, without a swing."),
            field<&S::flips>("flips", "Whole turns that change the screen."),
            field<&S::placementTrack>("placementTrack", "Places in time."),
            field<&S::placementResponseSec>("placementResponseSec", "Seconds that a place takes to arrive.")
                .atLeast(shortestSec),
            field<&S::placementDamping>("placementDamping", "From 0.2, springy, to 1, without a swing.")}};
    return table;
}

const Fields<DeviceScene3D>& fieldsOf(std::type_identity<DeviceScene3D>) {
    using S = DeviceScene3D;
    static const Fields<S> table{"DeviceScene3D",
        {field<&S::finish>("finish", "Colour of the body."),
            field<&S::tiltDegrees>("tiltDegrees", "Pitch, yaw and roll at rest."),
            field<&S::poseTrack>("poseTrack", "Poses in time."),
            field<&S::poseResponseSec>("poseResponseSec", "Seconds that a pose takes to arrive.")
                .atLeast(shortestSec),
            field<&S::poseDamping>("poseDamping", "From 0.2, springy, to 1, without a swing."),
            field<&S::driftDegrees>("driftDegrees", "How far it sways about its rest."),
            field<&S::driftPeriodSec>("driftPeriodSec", "Seconds of one sway.").atLeast(shortestSec),
            field<&S::cameraDistance>("cameraDistance", "How far the camera stands."),
            field<&S::fovDegrees>("fovDegrees", "The camera's vertical angle of view."),
            field<&S::lightIntensity>("lightIntensity", "Strength of the light; 1 is usual."),
            field<&S::keyLightDegrees>("keyLightDegrees", "From where the key light shines."),
            field<&S::motionBlur>("motionBlur", "Smear of quick motion; 1 is a whole frame.").atLeast(0),
            field<&S::depthTrack>("depthTrack", "Depth in time; 0.5 is the usual distance.")}};
    return table;
}

}   // namespace tavix
