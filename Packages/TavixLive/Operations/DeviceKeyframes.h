// The keyframes of a device as a timeline shows them: one row, although three tracks hold them, of its tilt
// and its depth in space and of its place. Times are seconds since the layer's start.
#pragma once

#include "TavixLive/Operations/EditState.h"

#include <vector>

namespace tavix::DeviceKeyframes {

// How a device stands at a time.
struct UnifiedState {
    Vector3 tiltDegrees;
    double depth = 0;
    NormalizedVec2 offset;
    double scale = 1;
    bool operator==(const UnifiedState&) const = default;
};

// Where the tracks of a device have keyframes, in rising time; those within 0.02 s of each other are one.
std::vector<double> unifiedKeyframeTimes(const DeviceContent& device);
// As the tracks have it there, or the device at rest. A device without a placement stands in the middle.
UnifiedState unifiedState(const DeviceContent& device, const CompositionOutput& output, double atSec);
// Gives every track a keyframe at each of those times, so that they stay in step.
void unifyKeyframeTimes(DeviceContent& device, const CompositionOutput& output);

// A keyframe within 0.02 s is changed, otherwise there is a new one. A flat device has neither tilt nor
// depth.
void upsertPoseKeyframe(DeviceContent& device, double atSec, const Vector3& tiltDegrees);
void upsertDepthKeyframe(DeviceContent& device, double atSec, double depth);
void upsertPlacementKeyframe(DeviceContent& device, double atSec, const NormalizedVec2& offset, double scale);
void upsertUnifiedKeyframe(DeviceContent& device, double atSec, const UnifiedState& state);

void removePoseKeyframe(DeviceContent& device, std::size_t index);
void removeDepthKeyframe(DeviceContent& device, std::size_t index);
void removePlacementKeyframe(DeviceContent& device, std::size_t index);
void removeUnifiedKeyframe(DeviceContent& device, double atSec);   // within 0.03 s
// The keyframe within 0.03 s of `fromSec`, held between its neighbours and by the scene's length.
void moveUnifiedKeyframe(DeviceContent& device, double fromSec, double toSec, double sceneSec);

// The tilt that the device has when it starts, or at rest. Turning it turns all of its poses with it.
Vector3 restTilt(const DeviceContent& device);
enum class TiltAxis { x, y, z };
void setRestTilt(DeviceContent& device, TiltAxis axis, double degrees);

}   // namespace tavix::DeviceKeyframes
