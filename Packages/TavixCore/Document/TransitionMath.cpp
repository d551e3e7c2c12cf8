#include "TavixCore/Document/TransitionMath.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tavix::TransitionMath {
namespace {

constexpr double naturalRate = 2 * std::numbers::pi;    // radians per natural period
constexpr double settledExponent = 5.298317366548036;   // ln 200: half a percent is left
constexpr double shortestSec = 0.000001;
constexpr double leastDamping = 0.05;
constexpr double criticalTolerance = 0.000001;
constexpr double leastResponseSec = 0.05;

// sqrt(zeta² - 1), without overflow.
double overdamping(double zeta) { return std::sqrt(zeta - 1) * std::sqrt(zeta + 1); }

// The exponent, per radian, of the part that dies out last. For an overdamped spring it is
// zeta - sqrt(zeta² - 1), written so that nothing cancels.
double slowestDecay(double damping) {
    const double zeta = std::max(damping, leastDamping);
    return zeta <= 1 ? zeta : 1 / (zeta + overdamping(zeta));
}

double underdampedStep(double tau, double zeta) {
    const double swing = naturalRate * std::sqrt(1 - zeta * zeta);
    return 1 - std::exp(-naturalRate * zeta * tau) *
                   (std::cos(swing * tau) + naturalRate * zeta / swing * std::sin(swing * tau));
}

// 1 - exp(-wζt)(cosh(st) + (wζ/s) sinh(st)), with the exponentials multiplied out: alone they overflow.
double overdampedStep(double tau, double zeta) {
    const double slow = slowestDecay(zeta), quick = zeta + overdamping(zeta);
    const double weight = zeta / overdamping(zeta);
    return 1 - 0.5 * ((1 + weight) * std::exp(-naturalRate * slow * tau) +
                         (1 - weight) * std::exp(-naturalRate * quick * tau));
}

}   // namespace

double progress(double atTimeSec, double atSec, double revealSec) {
    if (revealSec <= atSec + shortestSec) return 1;
    return std::clamp((atTimeSec - atSec) / (revealSec - atSec), 0.0, 1.0);
}

double easeInOutCubic(double x) { return x < 0.5 ? 4 * x * x * x : 1 - std::pow(2 - 2 * x, 3) / 2; }

double easedProgress(
    double atTimeSec, double atSec, double revealSec, const std::optional<TransitionTimingSpec>& timing) {
    const double p = progress(atTimeSec, atSec, revealSec);
    if (!timing) return easeInOutCubic(p);
    if (timing->kind == TransitionTimingSpec::Kind::linear) return p;
    return springProgress(p, timing->damping.value_or(TransitionTimingSpec::defaultDamping));
}

double springStep(double tau, double zeta) {
    if (std::abs(zeta - 1) < criticalTolerance)
        return 1 - std::exp(-naturalRate * tau) * (naturalRate * tau + 1);
    return zeta < 1 ? underdampedStep(tau, zeta) : overdampedStep(tau, zeta);
}

double springProgress(double p, double damping) {
    const double settledTau = settledExponent / (slowestDecay(damping) * naturalRate);
    return springStep(std::max(p, 0.0) * settledTau, std::max(damping, leastDamping));
}

double springSettleDurationSec(double responseSec, double damping) {
    return std::max(responseSec, leastResponseSec) * settledExponent / (slowestDecay(damping) * naturalRate);
}

WipeEdge wipeEdge(double eased, double width) {
    const double feather = width * wipeFeatherFraction;
    const double center = eased * (width + 2 * feather) - feather;
    return {center - feather, center + feather};
}

PushOffsets pushOffsets(double eased, double width) { return {-eased * width, (1 - eased) * width}; }

}   // namespace tavix::TransitionMath
