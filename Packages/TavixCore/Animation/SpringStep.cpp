#include "TavixCore/Animation/SpringStep.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tavix {
namespace {

constexpr double criticalFrom = 0.999;

double countedResponseSec(const TrajectorySpring& spring) { return std::max(spring.responseSec, 0.001); }
double countedDamping(const TrajectorySpring& spring) { return std::clamp(spring.damping, 0.2, 1.0); }

}   // namespace

SpringStep::SpringStep(const TrajectorySpring& spring, double stepSec)
    : frequency_(2 * std::numbers::pi / countedResponseSec(spring)), damping_(countedDamping(spring)),
      stepSec_(stepSec) {
    if (isCritical()) {
        decay_ = std::exp(-frequency_ * stepSec);
        return;
    }
    dampedFrequency_ = frequency_ * std::sqrt(1 - damping_ * damping_);
    decay_ = std::exp(-damping_ * frequency_ * stepSec);
    cosine_ = std::cos(dampedFrequency_ * stepSec);
    sine_ = std::sin(dampedFrequency_ * stepSec);
}

bool SpringStep::isCritical() const { return damping_ >= criticalFrom; }

void SpringStep::advance(double& position, double& velocityPerSec, double target) const {
    const double away = position - target;
    if (isCritical()) {
        const double rate = velocityPerSec + frequency_ * away;
        const double drawn = away + stepSec_ * rate;
        position = target + decay_ * drawn;
        velocityPerSec = decay_ * (rate - frequency_ * drawn);
        return;
    }
    const double swing = (velocityPerSec + damping_ * frequency_ * away) / dampedFrequency_;
    const double turned = cosine_ * away + sine_ * swing;
    position = target + decay_ * turned;
    velocityPerSec =
        decay_ * (-damping_ * frequency_ * turned + dampedFrequency_ * (cosine_ * swing - sine_ * away));
}

double settlingSec(const TrajectorySpring& spring) {
    const double damping = countedDamping(spring);
    return (damping < criticalFrom ? 2 + 2 * (1 - damping) : 2) * countedResponseSec(spring);
}

}   // namespace tavix
