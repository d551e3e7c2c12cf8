// The smear that a device's motion leaves on a picture.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixRender/DeviceScene/DeviceSceneMotion.h"

#include <optional>

namespace tavix {

struct DeviceMotionBlur {
    double radiusPx;   // to both sides
    double angleRad;   // of image coordinates: counter-clockwise, y up
};

struct BlurredDevice {
    const DeviceSceneMotion& motion;
    imaging::Size output;
    imaging::Rect deviceRect;   // the frame of the device, in output pixels
    double fps;
};

// What the way since the frame before asks for. `gain` is pixels of radius per pixel of motion; slow motion
// leaves no smear, and none is longer than 32 pixels to a side.
std::optional<DeviceMotionBlur> motionBlurOf(const BlurredDevice& device, double gain, double atSec);

}   // namespace tavix
