#include "TavixCore/Animation/CurveEvaluation.h"

#include "TavixCore/Values/Clamp01.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tavix::KineticMath {
namespace {

bool isWithin(double elapsedSec, double durationSec) { return elapsedSec >= 0 && elapsedSec <= durationSec; }

// Absurd control points or durations overflow; then the plain fraction of the segment stands in.
CurveState finite(const CurveState& state, double elapsedSec, double durationSec) {
    return {std::isfinite(state.value) ? state.value : clamp01(elapsedSec / durationSec),
        std::isfinite(state.velocityPerSec) ? state.velocityPerSec : 0};
}

CurveState evaluateLinear(double elapsedSec, double durationSec) {
    return finite(
        {clamp01(elapsedSec / durationSec), isWithin(elapsedSec, durationSec) ? 1 / durationSec : 0},
        elapsedSec, durationSec);
}

// One axis of a cubic Bézier curve from 0 to 1 with two inner control values.
struct BezierAxis {
    double first, second;
    double at(double t) const {
        const double s = 1 - t;
        return 3 * s * s * t * first + 3 * s * t * t * second + t * t * t;
    }
    double slopeAt(double t) const {
        const double s = 1 - t;
        return 3 * s * s * first + 6 * s * t * (second - first) + 3 * t * t * (1 - second);
    }
};

double parameterByBisection(const BezierAxis& axis, double wanted) {
    double low = 0, high = 1;
    for (int round = 0; round < 24; ++round) {
        const double middle = (low + high) / 2;
        (axis.at(middle) < wanted ? low : high) = middle;
    }
    return (low + high) / 2;
}

// Newton's method is quick on all but the steepest curves; bisection always arrives, as the axis is monotone.
double parameterAt(const BezierAxis& axis, double wanted) {
    constexpr double flatSlope = 1e-6, tolerance = 1e-6;
    double t = wanted;
    for (int step = 0; step < 8; ++step) {
        const double slope = axis.slopeAt(t);
        if (std::abs(slope) < flatSlope) return parameterByBisection(axis, wanted);
        t = clamp01(t - (axis.at(t) - wanted) / slope);
    }
    return std::abs(axis.at(t) - wanted) <= tolerance ? t : parameterByBisection(axis, wanted);
}

// A spring's displacement from its rest, released from -1 at time 0 with no speed.
struct Displacement {
    double value, velocityPerSec;
};

Displacement criticallyDamped(double angularFrequency, double sec) {
    const double decay = std::exp(-angularFrequency * sec);
    if (decay == 0) return {0, 0};
    const double straight = -angularFrequency * sec - 1;
    return {decay * straight, decay * (-angularFrequency - angularFrequency * straight)};
}

Displacement underdamped(double angularFrequency, double damping, double sec) {
    const double decayRate = damping * angularFrequency;
    const double decay = std::exp(-decayRate * sec);
    if (decay == 0) return {0, 0};
    const double root = std::sqrt(1 - damping * damping);
    const double dampedFrequency = angularFrequency * root;
    const double sineShare = -damping / root;
    const double sine = std::sin(dampedFrequency * sec), cosine = std::cos(dampedFrequency * sec);
    const double swing = sineShare * sine - cosine;
    return {decay * swing, decay * (-decayRate * swing + dampedFrequency * (sine + sineShare * cosine))};
}

Displacement displacementOf(const SpringCurve& spring, double sec) {
    constexpr double shortestResponseSec = 0.05, criticalFrom = 0.999;
    const double responseSec =
        spring.responseSec > shortestResponseSec ? spring.responseSec : shortestResponseSec;
    const double angularFrequency = 2 * std::numbers::pi / responseSec;
    const double damping = spring.damping > 0.2 ? std::min(spring.damping, 1.0) : 0.2;
    return damping < criticalFrom ? underdamped(angularFrequency, damping, sec)
                                  : criticallyDamped(angularFrequency, sec);
}

}   // namespace

CurveState evaluateBezier(const BezierCurve& curve, double elapsedSec, double durationSec) {
    constexpr double steepest = 32, flatSlope = 1e-12;
    const BezierAxis x{clamp01(curve.x1), clamp01(curve.x2)};
    const BezierAxis y{curve.y1, curve.y2};
    const double t = parameterAt(x, clamp01(elapsedSec / durationSec));
    CurveState state{y.at(t), 0};
    const double slope = x.slopeAt(t);
    if (durationSec > 0 && isWithin(elapsedSec, durationSec) && std::abs(slope) > flatSlope) {
        const double limit = steepest / durationSec;
        state.velocityPerSec = std::clamp(y.slopeAt(t) / slope / durationSec, -limit, limit);
    }
    return finite(state, elapsedSec, durationSec);
}

CurveState evaluateSpring(const SpringCurve& curve, double elapsedSec, double durationSec) {
    if (elapsedSec > durationSec) return {1, 0};
    const double missedBy = -displacementOf(curve, durationSec).value;
    const Displacement now = displacementOf(curve, elapsedSec);
    // The bracket keeps the landing exact: at the end its two terms cancel before the 1 can round them.
    return finite(
        {1 + (now.value + elapsedSec / durationSec * missedBy), now.velocityPerSec + missedBy / durationSec},
        elapsedSec, durationSec);
}

CurveState evaluate(const TimingCurve& curve, double elapsedSec, double durationSec) {
    if (!(durationSec > 0)) return {1, 0};
    if (!(elapsedSec >= 0)) return {0, 0};
    if (const auto* bezier = std::get_if<BezierCurve>(&curve))
        return evaluateBezier(*bezier, elapsedSec, durationSec);
    if (const auto* spring = std::get_if<SpringCurve>(&curve))
        return evaluateSpring(*spring, elapsedSec, durationSec);
    return evaluateLinear(elapsedSec, durationSec);
}

}   // namespace tavix::KineticMath
