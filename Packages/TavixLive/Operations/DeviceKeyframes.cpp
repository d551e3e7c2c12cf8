#include "TavixLive/Operations/DeviceKeyframes.h"

#include "TavixCore/Device/DeviceDepthTrajectory.h"
#include "TavixCore/Device/DevicePlacementTrajectory.h"
#include "TavixCore/Device/DevicePoseTrajectory.h"

#include <algorithm>
#include <cmath>

namespace tavix::DeviceKeyframes {

namespace {

constexpr double sameKeyframeSec = 0.02, foundKeyframeSec = 0.03;
// Keyframes that are nearer to each other are one; those that stand just so far apart are two, so that one
// which is moved as near as it goes stays.
bool isSame(double aSec, double bSec) { return std::abs(aSec - bSec) < sameKeyframeSec - 1e-9; }
constexpr double neutralDepth = 0.5;          // a device of no depth of its own is one camera distance away
constexpr double sampledFramesPerSec = 600;   // fine enough for any time that a hand can set

template <class Track, class Change> void upsert(Track& track, double atSec, Change change) {
    auto near =
        std::ranges::find_if(track, [&](const auto& keyframe) { return isSame(keyframe.tSec, atSec); });
    if (near == track.end()) {
        near = track.emplace(track.end());
        near->tSec = atSec;
    }
    change(*near);
    std::ranges::stable_sort(track, {}, [](const auto& keyframe) { return keyframe.tSec; });
}

template <class Track> void removeAt(Track& track, std::size_t index) {
    if (index < track.size()) track.erase(track.begin() + std::ptrdiff_t(index));
}

// Calls visit with each track that the device has.
template <class Device, class Visit> void forTracks(Device& device, const Visit& visit) {
    if (device.scene3D) {
        visit(device.scene3D->poseTrack);
        visit(device.scene3D->depthTrack);
    }
    if (device.placement) visit(device.placement->track);
}

Vector3 tiltAt(const DeviceScene3D& scene, double atSec) {
    if (scene.poseTrack.empty()) return scene.tiltDegrees;
    return DevicePoseTrajectory::smooth(scene.poseTrack, sampledFramesPerSec).sample(atSec);
}

double& axisOf(Vector3& tilt, TiltAxis axis) {
    return axis == TiltAxis::x ? tilt.x : axis == TiltAxis::y ? tilt.y : tilt.z;
}

}   // namespace

std::vector<double> unifiedKeyframeTimes(const DeviceContent& device) {
    std::vector<double> all, kept;
    forTracks(device, [&](const auto& track) {
        for (const auto& keyframe : track) all.push_back(keyframe.tSec);
    });
    std::ranges::sort(all);
    for (const double sec : all)
        if (kept.empty() || !isSame(sec, kept.back())) kept.push_back(sec);
    return kept;
}

UnifiedState unifiedState(const DeviceContent& device, const CompositionOutput& output, double atSec) {
    UnifiedState state;
    if (device.scene3D) {
        state.tiltDegrees = tiltAt(*device.scene3D, atSec);
        state.depth = DeviceDepthTrajectory::sample(device.scene3D->depthTrack, atSec).value_or(neutralDepth);
    }
    if (device.placement && !device.placement->track.empty()) {
        const auto track = device.placement->resolvedTrack(
            double(output.widthPx), double(output.heightPx), [](double sec) { return sec; });
        const auto place = DevicePlacementTrajectory::smooth(track, sampledFramesPerSec).sample(atSec);
        state.offset = place.offset;
        state.scale = place.scale;
    }
    return state;
}

void unifyKeyframeTimes(DeviceContent& device, const CompositionOutput& output) {
    std::vector<std::pair<double, UnifiedState>> all;
    for (const double sec : unifiedKeyframeTimes(device))
        all.emplace_back(sec, unifiedState(device, output, sec));
    for (const auto& [sec, state] : all) upsertUnifiedKeyframe(device, sec, state);
}

void upsertPoseKeyframe(DeviceContent& device, double atSec, const Vector3& tiltDegrees) {
    if (device.scene3D)
        upsert(device.scene3D->poseTrack, atSec, [&](auto& keyframe) { keyframe.tiltDegrees = tiltDegrees; });
}

void upsertDepthKeyframe(DeviceContent& device, double atSec, double depth) {
    if (device.scene3D)
        upsert(device.scene3D->depthTrack, atSec, [&](auto& keyframe) { keyframe.value = depth; });
}

void upsertPlacementKeyframe(
    DeviceContent& device, double atSec, const NormalizedVec2& offset, double scale) {
    if (!device.placement) device.placement.emplace();
    upsert(device.placement->track, atSec, [&](DevicePlacementKeyframe& keyframe) {
        keyframe.offset = offset;
        keyframe.scale = std::max(scale, leastPlacementScale);
        keyframe.move.reset();   // it has been set by hand
    });
}

void upsertUnifiedKeyframe(DeviceContent& device, double atSec, const UnifiedState& state) {
    upsertPoseKeyframe(device, atSec, state.tiltDegrees);
    upsertDepthKeyframe(device, atSec, state.depth);
    upsertPlacementKeyframe(device, atSec, state.offset, state.scale);
}

void removePoseKeyframe(DeviceContent& device, std::size_t index) {
    if (device.scene3D) removeAt(device.scene3D->poseTrack, index);
}

void removeDepthKeyframe(DeviceContent& device, std::size_t index) {
    if (device.scene3D) removeAt(device.scene3D->depthTrack, index);
}

void removePlacementKeyframe(DeviceContent& device, std::size_t index) {
    if (device.placement) removeAt(device.placement->track, index);
}

void removeUnifiedKeyframe(DeviceContent& device, double atSec) {
    forTracks(device, [&](auto& track) {
        std::erase_if(
            track, [&](const auto& keyframe) { return std::abs(keyframe.tSec - atSec) <= foundKeyframeSec; });
    });
}

void moveUnifiedKeyframe(DeviceContent& device, double fromSec, double toSec, double sceneSec) {
    const std::vector<double> times = unifiedKeyframeTimes(device);
    const auto found =
        std::ranges::find_if(times, [&](double sec) { return std::abs(sec - fromSec) <= foundKeyframeSec; });
    if (found == times.end()) return;
    const double low = found == times.begin() ? 0 : *(found - 1) + sameKeyframeSec;
    const double high = found + 1 == times.end() ? sceneSec : *(found + 1) - sameKeyframeSec;
    const double sec = std::max(std::min(toSec, high), low);
    forTracks(device, [&](auto& track) {
        for (auto& keyframe : track)
            if (isSame(keyframe.tSec, *found)) keyframe.tSec = sec;
        std::ranges::stable_sort(track, {}, [](const auto& keyframe) { return keyframe.tSec; });
    });
}

Vector3 restTilt(const DeviceContent& device) {
    if (!device.scene3D) return {};
    return device.scene3D->poseTrack.empty() ? device.scene3D->tiltDegrees
                                             : device.scene3D->poseTrack.front().tiltDegrees;
}

void setRestTilt(DeviceContent& device, TiltAxis axis, double degrees) {
    if (!device.scene3D) return;
    DeviceScene3D& scene = *device.scene3D;
    const double turned = degrees - axisOf(scene.tiltDegrees, axis);
    axisOf(scene.tiltDegrees, axis) += turned;
    for (DevicePoseKeyframe& keyframe : scene.poseTrack) axisOf(keyframe.tiltDegrees, axis) += turned;
}

}   // namespace tavix::DeviceKeyframes
