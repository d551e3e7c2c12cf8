#include "TavixRender/Composition2D/ReelScreen.h"

#include "TavixCore/Document/TransitionMath.h"
#include "TavixReel/Camera/CameraTransform.h"
#include "TavixRender/Compositor/CanvasDrawing.h"
#include "TavixRender/Compositor/TransitionBlend.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tavix {

using imaging::Image;
using imaging::Rect;

ReelScreen::ReelScreen(
    const EffectsSpec& spec, imaging::Size recording, std::vector<TransitionInput> transitions)
    : camera_(spec), recording_(recording), transitions_(std::move(transitions)) {}

Image ReelScreen::stood(
    const Image& picture, const CameraSample& camera, const PixelRect& content, const Rect& bounds) const {
    const double width = recording_.width, height = recording_.height;
    const CameraFrameTransform stand = CameraTransform::frameTransform(width, height, content, camera);
    const PixelRect place{stand.translateX, stand.translateY, width * stand.scale, height * stand.scale};
    return CanvasDrawing::place(picture, place, bounds, CanvasDrawing::Resampling::live);
}

Image ReelScreen::on(
    const PixelRect& content, const Rect& bounds, const Image& recording, double preCutSec) const {
    const CameraSample camera = camera_.sample(preCutSec);
    const auto due = std::ranges::find_if(transitions_, [preCutSec](const TransitionInput& input) {
        return input.transition.atSec <= preCutSec && preCutSec < input.transition.revealSec;
    });
    if (due == transitions_.end()) return stood(recording, camera, content, bounds);
    const ScreenTransition& transition = due->transition;
    const double eased =
        TransitionMath::easedProgress(preCutSec, transition.atSec, transition.revealSec, transition.timing);
    const Image& incoming = transition.liveIncoming.value_or(false) ? recording : due->incoming;
    return TransitionBlend::blend(
        {stood(due->outgoing, camera, content, bounds), stood(incoming, camera, content, bounds),
            CanvasDrawing::flipped(content, bounds)},
        eased, transition.style, transition.params);
}

Image ReelScreen::cover(double screenAspect, const Image& picture, const CameraSample& camera) const {
    const double width = recording_.width, height = recording_.height;
    const Rect screen{0, 0, std::max(std::round(std::min(width, height * screenAspect)), 1.0),
        std::max(std::round(std::min(height, width / screenAspect)), 1.0)};
    return stood(picture, camera, {0, 0, screen.width, screen.height}, screen).cropped(screen);
}

Image ReelScreen::alone(double screenAspect, const Image& recording, double preCutSec) const {
    return cover(screenAspect, recording, camera_.sample(preCutSec));
}

// The camera stands still in both pictures: where it was when the transition began, and where it will be when
// it is over, so that nothing jumps at either end.
std::vector<TransitionInput> ReelScreen::transitionsAlone(double screenAspect) const {
    std::vector<TransitionInput> alone = transitions_;
    for (TransitionInput& input : alone) {
        input.outgoing = cover(screenAspect, input.outgoing, camera_.sample(input.transition.atSec));
        input.incoming = cover(screenAspect, input.incoming, camera_.sample(input.transition.revealSec));
    }
    return alone;
}

}   // namespace tavix
