#include "TavixCore/Judge/LintRules.h"

namespace tavix::CompositionLint {
namespace {

constexpr double slowestBpm = 40, fastestBpm = 220;

class BeatCheck {
public:
    BeatCheck(bool hasGrid, LintReport& report) : hasGrid_(hasGrid), report_(report) {}

    // A time in beats needs a grid, and no second clock beside it.
    void operator()(const std::optional<double>& beat, const KeyPath& owner, std::string_view key,
        bool hasOtherClock, std::string_view otherClockMessage) const {
        if (!beat) return;
        const KeyPath at(owner, key);
        if (!hasGrid_)
            report_.error(at,
                worded("{} needs a beat grid — the composition declares no audio.music.bpm.", {key}),
                "Set audio.music.bpm (+ firstBeatSec) — run `tavix beats <audio>` to measure them.");
        if (hasOtherClock) report_.error(at, std::string(otherClockMessage));
    }

    // Of a scene or a transition.
    template <class Owner> void length(const Owner& owner, const KeyPath& at) const {
        (*this)(owner.durationBeats, at, "durationBeats", owner.durationSec > 0,
            "durationSec and durationBeats both set — pick one duration authority.");
    }

    void keyframes(const std::vector<CompositionKeyframe>& keyframes, const KeyPath& at) const {
        for (std::size_t k = 0; k < keyframes.size(); ++k)
            (*this)(keyframes[k].atBeat, KeyPath(at, k), "atBeat", keyframes[k].atMark.has_value(),
                "atBeat and atMark on the same keyframe — pick one clock.");
    }

private:
    bool hasGrid_;
    LintReport& report_;
};

void checkLayerBeats(const CompositionLayer& layer, const KeyPath& at, const BeatCheck& check) {
    check(layer.fromBeat, at, "fromBeat", layer.fromMark.has_value(),
        "fromBeat and fromMark on the same layer — pick one clock for the start.");
    check(layer.toBeat, at, "toBeat", layer.toMark.has_value(),
        "toBeat and toMark on the same layer — pick one clock for the end.");
    const KeyPath tracksAt(at, "tracks");
    for (std::size_t t = 0; t < layer.tracks.size(); ++t) {
        const KeyPath trackAt(tracksAt, t);
        check.keyframes(layer.tracks[t].keyframes, KeyPath(trackAt, "keyframes"));
    }
    if (const auto* device = std::get_if<DeviceContent>(&layer.content)) {
        const KeyPath deviceAt(at, "device");
        check.keyframes(device->screenOpacity, KeyPath(deviceAt, "screenOpacity"));
    }
}

std::optional<double> bpmOf(const CompositionSpec& spec) {
    return spec.audio && spec.audio->music ? spec.audio->music->bpm : std::nullopt;
}

}   // namespace

void checkBeats(const SceneScope& scope, LintReport& report) {
    const KeyPath root, audioAt(root, "audio"), musicAt(audioAt, "music");
    const std::optional<double> bpm = bpmOf(scope.spec);
    if (bpm && !(*bpm >= slowestBpm && *bpm <= fastestBpm))
        report.error(KeyPath(musicAt, "bpm"), worded("bpm {} out of range (40…220).", {*bpm}));

    const BeatCheck check(bpm && *bpm > 0, report);
    const CompositionScene& scene = scope.scene();
    check.length(scene, scope.at);
    if (scene.transition) check.length(*scene.transition, KeyPath(scope.at, "transition"));
    const KeyPath layersAt(scope.at, "layers");
    for (std::size_t l = 0; l < scene.layers.size(); ++l)
        checkLayerBeats(scene.layers[l], KeyPath(layersAt, l), check);
}

}   // namespace tavix::CompositionLint
