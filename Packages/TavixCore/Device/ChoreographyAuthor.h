// The vocabulary of named device positions, and where each of them is. Offsets are fractions of the canvas
// height from the middle, x to the right and y down.
#pragma once

#include "TavixCore/Device/DeviceKeyframes.h"

#include <type_traits>
#include <vector>

namespace tavix::ChoreographyAuthor {

// The word of a move goes into a placement keyframe and marks it as authored.
enum class PhoneMove { center, parkLeft, parkRight, heroZoom, offscreenBottom, scanTop, scanBottom };

constexpr double parkTextColumnFraction =
    0.52;   // of the canvas width, left to the text beside a parked device
constexpr double parkEdgeMarginFraction = 0.05;
constexpr double parkInsetFactor = 0.8;   // a parked device stands this share of the way to the edge
constexpr double parkYawDegrees = 30;
constexpr double parkPitchDegrees = 2;
constexpr double parkPoseBlendStart = 0.03;   // horizontal offset at which the parked pose begins
constexpr double parkPoseBlendFull = 0.14;    // and at which it is complete

struct CanvasSize {
    double widthPx, heightPx;
};
struct ResolvedPlacement {
    double offsetX = 0, offsetY = 0;
    double scale = 1;
    bool operator==(const ResolvedPlacement&) const = default;
};

// Of the device as a model in space.
ResolvedPlacement resolvePlacement(PhoneMove move, const CanvasSize& canvas);
// Of the flat device, whose frame has this size at scale 1.
ResolvedPlacement resolvePlacement2D(PhoneMove move, const CanvasSize& frame, const CanvasSize& canvas);

// One whole turn about the vertical axis per flip; the spring of the pose makes it a spin.
std::vector<DevicePoseKeyframe> flipTrack(std::vector<double> flipTimesSec, const Vector3& base);

// How far a device has taken the parked pose, 0 to 1, for its horizontal offset. One that lies back already
// takes it less.
double parkPoseBlend(double offsetX);
double parkPoseBlend(double offsetX, double basePitchDegrees);
// The pose of a device that turns towards the text beside it.
Vector3 parkedPose(const Vector3& basePose, double offsetX);

const Names<PhoneMove>& namesOf(std::type_identity<PhoneMove>);

}   // namespace tavix::ChoreographyAuthor
