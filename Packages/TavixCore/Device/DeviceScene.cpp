#include "TavixCore/Device/DeviceScene.h"

#include "TavixCore/Device/ChoreographyAuthor.h"
#include "TavixCore/Support/FieldTables.h"

#include <cmath>
#include <numbers>

namespace tavix {
namespace {

constexpr double shortestSec = 0.001;

// The rows that a device in space has in both documents, in each in an order of its own.
template <class S> struct Shared {
    static Field tiltDegrees() {
        return field<&S::tiltDegrees>("tiltDegrees",
            "The pose at rest: x tips the top away, y turns the screen to the right, z turns clockwise.")
            .measuredIn(Unit::degrees);
    }
    static Field driftDegrees() {
        return field<&S::driftDegrees>(
            "driftDegrees", "How far it sways about its rest from side to side; half as far up and down.")
            .measuredIn(Unit::degrees);
    }
    static Field driftPeriodSec() {
        return field<&S::driftPeriodSec>("driftPeriodSec", "How long one sway takes.")
            .measuredIn(Unit::seconds)
            .atLeast(shortestSec);
    }
    static Field cameraDistance() {
        return field<&S::cameraDistance>("cameraDistance",
            "How far the camera stands, in lengths of space. It changes the perspective and not the size.");
    }
    static Field fovDegrees() {
        return field<&S::fovDegrees>("fovDegrees", "The camera's angle of view, from top to bottom.")
            .measuredIn(Unit::degrees);
    }
    static Field lightIntensity() {
        return field<&S::lightIntensity>("lightIntensity", "Strength of the light; 1 is usual.")
            .measuredIn(Unit::times);
    }
    static Field keyLightDegrees() {
        return field<&S::keyLightDegrees>("keyLightDegrees",
            "From where the key light shines: x below 0 is from above, y above 0 from the left; z is not used.")
            .measuredIn(Unit::degrees);
    }
    static Field poseTrack() { return field<&S::poseTrack>("poseTrack", "Poses in time."); }
    static Field poseResponseSec() {
        return field<&S::poseResponseSec>("poseResponseSec", "How long a pose takes to arrive.")
            .measuredIn(Unit::seconds)
            .atLeast(shortestSec);
    }
    static Field poseDamping() {
        return field<&S::poseDamping>(
            "poseDamping", "How springy: from 0.2, which swings long, to 1, which does not swing.")
            .measuredIn(Unit::fraction);
    }
};

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
            field<&S::finish>("finish", "Colour of the body."), Shared<S>::tiltDegrees(),
            Shared<S>::driftDegrees(), Shared<S>::driftPeriodSec(), Shared<S>::cameraDistance(),
            Shared<S>::fovDegrees(),
            field<&S::floorReflectivity>("floorReflectivity", "How much the floor mirrors.")
                .measuredIn(Unit::fraction),
            field<&S::floorRoughness>("floorRoughness", "How blurred the mirror is.")
                .measuredIn(Unit::fraction),
            Shared<S>::lightIntensity(), Shared<S>::keyLightDegrees(),
            field<&S::backdrop>("backdrop", "What stands behind the device."), Shared<S>::poseTrack(),
            Shared<S>::poseResponseSec(), Shared<S>::poseDamping(),
            field<&S::flips>("flips", "Whole turns that change the screen."),
            field<&S::placementTrack>("placementTrack", "Places in time."),
            field<&S::placementResponseSec>("placementResponseSec", "How long a place takes to arrive.")
                .measuredIn(Unit::seconds)
                .atLeast(shortestSec),
            field<&S::placementDamping>(
                "placementDamping", "How springy: from 0.2, which swings long, to 1, which does not swing.")
                .measuredIn(Unit::fraction)}};
    return table;
}

const Fields<DeviceScene3D>& fieldsOf(std::type_identity<DeviceScene3D>) {
    using S = DeviceScene3D;
    static const Fields<S> table{"DeviceScene3D",
        {field<&S::finish>("finish", "Colour of the body; named motions and formations leave it."),
            Shared<S>::tiltDegrees(), Shared<S>::poseTrack(), Shared<S>::poseResponseSec(),
            Shared<S>::poseDamping(), Shared<S>::driftDegrees(), Shared<S>::driftPeriodSec(),
            Shared<S>::cameraDistance(), Shared<S>::fovDegrees(), Shared<S>::lightIntensity(),
            Shared<S>::keyLightDegrees(),
            field<&S::motionBlur>("motionBlur",
                "Smear of quick motion: this share of its way in a frame, at most 32 pixels. 0 is sharp.")
                .measuredIn(Unit::times)
                .atLeast(0),
            field<&S::depthTrack>("depthTrack",
                "Depth over time; 0.5 is the usual distance, more is nearer. Of devices side by side in a document, the nearest is drawn in front.")}};
    return table;
}

}   // namespace tavix
