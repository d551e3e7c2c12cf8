// The part of the canvas that a device in space covers, seen from the front.
#pragma once

#include "TavixCore/Device/DevicePlacementTrajectory.h"
#include "TavixCore/Values/NormalizedRect.h"

namespace tavix::DeviceSceneProjection {

struct OutputSize {
    double widthPx, heightPx;
};
struct TimeWindow {
    double startSec, endSec;
};

// Offsets are in canvas heights on both axes, as in all placements; the rectangle is in fractions of each.
NormalizedRect deviceRect(const NormalizedVec2& offset, double scale, const OutputSize& output);

// All that it covers in the frames of a window of time.
NormalizedRect deviceRectUnion(const TimeWindow& window, const DevicePlacementTrajectory& trajectory,
    double fps, const OutputSize& output);

}   // namespace tavix::DeviceSceneProjection
