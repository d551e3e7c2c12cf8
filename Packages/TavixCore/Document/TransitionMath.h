// From the clock to the progress of a transition, and from progress to the geometry of wipes and pushes.
#pragma once

#include "TavixCore/Document/TransitionTimingSpec.h"

#include <optional>

namespace tavix::TransitionMath {

constexpr double wipeFeatherFraction = 0.06;   // of the width, on each side of a wipe's edge

// 0 at the start, 1 from the reveal on; a transition of no length is over at any time.
double progress(double atTimeSec, double atSec, double revealSec);

double easeInOutCubic(double x);

// Progress by a timing; without one it is slow at both ends.
double easedProgress(
    double atTimeSec, double atSec, double revealSec, const std::optional<TransitionTimingSpec>& timing);

// The step response of a unit mass on a spring whose natural period is 1, with damping ratio `zeta`.
double springStep(double tau, double zeta);

// The spring with the range 0 to 1 stretched over the time in which it settles to half a percent.
double springProgress(double p, double damping);

// That time, in seconds, for a spring that takes `responseSec` for one swing without damping.
double springSettleDurationSec(double responseSec, double damping);

// The feathered band of a wipe, left to right; it lies wholly outside the picture at 0 and at 1.
struct WipeEdge {
    double x0, x1;
};
WipeEdge wipeEdge(double eased, double width);

struct PushOffsets {
    double outgoingDx, incomingDx;
};
PushOffsets pushOffsets(double eased, double width);

}   // namespace tavix::TransitionMath
