#include "TavixCore/Time/BeatResolver.h"

#include "TavixCore/Support/Decimals.h"
#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Time/TimedRows.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <variant>

namespace tavix::CompositionBeats {
namespace {

using CompositionLint::worded;

// Of a track in rising time; 0 of an empty one.
template <class Keyframe> double endOf(const std::vector<Keyframe>& track) {
    return track.empty() ? 0 : std::max(0.0, track.back().tSec);
}

// When the last device of a scene has stopped moving, on the scene's clock.
double deviceMotionEndSec(const CompositionScene& scene) {
    double latestSec = 0;
    for (const CompositionLayer& layer : scene.layers) {
        const auto* const device = std::get_if<DeviceContent>(&layer.content);
        if (!device) continue;
        double endSec = device->placement ? endOf(device->placement->track) : 0;
        if (device->scene3D)
            endSec =
                std::max({endSec, endOf(device->scene3D->poseTrack), endOf(device->scene3D->depthTrack)});
        if (endSec > 0) latestSec = std::max(latestSec, layer.fromSec + endSec);
    }
    return latestSec;
}

// A sum of beats misses a start by rounding alone; such a start is meant to be exact.
double snapped(double localSec) {
    constexpr double nearnessSec = 0.001;
    return std::abs(localSec) < nearnessSec ? 0 : localSec;
}

}   // namespace

void BeatResolver::resolveLengths(const Type& type, void* document) {
    wantsLengths_ = true;
    sceneCount_ = 0;
    const RowFilter timed(type, isInBeats);
    filter_ = &timed;
    walkValue(type, document, KeyPath(), Visitor<MutablePlace>(*this), filter_);
    filter_ = nullptr;
}

void BeatResolver::resolveMoments(const Type& type, void* document, std::vector<double> sceneStartSec) {
    wantsLengths_ = false;
    sceneCount_ = 0;
    startsSec_ = std::move(sceneStartSec);
    const RowFilter timed(type, isInBeats);
    filter_ = &timed;
    walkValue(type, document, KeyPath(), Visitor<MutablePlace>(*this), filter_);
    filter_ = nullptr;
}

// Scenes and layers have clocks of their own for what is in them.
Walk BeatResolver::operator()(const MutablePlace& place) {
    if (auto* scene = place.as<CompositionScene>(); scene && scene != scene_) {
        ++sceneCount_;
        return inside(place, scene, nullptr);
    }
    if (auto* layer = place.as<CompositionLayer>(); layer && layer != layer_)
        return inside(place, scene_, layer);
    if (!place.row || !isInBeats(place.row->role)) return Walk::into;
    const double* const beats = place.as<double>();
    if (beats && (place.row->role == Role::beatLength) == wantsLengths_) resolve(place, *beats);
    return Walk::over;
}

Walk BeatResolver::inside(const MutablePlace& place, CompositionScene* scene, CompositionLayer* layer) {
    auto* const sceneBefore = std::exchange(scene_, scene);
    auto* const layerBefore = std::exchange(layer_, layer);
    walkValue(place.type, place.value, place.at, Visitor<MutablePlace>(*this), filter_);
    scene_ = sceneBefore;
    layer_ = layerBefore;
    return Walk::over;
}

void BeatResolver::resolve(const MutablePlace& place, double beats) {
    switch (place.row->role) {
    case Role::beatLength:
        return place.ownerAs<CompositionScene>() ? resolveSceneLength(place, beats)
                                                 : resolveLength(place, beats);
    case Role::beatStart: return resolveStart(place, beats);
    case Role::beatEnd: return resolveEnd(place, beats);
    default: return resolveMoment(place, beats);
    }
}

void BeatResolver::resolveSceneLength(const MutablePlace& place, double beats) {
    const CompositionScene& scene = *scene_;
    const std::string name = scene.displayName(sceneCount_ - 1);
    const double lengthSec = grid_.beatDuration() * beats;
    if (scene.durationSec > 0)
        report_.tell(CompositionLint::Rule::twoClocks, place.at,
            worded(
                "{}: durationSec ({}) and durationBeats ({} = {}s) both set — pick one duration authority.",
                {name, twoDecimals(scene.durationSec), twoDecimals(beats), twoDecimals(lengthSec)}));
    constexpr double unseenSec = 0.05;
    const double motionEndSec = deviceMotionEndSec(scene);
    if (lengthSec + unseenSec < motionEndSec)
        report_.tell(CompositionLint::Rule::motionCut, place.at,
            worded(
                "{}: the device motion runs to {}s but durationBeats: {} resolves to {}s — the tail will be cut.",
                {name, twoDecimals(motionEndSec), twoDecimals(beats), twoDecimals(lengthSec)}),
            worded("Use durationBeats: {} to fit it.",
                {decimals(std::ceil(motionEndSec / grid_.beatDuration()), 0)}));
    settle(place, lengthSec);
}

void BeatResolver::resolveLength(const MutablePlace& place, double beats) {
    const double seconds = partnerOf(place).value_or(0);
    if (seconds > 0)
        report_.tell(CompositionLint::Rule::twoClocks, place.at,
            worded("{} ({}) and {} ({}) both set — pick one duration authority.",
                {place.row->partner, twoDecimals(seconds), place.row->key, twoDecimals(beats)}));
    settle(place, grid_.beatDuration() * beats);
}

double BeatResolver::sceneStartSec() const {
    return scene_ && sceneCount_ <= startsSec_.size() ? startsSec_[sceneCount_ - 1] : 0;
}

double BeatResolver::sceneTime(double beat) const {
    return snapped(grid_.timeOfBeat(beat) - sceneStartSec());
}

void BeatResolver::resolveStart(const MutablePlace& place, double beat) {
    const double startSec = sceneTime(beat);
    settle(place, startSec);
    if (startSec < 0)
        report_.tell(CompositionLint::Rule::beatEarly, place.at,
            worded("Beat {} is {}s on the global clock — before this scene starts ({}s).",
                {twoDecimals(beat), twoDecimals(grid_.timeOfBeat(beat)), twoDecimals(sceneStartSec())}));
}

void BeatResolver::resolveEnd(const MutablePlace& place, double beat) {
    const double endSec = sceneTime(beat), lengthSec = endSec - layer_->fromSec;
    settle(place, lengthSec);
    if (lengthSec <= 0)
        report_.tell(CompositionLint::Rule::beatEmpty, place.at,
            worded("Beat {} resolves to scene time {}s — at or before the layer's start ({}s).",
                {twoDecimals(beat), twoDecimals(endSec), twoDecimals(layer_->fromSec)}));
}

void BeatResolver::resolveMoment(const MutablePlace& place, double beat) {
    if (!layer_) {
        const double atSec = grid_.timeOfBeat(beat);
        settle(place, atSec);
        if (atSec < 0)
            report_.tell(CompositionLint::Rule::beatEarly, place.at,
                worded("Beat {} resolves to {}s — before the composition starts.",
                    {twoDecimals(beat), twoDecimals(atSec)}));
        return;
    }
    if (layer_->fromMark)
        return report_.tell(CompositionLint::Rule::beatOnMark, place.at,
            "Beat keyframes need a concrete or beat-valued layer start — this layer starts at a recording mark.",
            "Use atMark for the keyframe too, or give the layer fromBeat/fromSec.");
    settle(place, snapped(grid_.timeOfBeat(beat) - sceneStartSec() - layer_->fromSec));
}

}   // namespace tavix::CompositionBeats
