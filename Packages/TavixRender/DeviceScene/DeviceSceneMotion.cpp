#include "TavixRender/DeviceScene/DeviceSceneMotion.h"

#include "TavixCore/Device/ChoreographyAuthor.h"
#include "TavixCore/Values/Clamp01.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tavix {

namespace {

using KineticMath::clamp01;

constexpr double shortestResponseSec = 0.001;
// From this yaw on the device shows its side: it is on its way around.
constexpr double flipYawDegrees = 45;
// Further left than this, a device that flips goes around the other way.
constexpr double leftParkOffset = -0.08;
// The pitch at which the sway of a parked device begins to fade, and over how much it does.
constexpr double swayFadeStartDegrees = 15, swayFadeRangeDegrees = 30;

std::optional<DevicePoseTrajectory> poseTrajectory(const DeviceScene& scene, const DeviceMotionRules& rules) {
    std::vector<DevicePoseKeyframe> track = scene.poseTrack;
    if (track.empty()) return std::nullopt;
    if (rules.timeRemap)
        for (DevicePoseKeyframe& keyframe : track) keyframe.tSec = rules.timeRemap(keyframe.tSec);
    return rules.smoothPose
               ? DevicePoseTrajectory::smooth(track, rules.fps)
               : DevicePoseTrajectory::chasing(track, rules.fps, {scene.poseResponseSec, scene.poseDamping});
}

std::optional<DevicePlacementTrajectory> placementTrajectory(
    const DevicePlacementSpec& spec, const DeviceMotionRules& rules) {
    const TimeRemap remap = rules.timeRemap ? rules.timeRemap : [](double sec) { return sec; };
    const auto track = spec.resolvedTrack(rules.outputWidth, rules.outputHeight, remap);
    if (track.empty()) return std::nullopt;
    return rules.smoothPose
               ? DevicePlacementTrajectory::smooth(track, rules.fps)
               : DevicePlacementTrajectory::chasing(track, rules.fps, {spec.responseSec, spec.damping});
}

}   // namespace

DeviceSceneMotion::DeviceSceneMotion(
    const DeviceScene& scene, const DevicePlacementSpec& placement, const DeviceMotionRules& rules)
    : tiltDegrees_(scene.tiltDegrees), driftDegrees_(scene.driftDegrees),
      driftPeriodSec_(scene.driftPeriodSec), parkPoseTurn_(rules.parkPoseTurn),
      pose_(poseTrajectory(scene, rules)), placement_(placementTrajectory(placement, rules)) {}

Vector3 DeviceSceneMotion::posed(double atSec) const {
    const Vector3 pose = swayed(atSec);
    return parkPoseTurn_ && placement_ ? parked(pose, placement_->sample(atSec).offset.x, atSec) : pose;
}

Vector3 DeviceSceneMotion::swayed(double atSec) const {
    const Vector3 base = tracked(atSec).value_or(tiltDegrees_);
    const double s = sway(atSec);
    return {base.x + driftDegrees_ / 2 * s, base.y + driftDegrees_ * s, base.z};
}

std::optional<Vector3> DeviceSceneMotion::tracked(double atSec) const {
    return pose_ ? std::optional(pose_->sample(atSec)) : std::nullopt;
}

std::optional<DeviceSceneMotion::Placement> DeviceSceneMotion::placement(double atSec) const {
    return placement_ ? std::optional(placement_->sample(atSec)) : std::nullopt;
}

double DeviceSceneMotion::sway(double atSec) const {
    return std::sin(2 * std::numbers::pi * atSec / driftPeriodSec_);
}

Vector3 DeviceSceneMotion::parked(const Vector3& pose, double offsetX, double atSec) const {
    using namespace ChoreographyAuthor;
    if (std::abs(pose.y) >= flipYawDegrees)
        return {pose.x, offsetX < leftParkOffset ? -pose.y : pose.y, pose.z};
    const double fade = 1 - clamp01((std::abs(pose.x) - swayFadeStartDegrees) / swayFadeRangeDegrees);
    Vector3 turned = parkedPose(pose, offsetX);
    // The turn has damped the sway with the rest of the yaw; here it comes back.
    turned.y += fade * parkPoseBlend(offsetX) * driftDegrees_ * sway(atSec);
    return turned;
}

DevicePlacementSpec placementOf(const DeviceScene& scene) {
    return {scene.placementTrack, std::max(scene.placementResponseSec, shortestResponseSec),
        scene.placementDamping};
}

}   // namespace tavix
