// The camera that follows keyframes by their own easings, and what any camera does to the picture.
#pragma once

#include "TavixCore/Geometry/CameraFrameTransform.h"
#include "TavixCore/Values/PixelRect.h"
#include "TavixReel/Camera/CameraTrajectory.h"

#include <span>

namespace tavix::CameraTransform {

// Between two keyframes the way to the second one is by its easing; before the first and after the last, they
// hold. The track rises in time.
CameraSample sample(double atSec, std::span<const CameraKeyframe> track);

// Where a recording of that size is drawn so that it covers `content`, magnified by the camera, with the
// camera's centre in the middle as far as no edge of the recording shows. A scale below 1 counts as 1.
CameraFrameTransform frameTransform(
    double sourceWidthPx, double sourceHeightPx, const PixelRect& content, const CameraSample& camera);

}   // namespace tavix::CameraTransform
