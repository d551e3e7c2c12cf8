// How a placement moves a flat device.
#pragma once

#include "TavixCore/Device/DevicePlacementTrajectory.h"
#include "TavixCore/Geometry/CameraFrameTransform.h"
#include "TavixCore/Values/PixelRect.h"

namespace tavix::PlacementProjection2D {

// From the frame's place without a placement. It grows about its own middle.
CameraFrameTransform transform(const PixelRect& identityFrameRect,
    const DevicePlacementTrajectory::Placement& placement, double outputHeightPx);

}   // namespace tavix::PlacementProjection2D
