#include "TavixCore/Device/DeviceSceneProjection.h"

#include <algorithm>
#include <cmath>

namespace tavix::DeviceSceneProjection {
namespace {

using Placement = DevicePlacementTrajectory::Placement;

// The model fills this share of the canvas height at scale 1, and its shadow and edges a little more.
constexpr double modelHeightFraction = 0.83;
constexpr double edgeFactor = 1.04;
constexpr double modelAspect = 0.46;     // width by height
constexpr double lastStepSlack = 1e-9;   // of a step: the end of a window belongs to it

NormalizedRect rectOf(const Placement& placement, const OutputSize& output) {
    return deviceRect(placement.offset, placement.scale, output);
}

NormalizedRect united(const NormalizedRect& a, const NormalizedRect& b) {
    const double x = std::min(a.x, b.x), y = std::min(a.y, b.y);
    return {x, y, std::max(a.x + a.width, b.x + b.width) - x, std::max(a.y + a.height, b.y + b.height) - y};
}

// The last time within the window that lies a whole number of frames after its start.
double lastSampleSec(const TimeWindow& window, double fps) {
    const double stepSec = 1 / std::max(fps, 1.0);
    return window.startSec +
           std::floor((window.endSec - window.startSec) / stepSec + lastStepSlack) * stepSec;
}

}   // namespace

NormalizedRect deviceRect(const NormalizedVec2& offset, double scale, const OutputSize& output) {
    const double height = std::max(scale, leastPlacementScale) * modelHeightFraction * edgeFactor;
    const double heightInWidths = output.heightPx / std::max(output.widthPx, 1.0);
    const double width = modelAspect * height * heightInWidths;
    return {heightInWidths * offset.x + 0.5 - width / 2, offset.y + 0.5 - height / 2, width, height};
}

NormalizedRect deviceRectUnion(const TimeWindow& window, const DevicePlacementTrajectory& trajectory,
    double fps, const OutputSize& output) {
    const NormalizedRect atStart = rectOf(trajectory.sample(window.startSec), output);
    if (!(window.startSec <= window.endSec) || trajectory.frames.empty()) return atStart;
    const std::size_t count = trajectory.frames.size();
    const std::size_t first = nearestFrame(window.startSec, fps, count);
    const std::size_t last = nearestFrame(lastSampleSec(window, fps), fps, count);
    NormalizedRect all = rectOf(trajectory.frames[first], output);
    for (std::size_t i = first + 1; i <= last; ++i) all = united(all, rectOf(trajectory.frames[i], output));
    return all.width > 0 && all.height > 0 ? all : atStart;
}

}   // namespace tavix::DeviceSceneProjection
