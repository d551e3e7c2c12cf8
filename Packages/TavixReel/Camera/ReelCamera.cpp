#include "TavixReel/Camera/ReelCamera.h"

#include "TavixReel/Camera/CameraTransform.h"
#include "TavixReel/Document/EffectsSpec.h"

namespace tavix {

ReelCamera::ReelCamera(const EffectsSpec& spec) {
    if (const auto* spring = std::get_if<MotionSpring>(&spec.motion))
        trajectory_.emplace(spec.cameraTrack, double(spec.output.fps), *spring);
    else
        track_ = spec.cameraTrack;
}

CameraSample ReelCamera::sample(double preCutSec) const {
    return trajectory_ ? trajectory_->sample(preCutSec) : CameraTransform::sample(preCutSec, track_);
}

}   // namespace tavix
