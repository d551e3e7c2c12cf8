#include "TavixCore/Choreography/MotionScript.h"

#include <algorithm>
#include <cmath>

namespace tavix {
namespace {

DeviceScene3D sceneOf(const MotionScript& script, double timeFactor) {
    DeviceScene3D scene;
    scene.tiltDegrees = script.tiltDegrees;
    scene.poseTrack = script.poses;
    for (DevicePoseKeyframe& pose : scene.poseTrack) pose.tSec = stretchedSec(pose.tSec, timeFactor);
    scene.poseResponseSec = script.poseSpring.responseSec;
    scene.poseDamping = script.poseSpring.damping;
    scene.driftDegrees = 0;   // the script says all that moves
    scene.fovDegrees = script.fovDegrees;
    scene.lightIntensity = script.lightIntensity;
    scene.keyLightDegrees = script.keyLightDegrees;
    scene.motionBlur = std::max(script.motionBlur, 0.0);
    scene.depthTrack = script.depths;
    for (DeviceScalarKeyframe& depth : scene.depthTrack) depth.tSec = stretchedSec(depth.tSec, timeFactor);
    return scene;
}

}   // namespace

double stretchedSec(double tSec, double timeFactor) { return std::round(tSec * timeFactor * 1000) / 1000; }

DeviceMotion MotionScript::play(double timeFactor) const {
    DeviceMotion motion;
    motion.scene3D = sceneOf(*this, timeFactor);
    for (const Place& place : places)
        motion.placement.track.push_back({stretchedSec(place.tSec, timeFactor), {place.x, place.y},
            std::max(place.scale, leastPlacementScale), place.move, {}});
    motion.placement.responseSec = placeSpring.responseSec;
    motion.placement.damping = placeSpring.damping;
    motion.enter = enter;
    if (motion.enter) motion.enter->durationSec *= timeFactor;
    motion.sceneDurationSec = stretchedSec(naturalSec, timeFactor);
    return motion;
}

}   // namespace tavix
