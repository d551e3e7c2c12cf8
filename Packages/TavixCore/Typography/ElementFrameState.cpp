#include "TavixCore/Typography/ElementFrameState.h"

#include "TavixCore/Animation/CurveEvaluation.h"
#include "TavixCore/Typography/KineticNoise.h"
#include "TavixCore/Values/Clamp01.h"

#include <algorithm>
#include <cmath>

namespace tavix::KineticMath {
namespace {

// Towards rest during the entrance, away from it during the exit.
struct PhaseState {
    const KineticPhase& phase;
    double progress, progressPerSec;
    double remainder() const { return 1 - progress; }
};

PhaseState phaseAt(double timeSec, const ElementSchedule& schedule, const KineticStyle& style) {
    if (timeSec >= schedule.outStart) {
        const CurveState gone = evaluate(style.outPhase.curve, timeSec - schedule.outStart, schedule.outDur);
        return {style.outPhase, 1 - gone.value, -gone.velocityPerSec};
    }
    const CurveState come = evaluate(style.inPhase.curve, timeSec - schedule.inStart, schedule.inDur);
    return {style.inPhase, come.value, come.velocityPerSec};
}

struct IdleMotion {
    double offsetXPx = 0, offsetYPx = 0;
    double scale = 1;
    double rotationDeg = 0;
    double opacity = 1;
};

IdleMotion idleMotionAt(
    double timeSec, const KineticElement& element, const KineticStyle& style, double heightPx) {
    IdleMotion motion;
    if (!style.idle) return motion;
    const double gate = activityEnvelope(timeSec, element.schedule);
    const double noise = gate * idleValue(*style.idle, timeSec, element.ordinal, 0);
    switch (style.idle->target) {
    case IdlePhase::Target::position:
        motion.offsetXPx = heightPx * noise;
        motion.offsetYPx = -heightPx * gate * idleValue(*style.idle, timeSec, element.ordinal, 1);
        break;
    case IdlePhase::Target::scale: motion.scale = std::exp(noise); break;
    case IdlePhase::Target::rotation: motion.rotationDeg = noise; break;
    case IdlePhase::Target::opacity: motion.opacity = clamp01(1 + noise); break;
    }
    return motion;
}

// Scale is a power, so that growing and shrinking look equally quick. Offsets are told with y down.
AffineTransform transformOf(
    const PhaseState& state, const IdleMotion& idle, const KineticElement& element, double heightPx) {
    const KineticPhase& phase = state.phase;
    const double w = state.remainder();
    const double scale = idle.scale * element.emphasisScale * std::pow(phase.scale, w);
    return AffineTransform::translation(-element.pivotXPx, -element.pivotYPx)
        .concatenating(AffineTransform::scaling(scale * (1 + w * phase.trackingEm), scale))
        .concatenating(AffineTransform::skew(w * phase.skewXDeg, w * phase.skewYDeg))
        .concatenating(AffineTransform::rotation(w * phase.rotationDeg.z + idle.rotationDeg))
        .concatenating(
            AffineTransform::translation(element.pivotXPx + idle.offsetXPx + w * phase.offset.x * heightPx,
                element.pivotYPx + idle.offsetYPx - w * phase.offset.y * heightPx));
}

// Half a frame's travel at full strength, from the phase's offset alone.
void addMotionBlur(ElementFrameState& result, const PhaseState& state, const CanvasTiming& canvas) {
    constexpr double leastVisiblePx = 0.75, mostHeightFraction = 0.08, shutterFraction = 0.5;
    const KineticPhase& phase = state.phase;
    if (!(phase.motionBlur > 0)) return;
    const double vx = state.progressPerSec * (-phase.offset.x * canvas.heightPx);
    const double vy = state.progressPerSec * (phase.offset.y * canvas.heightPx);
    const double smearPx =
        phase.motionBlur * std::sqrt(vx * vx + vy * vy) * shutterFraction / canvas.framesPerSec;
    if (!(smearPx >= leastVisiblePx)) return;
    result.motionBlurRadius = std::min(smearPx, mostHeightFraction * canvas.heightPx);
    result.motionBlurAngle = std::atan2(vy, vx);
}

RGBAColor mixed(const RGBAColor& from, const RGBAColor& to, double share) {
    const auto mix = [share](double a, double b) { return a + share * (b - a); };
    return {mix(from.r, to.r), mix(from.g, to.g), mix(from.b, to.b), mix(from.a, to.a)};
}

}   // namespace

bool ElementFrameState::hasPerspective() const {
    constexpr double leastVisibleDeg = 0.05;
    return std::max(std::abs(tiltXDeg), std::abs(tiltYDeg)) >= leastVisibleDeg;
}

ElementFrameState stateAt(
    double timeSec, const KineticElement& element, const KineticStyle& style, const CanvasTiming& canvas) {
    constexpr double leastVisibleAlpha = 0.002, leastVisibleBlurPx = 0.1;
    const PhaseState state = phaseAt(timeSec, element.schedule, style);
    const KineticPhase& phase = state.phase;
    const IdleMotion idle = idleMotionAt(timeSec, element, style, canvas.heightPx);

    ElementFrameState result;
    result.progress = state.progress;
    result.remainder = state.remainder();
    const double opacity = phase.opacity + result.progress * (1 - phase.opacity);
    result.alpha = idle.opacity * clamp01(opacity);
    result.transform = transformOf(state, idle, element, canvas.heightPx);
    // A scale of 0 overshot by a spring has no finite size, hence nothing to draw.
    result.visible = result.alpha >= leastVisibleAlpha && result.transform.isFinite();
    result.tiltXDeg = result.remainder * phase.rotationDeg.x;
    result.tiltYDeg = result.remainder * phase.rotationDeg.y;
    if (const double radius = result.remainder * phase.blurRadiusFraction * canvas.heightPx;
        radius >= leastVisibleBlurPx)
        result.gaussianRadius = radius;
    addMotionBlur(result, state, canvas);
    result.clip = phase.clipToBounds;
    result.tintFrom = phase.color.value_or(element.restFill);
    result.color = mixed(result.tintFrom, element.restFill, clamp01(result.progress));
    return result;
}

}   // namespace tavix::KineticMath
