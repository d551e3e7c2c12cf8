#include "TavixCore/Animation/CompositionMath.h"

#include "TavixCore/Animation/CurveEvaluation.h"

#include <algorithm>
#include <cmath>

namespace tavix::CompositionMath {
namespace {

double mixed(double from, double to, double share, Mixing mixing) {
    if (mixing == Mixing::logarithmic && from > 0 && to > 0)
        return std::exp(std::log(from) + (std::log(to) - std::log(from)) * share);
    return from + (to - from) * share;
}

Mixing mixingOf(AnimProperty property) {
    const bool isZoom = property == AnimProperty::scale || property == AnimProperty::scaleX ||
                        property == AnimProperty::scaleY;
    return isZoom ? Mixing::logarithmic : Mixing::linear;
}

}   // namespace

std::optional<double> sample(std::span<const CompositionKeyframe> keyframes, double atSec, Mixing mixing) {
    if (keyframes.empty()) return std::nullopt;
    if (!(atSec > keyframes.front().t)) return keyframes.front().value;
    if (atSec >= keyframes.back().t) return keyframes.back().value;
    // The last keyframe lies after this time and the first before it, so the search ends between the two.
    const auto to = std::find_if(keyframes.begin() + 1, keyframes.end(),
        [atSec](const CompositionKeyframe& k) { return k.t >= atSec; });
    const auto from = to - 1;
    const double share = KineticMath::evaluate(to->ease, atSec - from->t, to->t - from->t).value;
    return mixed(from->value, to->value, share, mixing);
}

std::optional<double> sample(std::span<const PropertyTrack> tracks, AnimProperty property, double atSec) {
    const auto track = std::find_if(
        tracks.begin(), tracks.end(), [property](const PropertyTrack& t) { return t.property == property; });
    if (track == tracks.end()) return std::nullopt;
    return sample(track->keyframes, atSec, mixingOf(property));
}

}   // namespace tavix::CompositionMath
