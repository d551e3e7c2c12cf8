// The path that the reel camera takes through its keyframes when springs move it. A keyframe is where the
// camera starts to go at its time; it arrives later, and never jumps.
#pragma once

#include "TavixReel/Document/CameraKeyframe.h"
#include "TavixReel/Document/MotionModel.h"

#include <vector>

namespace tavix {

// What the camera shows: a zoom, and the point of the recording in the middle, in its pixels.
struct CameraSample {
    double scale = 1;
    PixelPoint center;
    bool operator==(const CameraSample&) const = default;
};

// Immutable once made, so that any thread may sample it.
class CameraTrajectory {
public:
    // One sample per frame, until the springs have settled on the last keyframe. The zoom moves by ratios and
    // never swings; the pan swings with a damping below 1 (counted within 0.2 to 1).
    CameraTrajectory(std::vector<CameraKeyframe> track, double fps, const MotionSpring& spring);

    // The frame nearest to a time; the first and the last hold. Without keyframes scale 1 at the origin.
    CameraSample sample(double atSec) const;

    const std::vector<CameraSample>& frames() const { return frames_; }
    double fps() const { return fps_; }

private:
    double fps_;
    std::vector<CameraSample> frames_;
};

}   // namespace tavix
