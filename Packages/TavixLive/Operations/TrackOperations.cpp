#include "TavixLive/Operations/TrackOperations.h"

#include "TavixCore/Animation/CompositionMath.h"
#include "TavixLive/Operations/LayerOperations.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace tavix::TrackOperations {

namespace {

constexpr double apartSec = 0.02, leastGapSec = 0.04;
constexpr double keyframeStepSec = 0.001;   // how near a keyframe comes to the next one

PropertyTrack* trackAt(EditState& state, const Place& place) {
    CompositionLayer* const layer = state.layer(place.scene, place.layer);
    return layer && place.track < layer->tracks.size() ? &layer->tracks[place.track] : nullptr;
}

CompositionKeyframe* keyframeAt(EditState& state, const Place& place, std::size_t keyframe) {
    PropertyTrack* const track = trackAt(state, place);
    return track && keyframe < track->keyframes.size() ? &track->keyframes[keyframe] : nullptr;
}

CompositionMath::Mixing mixingOf(AnimProperty property) {
    const bool isScale = property == AnimProperty::scale || property == AnimProperty::scaleX ||
                         property == AnimProperty::scaleY;
    return isScale ? CompositionMath::Mixing::logarithmic : CompositionMath::Mixing::linear;
}

}   // namespace

ValueRange trackValueRange(AnimProperty property) {
    switch (property) {
    case AnimProperty::opacity: return {1, 0, 1};
    case AnimProperty::x:
    case AnimProperty::y: return {0, -1.2, 1.2};
    case AnimProperty::scale:
    case AnimProperty::scaleX:
    case AnimProperty::scaleY: return {1, 0.05, 3};
    case AnimProperty::rotationDeg:
    case AnimProperty::skewXDeg:
    case AnimProperty::skewYDeg: return {0, -180, 180};
    case AnimProperty::blur: break;
    }
    return {0, 0, 0.25};
}

bool canAddTrack(const CompositionSpec& spec, std::size_t scene, std::size_t layer, AnimProperty property) {
    if (scene >= spec.scenes.size() || layer >= spec.scenes[scene].layers.size()) return false;
    const CompositionLayer& to = spec.scenes[scene].layers[layer];
    if (std::ranges::find(to.tracks, property, &PropertyTrack::property) != to.tracks.end()) return false;
    const auto* device = std::get_if<DeviceContent>(&to.content);
    return !(device && device->placement &&
             (property == AnimProperty::x || property == AnimProperty::y || property == AnimProperty::scale));
}

void addTrack(EditState& state, std::size_t scene, std::size_t layer, AnimProperty property) {
    if (!canAddTrack(state.spec, scene, layer, property)) return;
    const double windowSec = LayerOperations::layerWindowLength(state.spec, scene, layer);
    const double rest = trackValueRange(property).rest;
    CompositionKeyframe first, last;
    first.value = last.value = rest;
    last.t = windowSec;
    state.layer(scene, layer)->tracks.push_back({property, {first, last}});
}

void removeTrack(EditState& state, const Place& place) {
    if (trackAt(state, place) == nullptr) return;
    auto& tracks = state.layer(place.scene, place.layer)->tracks;
    tracks.erase(tracks.begin() + std::ptrdiff_t(place.track));
}

std::optional<double> freeTime(
    std::span<const CompositionKeyframe> avoiding, double nearSec, double windowSec) {
    const auto isFree = [&](double sec) {
        return std::ranges::none_of(avoiding, [&](const CompositionKeyframe& keyframe) {
            return std::abs(keyframe.t - sec) < apartSec - 1e-9;
        });
    };
    if (isFree(nearSec)) return std::min(nearSec, windowSec);
    if (windowSec >= apartSec) {
        const auto steps = static_cast<long>(std::floor(windowSec / apartSec + 1e-9));
        for (long step = 1; step <= steps; ++step)
            for (const double direction : {1.0, -1.0}) {
                const double moved = nearSec + direction * double(step) * apartSec;
                const double sec = std::clamp(moved, 0.0, windowSec);
                if (std::abs(sec - nearSec) > 1e-9 && isFree(sec)) return sec;
            }
    }
    std::vector<double> times{0, windowSec};
    for (const CompositionKeyframe& keyframe : avoiding) times.push_back(keyframe.t);
    std::ranges::sort(times);
    std::size_t widest = 1;
    for (std::size_t i = 2; i < times.size(); ++i)
        if (times[i] - times[i - 1] > times[widest] - times[widest - 1]) widest = i;
    if (!(times[widest] - times[widest - 1] > leastGapSec)) return std::nullopt;
    return (times[widest] + times[widest - 1]) / 2;
}

void addKeyframe(EditState& state, const Place& place, double atSec) {
    PropertyTrack* const track = trackAt(state, place);
    if (track == nullptr) return;
    const double windowSec = LayerOperations::layerWindowLength(state.spec, place.scene, place.layer);
    const auto sec = freeTime(track->keyframes, std::clamp(atSec, 0.0, windowSec), windowSec);
    if (!sec) return;
    CompositionKeyframe added;
    added.t = *sec;
    added.value = CompositionMath::sample(track->keyframes, *sec, mixingOf(track->property))
                      .value_or(trackValueRange(track->property).rest);
    track->keyframes.push_back(added);
    std::ranges::stable_sort(track->keyframes, {}, &CompositionKeyframe::t);
}

void removeKeyframe(EditState& state, const Place& place, std::size_t keyframe) {
    if (keyframeAt(state, place, keyframe) == nullptr) return;
    auto& keyframes = trackAt(state, place)->keyframes;
    keyframes.erase(keyframes.begin() + std::ptrdiff_t(keyframe));
}

void setKeyframeTime(EditState& state, const Place& place, std::size_t keyframe, double toSec) {
    if (keyframeAt(state, place, keyframe) == nullptr) return;
    auto& keyframes = trackAt(state, place)->keyframes;
    const double windowSec = LayerOperations::layerWindowLength(state.spec, place.scene, place.layer);
    const double low = keyframe == 0 ? 0 : keyframes[keyframe - 1].t + keyframeStepSec;
    const double high =
        keyframe + 1 == keyframes.size() ? windowSec : keyframes[keyframe + 1].t - keyframeStepSec;
    keyframes[keyframe].t = std::max(std::min(toSec, high), low);
}

void setKeyframeValue(EditState& state, const Place& place, std::size_t keyframe, double toValue) {
    CompositionKeyframe* const changed = keyframeAt(state, place, keyframe);
    if (changed == nullptr) return;
    const ValueRange range = trackValueRange(trackAt(state, place)->property);
    changed->value = std::clamp(toValue, range.least, range.most);
}

void setKeyframeEase(EditState& state, const Place& place, std::size_t keyframe, const TimingCurve& ease) {
    if (CompositionKeyframe* const changed = keyframeAt(state, place, keyframe)) changed->ease = ease;
}

}   // namespace tavix::TrackOperations
