// What the device of a reel has on its screen: the recording as the camera sees it, and the transitions
// between its pictures.
#pragma once

#include "TavixCore/Values/PixelRect.h"
#include "TavixPlatform/Imaging/Image.h"
#include "TavixReel/Camera/ReelCamera.h"
#include "TavixReel/Document/EffectsSpec.h"
#include "TavixRender/DeviceScene/ScreenTransitionWindow.h"

#include <vector>

namespace tavix {

// Immutable; any thread may ask. Times are the pre-cut clock's.
class ReelScreen {
public:
    // The transitions come with pictures of the recording, which has that size.
    ReelScreen(const EffectsSpec& spec, imaging::Size recording, std::vector<TransitionInput> transitions);

    // On a canvas: it covers `content`, and mostly more. `bounds` are the canvas's.
    imaging::Image on(const PixelRect& content, const imaging::Rect& bounds, const imaging::Image& recording,
        double preCutSec) const;

    // By itself, in the proportions of a screen and with all the detail of the recording, and the transitions
    // likewise, for whoever shows them between such pictures.
    imaging::Image alone(double screenAspect, const imaging::Image& recording, double preCutSec) const;
    std::vector<TransitionInput> transitionsAlone(double screenAspect) const;

private:
    imaging::Image stood(const imaging::Image& picture, const CameraSample& camera, const PixelRect& content,
        const imaging::Rect& bounds) const;
    imaging::Image cover(
        double screenAspect, const imaging::Image& picture, const CameraSample& camera) const;

    ReelCamera camera_;
    imaging::Size recording_;
    std::vector<TransitionInput> transitions_;
};

}   // namespace tavix
