#include "TavixRender/Composition2D/LayerMotion.h"

#include "TavixCore/Animation/CompositionMath.h"
#include "TavixCore/Animation/CurveEvaluation.h"
#include "TavixCore/Values/Clamp01.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <variant>

namespace tavix {

namespace {

constexpr double minScale = 0.001;

double radians(double degrees) { return degrees * std::numbers::pi / 180; }

// A phase still weighs in by `remaining`: 1 in full force, 0 at rest. Scale blends geometrically.
void addPhase(LayerMotion& motion, const KineticPhase& phase, double remaining) {
    if (!(remaining > 0)) return;
    motion.dx += remaining * phase.offset.x;
    motion.dy += remaining * phase.offset.y;
    if (phase.scale > 0) motion.scale *= std::exp(remaining * std::log(phase.scale));
    motion.rotationDeg += remaining * phase.rotationDeg.z;
    motion.opacity *= 1 - remaining * (1 - KineticMath::clamp01(phase.opacity));
    motion.blurFraction += remaining * std::max(phase.blurRadiusFraction, 0.0);
}

// An even way that ends softly: in its last quarter of a second it loses its speed evenly.
double landing(double elapsedSec, double durationSec) {
    const double lastSec = std::min(0.25, durationSec), leftSec = std::max(durationSec - elapsedSec, 0.0);
    const double speed = 1 / (durationSec - lastSec / 2);
    return leftSec < lastSec ? 1 - speed * leftSec * leftSec / (2 * lastSec)
                             : speed * std::max(elapsedSec, 0.0);
}

// A device that comes in evenly is a thing with weight, and would stop dead in one frame.
double remainingOf(const CompositionLayer& layer, const KineticPhase& phase, double elapsedSec) {
    if (std::holds_alternative<LinearCurve>(phase.curve) &&
        std::holds_alternative<DeviceContent>(layer.content))
        return 1 - landing(elapsedSec, phase.durationSec);
    return 1 - KineticMath::evaluate(phase.curve, elapsedSec, phase.durationSec).value;
}

void addPhases(LayerMotion& motion, const CompositionLayer& layer, double localSec, double windowSec) {
    if (layer.enter && layer.enter->durationSec > 0 && localSec < layer.enter->durationSec)
        addPhase(motion, *layer.enter, remainingOf(layer, *layer.enter, localSec));
    if (layer.exit && layer.exit->durationSec > 0 && std::isfinite(windowSec) &&
        windowSec - layer.exit->durationSec < localSec)
        addPhase(motion, *layer.exit, remainingOf(layer, *layer.exit, windowSec - localSec));
}

void addTracks(LayerMotion& motion, const CompositionLayer& layer, double localSec) {
    const auto sampled = [&](AnimProperty property, auto apply) {
        if (const auto value = CompositionMath::sample(layer.tracks, property, localSec)) apply(*value);
    };
    sampled(AnimProperty::opacity, [&](double v) { motion.opacity *= KineticMath::clamp01(v); });
    sampled(AnimProperty::x, [&](double v) { motion.dx += v; });
    sampled(AnimProperty::y, [&](double v) { motion.dy += v; });
    sampled(AnimProperty::scale, [&](double v) { motion.scale *= std::max(v, minScale); });
    sampled(AnimProperty::scaleX, [&](double v) { motion.scaleX = std::max(v, minScale); });
    sampled(AnimProperty::scaleY, [&](double v) { motion.scaleY = std::max(v, minScale); });
    sampled(AnimProperty::rotationDeg, [&](double v) { motion.rotationDeg += v; });
    sampled(AnimProperty::skewXDeg, [&](double v) { motion.skewXDeg = v; });
    sampled(AnimProperty::skewYDeg, [&](double v) { motion.skewYDeg = v; });
    sampled(AnimProperty::blur, [&](double v) { motion.blurFraction += std::max(v, 0.0); });
}

}   // namespace

LayerMotion LayerMotion::at(const CompositionLayer& layer, double localSec, double windowSec) {
    LayerMotion motion;
    motion.opacity = layer.opacity;
    addPhases(motion, layer, localSec, windowSec);
    if (!layer.tracks.empty()) addTracks(motion, layer, localSec);
    return motion;
}

bool LayerMotion::movesNothing() const {
    return dx == 0 && dy == 0 && rotationDeg == 0 && skewXDeg == 0 && skewYDeg == 0 && scale == 1 &&
           scaleX == 1 && scaleY == 1;
}

imaging::Affine LayerMotion::transform(imaging::Point anchor, double outputHeight) const {
    using imaging::Affine;
    const Affine shear{1, std::tan(radians(skewYDeg)), std::tan(radians(skewXDeg)), 1, 0, 0};
    return Affine::translation(-anchor.x, -anchor.y)
        .then(Affine::scaling(scale * scaleX, scale * scaleY))
        .then(shear)
        .then(Affine::rotation(-radians(rotationDeg)))
        .then(Affine::translation(anchor.x + dx * outputHeight, anchor.y - dy * outputHeight));
}

}   // namespace tavix
