#include "TavixCore/Time/CompositionBeats.h"

#include "TavixCore/Findings/LintReport.h"
#include "TavixCore/Support/Decimals.h"
#include "TavixCore/Time/CompositionTimeline.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <variant>

namespace tavix::CompositionBeats {
namespace {

using CompositionLint::worded;

bool isInBeats(const CompositionKeyframe& keyframe) { return keyframe.atBeat.has_value(); }

bool hasBeats(const CompositionLayer& layer) {
    if (layer.fromBeat || layer.toBeat) return true;
    const auto* const device = std::get_if<DeviceContent>(&layer.content);
    if (device && std::ranges::any_of(device->screenOpacity, isInBeats)) return true;
    return std::ranges::any_of(layer.tracks,
        [](const PropertyTrack& track) { return std::ranges::any_of(track.keyframes, isInBeats); });
}

bool hasBeats(const CompositionScene& scene) {
    return scene.durationBeats || (scene.transition && scene.transition->durationBeats) ||
           std::ranges::any_of(scene.layers, [](const CompositionLayer& layer) { return hasBeats(layer); });
}

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

class Resolver {
public:
    explicit Resolver(BeatGrid grid) : grid_(grid) {}

    void resolveLengths(CompositionScene& scene, std::size_t index, const KeyPath& at) {
        if (scene.durationBeats) resolveLength(scene, index, KeyPath(at, "durationBeats"));
        if (!scene.transition || !scene.transition->durationBeats) return;
        const KeyPath transition(at, "transition");
        resolveLength(*scene.transition, KeyPath(transition, "durationBeats"));
    }

    void resolveLayers(CompositionScene& scene, double startSec, const KeyPath& at) {
        sceneStartSec_ = startSec;
        const KeyPath layers(at, "layers");
        for (std::size_t i = 0; i < scene.layers.size(); ++i)
            resolveLayer(scene.layers[i], KeyPath(layers, i));
    }

    void resolveCue(SoundCue& cue, const KeyPath& at) {
        if (!cue.atBeat) return;
        const double beat = *std::exchange(cue.atBeat, std::nullopt);
        cue.atSec = grid_.timeOfBeat(beat);
        if (cue.atSec < 0)
            report_.error(
                KeyPath(at, "atBeat"), worded("Beat {} resolves to {}s — before the composition starts.",
                                           {twoDecimals(beat), twoDecimals(cue.atSec)}));
    }

    std::vector<CompositionLint::Finding> findings() && { return std::move(report_).findings(); }

private:
    void resolveLength(CompositionScene& scene, std::size_t index, const KeyPath& at) {
        const double beats = *std::exchange(scene.durationBeats, std::nullopt);
        const double lengthSec = grid_.beatDuration() * beats;
        if (scene.durationSec > 0)
            report_.error(at, worded("{}: durationSec ({}) and durationBeats ({} = {}s) both set — pick one "
                                     "duration authority.",
                                  {scene.displayName(index), twoDecimals(scene.durationSec),
                                      twoDecimals(beats), twoDecimals(lengthSec)}));
        constexpr double unseenSec = 0.05;
        const double motionEndSec = deviceMotionEndSec(scene);
        if (lengthSec + unseenSec < motionEndSec)
            report_.warning(at,
                worded("{}: the device motion runs to {}s but durationBeats: {} resolves to {}s — the tail "
                       "will be "
                       "cut.",
                    {scene.displayName(index), twoDecimals(motionEndSec), twoDecimals(beats),
                        twoDecimals(lengthSec)}),
                worded("Use durationBeats: {} to fit it.",
                    {decimals(std::ceil(motionEndSec / grid_.beatDuration()), 0)}));
        scene.durationSec = lengthSec;
    }

    void resolveLength(SceneTransition& transition, const KeyPath& at) {
        const double beats = *std::exchange(transition.durationBeats, std::nullopt);
        if (transition.durationSec > 0)
            report_.error(
                at, worded("durationSec ({}) and durationBeats ({}) both set — pick one duration authority.",
                        {twoDecimals(transition.durationSec), twoDecimals(beats)}));
        transition.durationSec = grid_.beatDuration() * beats;
    }

    double sceneTime(double beat) const { return snapped(grid_.timeOfBeat(beat) - sceneStartSec_); }

