// The smear that a device's motion leaves on a picture.
#pragma once

#include "TavixRender/DeviceScene/DeviceSceneMotion.h"

#include <optional>

namespace tavix {

struct DeviceMotionBlur {
    double radiusPx;   // to both sides
    double angleRad;   // of image coordinates: counter-clockwise, y up
};

struct BlurredDevice {
    const DeviceSceneMotion& motion;
    // In pixels as motion is judged: the height of the output, and the frame of the device on it.
    double outputHeight, deviceWidth, deviceHeight;
    double fps;
};

// What the way since the frame before asks for. `gain` is pixels of radius per pixel of motion; slow motion
// leaves no smear, and none is longer than 32 pixels to a side.
std::optional<DeviceMotionBlur> motionBlurOf(const BlurredDevice& device, double gain, double atSec);

}   // namespace tavix
