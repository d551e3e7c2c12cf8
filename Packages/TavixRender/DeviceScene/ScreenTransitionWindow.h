// Transitions between the pictures on a device's screen.
#pragma once

#include "TavixCore/Document/ScreenTransition.h"
#include "TavixPlatform/Imaging/Image.h"
#include "TavixRender/DeviceScene/DeviceSceneMotion.h"

#include <vector>

namespace tavix {

struct TransitionInput {
    ScreenTransition transition;
    imaging::Image outgoing, incoming;
};

// A transition with its times on the output's clock.
struct TransitionWindow {
    double startSec = 0, endSec = 0;
    double startYawDegrees = 0;   // how the device stood when it began
    ScreenTransition transition;
    imaging::Image outgoing, incoming;
};

// In the order of their beginnings, equal ones as given. `restYawDegrees` counts where no track says how the
// device stands.
std::vector<TransitionWindow> transitionWindows(const std::vector<TransitionInput>& inputs,
    const DeviceSceneMotion& motion, double restYawDegrees, const TimeRemap& timeRemap);

// What the screen shows at a time: `live` outside all windows, within one what its style makes of its
// pictures.
imaging::Image screenImage(const std::vector<TransitionWindow>& windows, const imaging::Image& live,
    const DeviceSceneMotion& motion, double atSec);

}   // namespace tavix
