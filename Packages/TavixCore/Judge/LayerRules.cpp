#include "TavixBase/NearestWord.h"
#include "TavixCore/Judge/CompositionLint.h"
#include "TavixCore/Judge/LintRules.h"

#include <algorithm>
#include <limits>

namespace tavix::CompositionLint {
namespace {

void keyframeTimeAscends(double t, double previous, const KeyPath& keyframeAt, LintReport& report) {
    const KeyPath at(keyframeAt, "t");
    if (t < 0) report.tell(Rule::keyframeStart, at, "Keyframe t must be ≥ 0 (layer-local clock).");
    if (!(t > previous))
        report.tell(Rule::keyframeOrder, at,
            worded("Keyframe times must be strictly ascending ({} after {}).", {t, previous}));
}

void keyframeValueCanBeDrawn(
    AnimProperty property, double value, const KeyPath& keyframeAt, LintReport& report) {
    const KeyPath at(keyframeAt, "value");
    const bool isScale = property == AnimProperty::scale || property == AnimProperty::scaleX ||
                         property == AnimProperty::scaleY;
    if (property == AnimProperty::opacity && !(value >= 0 && value <= 1))
        report.tell(
            Rule::opacityRange, at, worded("Opacity {} is outside 0…1 — it renders clamped.", {value}));
    if (isScale && !(value > 0))
        report.tell(Rule::scaleRange, at, "Scale must be > 0 (scale interpolates in log space).");
}

void fadesOnce(const LayerScope& scope, LintReport& report) {
    const auto fades = [](const std::optional<KineticPhase>& phase) { return phase && phase->opacity < 1; };
    const CompositionLayer& layer = scope.layer;
    if (!fades(layer.enter) && !fades(layer.exit)) return;
    if (std::ranges::find(layer.tracks, AnimProperty::opacity, &PropertyTrack::property) !=
        layer.tracks.end())
        report.tell(Rule::doubleFade, scope.at,
            "Both an opacity track and a fading enter/exit phase — the two multiply into a double-fade.");
}

void effectIsKnown(const LayerEffect& effect, const KeyPath& effectAt, LintReport& report) {
    if (!std::holds_alternative<UnknownEffect>(effect)) return;
    const std::string_view kind = kindName(effect);
    report.tell(Rule::effectUnknown, KeyPath(effectAt, "kind"),
        worded("Unknown effect \"{}\" — must be one of {}.", {kind, listed(effectKinds())}),
        didYouMean(kind, effectKinds()));
}

void effectIsInRange(const LayerEffect& effect, const KeyPath& effectAt, LintReport& report) {
    const std::vector<EffectParam> given = params(effect);
    for (const EffectRange& range : legalRanges(kindName(effect))) {
        const auto param = std::ranges::find(given, range.param, &EffectParam::name);
        if (param == given.end() || (param->value >= range.min && param->value <= range.max)) continue;
        report.tell(Rule::effectRange, KeyPath(effectAt, range.param),
            worded("{} {} out of range ({}…{}).", {range.param, param->value, range.min, range.max}));
    }
}

}   // namespace

void checkWindow(const LayerScope& scope, LintReport& report) {
    const CompositionLayer& layer = scope.layer;
    const double sceneSec = scope.in.scene().durationSec;
    const KeyPath fromAt(scope.at, "fromSec"), durationAt(scope.at, "durationSec");
    if (layer.fromSec < 0) report.tell(Rule::layerStart, fromAt, "fromSec must be ≥ 0 (scene-local clock).");
    if (sceneSec > 0 && !(sceneSec > layer.fromSec))
        report.tell(Rule::layerLate, fromAt,
            worded("Layer starts at {}s but the scene ends at {}s.", {layer.fromSec, sceneSec}));
    if (!layer.durationSec) return;
    if (!(*layer.durationSec > 0))
        report.tell(
            Rule::layerLength, durationAt, "durationSec must be > 0 (omit it to run to the scene end).");
    const double endSec = writtenWindow(layer, scope.in.scene()).endSec;
    if (endSec > sceneSec + windowSlackSec(scope.in.spec))
        report.tell(Rule::layerEnd, durationAt,
            worded("Layer window ends at {}s, past the scene end ({}s).",
                {apart(endSec, sceneSec), apart(sceneSec, endSec)}));
}

void checkTracks(const LayerScope& scope, LintReport& report) {
    const KeyPath tracksAt(scope.at, "tracks");
    for (std::size_t j = 0; j < scope.layer.tracks.size(); ++j) {
        const PropertyTrack& track = scope.layer.tracks[j];
        const KeyPath trackAt(tracksAt, j), keyframesAt(trackAt, "keyframes");
        double previous = -std::numeric_limits<double>::infinity();
        for (std::size_t k = 0; k < track.keyframes.size(); ++k) {
            const CompositionKeyframe& keyframe = track.keyframes[k];
            const KeyPath keyframeAt(keyframesAt, k);
            keyframeTimeAscends(keyframe.t, previous, keyframeAt, report);
            keyframeValueCanBeDrawn(track.property, keyframe.value, keyframeAt, report);
            previous = keyframe.t;
        }
    }
    fadesOnce(scope, report);
}

void checkEffects(const LayerScope& scope, LintReport& report) {
    const KeyPath effectsAt(scope.at, "effects");
    for (std::size_t e = 0; e < scope.layer.effects.size(); ++e) {
        const KeyPath effectAt(effectsAt, e);
        effectIsKnown(scope.layer.effects[e], effectAt, report);
        effectIsInRange(scope.layer.effects[e], effectAt, report);
    }
}

}   // namespace tavix::CompositionLint
