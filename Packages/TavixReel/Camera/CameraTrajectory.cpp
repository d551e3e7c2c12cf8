#include "TavixReel/Camera/CameraTrajectory.h"

#include "TavixCore/Animation/ChannelTrajectory.h"
#include "TavixCore/Animation/SpringStep.h"

#include <algorithm>
#include <cmath>

namespace tavix {
namespace {

double logScale(double scale) { return std::log(std::max(scale, 0.000001)); }

}   // namespace

CameraTrajectory::CameraTrajectory(std::vector<CameraKeyframe> track, double fps, const MotionSpring& spring)
    : fps_(fps) {
    if (track.empty()) return;
    const CameraKeyframe first = track.front();
    if (!(fps > 0)) {
        frames_ = {{first.scale, first.centerPx}};
        return;
    }
    std::ranges::stable_sort(track, {}, &CameraKeyframe::tSec);

    const TrajectorySpring zoom{spring.zoomResponse, 1}, pan{spring.panResponse, spring.damping};
    const TrajectorySpring slower{std::max(spring.zoomResponse, spring.panResponse), spring.damping};
    const double stepSec = 1 / fps;
    const SpringStep zoomStep(zoom, stepSec), panStep(pan, stepSec);
    frames_.resize(
        trajectoryFrames(std::max(track.back().tSec + settlingSec(slower), first.tSec + stepSec), fps));

    double scale = logScale(first.scale), scaleRate = 0;
    PixelPoint center = first.centerPx, centerRate;
    std::size_t active = 0;
    for (std::size_t i = 0; i < frames_.size(); ++i) {
        const double tSec = static_cast<double>(i) * stepSec;
        while (active + 1 < track.size() && track[active + 1].tSec <= tSec) ++active;
        frames_[i] = {std::exp(scale), center};
        zoomStep.advance(scale, scaleRate, logScale(track[active].scale));
        panStep.advance(center.x, centerRate.x, track[active].centerPx.x);
        panStep.advance(center.y, centerRate.y, track[active].centerPx.y);
    }
}

CameraSample CameraTrajectory::sample(double atSec) const {
    return frames_.empty() ? CameraSample{} : frames_[nearestFrame(atSec, fps_, frames_.size())];
}

}   // namespace tavix
