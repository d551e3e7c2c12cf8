// From the drag of a pointer to the tilt of a device. A tilt is pitch, yaw and roll in degrees; yaw turns the
// other way round its axis than the two others, so that a positive yaw shows the device's left side.
#pragma once

#include "TavixCore/Values/PixelPoint.h"
#include "TavixCore/Values/Quaternion.h"
#include "TavixCore/Values/Vector3.h"

namespace tavix::DeviceGizmoMath {

// Pitch acts first, roll last.
Quaternion orientation(const Vector3& tiltDeg);

// The other way; yaw comes out within -90 to 90 degrees.
Vector3 tilt(const Quaternion& orientation);

// A ball on the screen, seen from the front, with y down as in views.
struct Arcball {
    PixelPoint center;
    double radiusPx = 1;
};

// The device turned as a ball that is held at `start` and dragged to `current`; outside of the ball the rim
// is held. Without a ball to hold the tilt stays.
Vector3 arcballTilt(
    const Vector3& baseDeg, const PixelPoint& start, const PixelPoint& current, const Arcball& ball);

}   // namespace tavix::DeviceGizmoMath
