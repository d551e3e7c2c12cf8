#include "TavixRender/DeviceScene/ScreenTransitionWindow.h"

#include "TavixCore/Document/TransitionMath.h"
#include "TavixRender/Compositor/TransitionBlend.h"

#include <algorithm>
#include <cmath>

namespace tavix {

namespace {

// Just before a flip begins, so that its own spring is not yet under way.
constexpr double beforeStartSec = 0.05;
constexpr double halfTurnDegrees = 180;

// The picture changes behind the device's back, once it has gone half way around.
const imaging::Image& flipped(const TransitionWindow& window, const DeviceSceneMotion& motion, double atSec) {
    const double yaw = motion.tracked(atSec).value_or(motion.swayed(atSec)).y;
    return std::abs(yaw - window.startYawDegrees) >= halfTurnDegrees ? window.incoming : window.outgoing;
}

imaging::Image blended(const TransitionWindow& window, const imaging::Image& live, double atSec) {
    const ScreenTransition& transition = window.transition;
    const double eased =
        TransitionMath::easedProgress(atSec, window.startSec, window.endSec, transition.timing);
    const imaging::Image& incoming = transition.liveIncoming.value_or(false) ? live : window.incoming;
    return TransitionBlend::blend(
        {window.outgoing, incoming, window.outgoing.extent()}, eased, transition.style, transition.params);
}

}   // namespace

std::vector<TransitionWindow> transitionWindows(const std::vector<TransitionInput>& inputs,
    const DeviceSceneMotion& motion, double restYawDegrees, const TimeRemap& timeRemap) {
    std::vector<TransitionInput> ordered = inputs;
    std::ranges::stable_sort(
        ordered, {}, [](const TransitionInput& input) { return input.transition.atSec; });
    const auto mapped = [&](double sec) { return timeRemap ? timeRemap(sec) : sec; };
    std::vector<TransitionWindow> windows;
    for (const auto& [transition, outgoing, incoming] : ordered) {
        const double startSec = mapped(transition.atSec);
        const auto before = motion.tracked(startSec - beforeStartSec);
        windows.push_back({startSec, mapped(transition.revealSec), before ? before->y : restYawDegrees,
            transition, outgoing, incoming});
    }
    return windows;
}

imaging::Image screenImage(const std::vector<TransitionWindow>& windows, const imaging::Image& live,
    const DeviceSceneMotion& motion, double atSec) {
    for (const TransitionWindow& window : windows) {
        if (atSec < window.startSec || atSec > window.endSec) continue;
        if (window.transition.style == TransitionStyle::flip) return flipped(window, motion, atSec);
        return blended(window, live, atSec);
    }
    return live;
}

}   // namespace tavix
