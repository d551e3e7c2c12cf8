// How a flat device moves over the canvas: what drawing it and measuring it have in common.
#pragma once

#include "TavixCore/Device/DeviceContent.h"
#include "TavixCore/Device/DevicePlacementTrajectory.h"
#include "TavixCore/Geometry/CameraFrameTransform.h"
#include "TavixCore/Values/PixelRect.h"
#include "TavixPlatform/Imaging/Geometry.h"

namespace tavix::FlatDeviceMotion {

DevicePlacementTrajectory trajectoryOf(
    const DeviceContent& content, const imaging::Rect& canvas, double framesPerSec);

// From where the device rests to where it is at a time, in pixels from the top left.
CameraFrameTransform moveAt(const DevicePlacementTrajectory& trajectory, double localSec,
    const PixelRect& frameRect, double canvasHeight);

}   // namespace tavix::FlatDeviceMotion