    void resolveLayer(CompositionLayer& layer, const KeyPath& at) {
        if (layer.fromBeat) resolveStart(layer, KeyPath(at, "fromBeat"));
        if (layer.toBeat) resolveEnd(layer, KeyPath(at, "toBeat"));
        const KeyPath tracks(at, "tracks");
        for (std::size_t i = 0; i < layer.tracks.size(); ++i) {
            const KeyPath track(tracks, i);
            resolveKeyframes(layer.tracks[i].keyframes, layer, KeyPath(track, "keyframes"));
        }
        const KeyPath inDevice(at, "device");
        if (auto* const device = std::get_if<DeviceContent>(&layer.content))
            resolveKeyframes(device->screenOpacity, layer, KeyPath(inDevice, "screenOpacity"));
    }

    void resolveStart(CompositionLayer& layer, const KeyPath& at) {
        const double beat = *std::exchange(layer.fromBeat, std::nullopt);
        layer.fromSec = sceneTime(beat);
        if (layer.fromSec < 0)
            report_.error(at,
                worded("Beat {} is {}s on the global clock — before this scene starts ({}s).",
                    {twoDecimals(beat), twoDecimals(grid_.timeOfBeat(beat)), twoDecimals(sceneStartSec_)}));
    }

    void resolveEnd(CompositionLayer& layer, const KeyPath& at) {
        const double beat = *std::exchange(layer.toBeat, std::nullopt);
        const double endSec = sceneTime(beat);
        layer.durationSec = endSec - layer.fromSec;
        if (*layer.durationSec <= 0)
            report_.error(
                at, worded("Beat {} resolves to scene time {}s — at or before the layer's start ({}s).",
                        {twoDecimals(beat), twoDecimals(endSec), twoDecimals(layer.fromSec)}));
    }

    void resolveKeyframes(
        std::vector<CompositionKeyframe>& keyframes, const CompositionLayer& layer, const KeyPath& at) {
        for (std::size_t i = 0; i < keyframes.size(); ++i)
            if (keyframes[i].atBeat) resolveKeyframe(keyframes[i], layer, KeyPath(at, i));
    }

    void resolveKeyframe(CompositionKeyframe& keyframe, const CompositionLayer& layer, const KeyPath& at) {
        if (layer.fromMark)
            return report_.error(KeyPath(at, "atBeat"),
                "Beat keyframes need a concrete or beat-valued layer start — this layer starts at a "
                "recording mark.",
                "Use atMark for the keyframe too, or give the layer fromBeat/fromSec.");
        const double beat = *std::exchange(keyframe.atBeat, std::nullopt);
        keyframe.t = snapped(grid_.timeOfBeat(beat) - sceneStartSec_ - layer.fromSec);
    }

    BeatGrid grid_;
    double sceneStartSec_ = 0;   // of the scene at hand, on the global clock
    CompositionLint::LintReport report_;
};

}   // namespace

std::optional<BeatGrid> grid(const CompositionSpec& spec) {
    const MusicBed* const music = spec.audio && spec.audio->music ? &*spec.audio->music : nullptr;
    if (!music || !music->bpm || !(*music->bpm > 0)) return std::nullopt;
    return BeatGrid{.bpm = *music->bpm, .offsetSec = music->firstBeatSec - music->startAtSec};
}

bool containsBeatRefs(const CompositionSpec& spec) {
    return std::ranges::any_of(spec.scenes, [](const CompositionScene& scene) { return hasBeats(scene); }) ||
           (spec.audio && std::ranges::any_of(
                              spec.audio->cues, [](const SoundCue& cue) { return cue.atBeat.has_value(); }));
}

CompositionResolution resolve(CompositionSpec spec) {
    const std::optional<BeatGrid> beats = grid(spec);
    if (!beats || !containsBeatRefs(spec)) return {std::move(spec), {}};
    Resolver resolver(*beats);
    const KeyPath root, scenes(root, "scenes"), audio(root, "audio"), cues(audio, "cues");
    for (std::size_t i = 0; i < spec.scenes.size(); ++i)
        resolver.resolveLengths(spec.scenes[i], i, KeyPath(scenes, i));
    // A scene starts where the lengths before it say, so its start is known only now.
    const std::vector<double> startSec = CompositionTimeline(spec).startSec;
    for (std::size_t i = 0; i < spec.scenes.size(); ++i)
        resolver.resolveLayers(spec.scenes[i], startSec[i], KeyPath(scenes, i));
    for (std::size_t i = 0; i < spec.audio->cues.size(); ++i)
        resolver.resolveCue(spec.audio->cues[i], KeyPath(cues, i));
    return {std::move(spec), std::move(resolver).findings()};
}

}   // namespace tavix::CompositionBeats
