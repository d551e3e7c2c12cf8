#include "TavixCore/Time/CompositionMarks.h"

#include "TavixCore/Support/Decimals.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Time/CompositionMarksFinder.h"

#include <algorithm>
#include <system_error>
#include <utility>
#include <variant>

namespace tavix::CompositionMarks {
namespace {

using CompositionLint::worded;

const auto isByMark = [](const auto& keyframe) { return keyframe.atMark.has_value(); };

bool hasMarks(const DeviceContent& device) {
    const auto* const clip = std::get_if<VideoClip>(&device.screen);
    return (clip && clip->trimStartMark) || std::ranges::any_of(device.screenOpacity, isByMark) ||
           (device.placement && std::ranges::any_of(device.placement->track, isByMark));
}

bool hasMarks(const CompositionLayer& layer) {
    if (layer.fromMark || layer.toMark) return true;
    const auto* const device = std::get_if<DeviceContent>(&layer.content);
    return (device && hasMarks(*device)) || std::ranges::any_of(layer.tracks, [](const PropertyTrack& track) {
        return std::ranges::any_of(track.keyframes, isByMark);
    });
}

bool hasMarks(const CompositionScene& scene) {
    return std::ranges::any_of(scene.layers, [](const CompositionLayer& layer) { return hasMarks(layer); });
}

std::vector<DeviceEntry> entriesOf(const CompositionScene& scene) {
    std::vector<DeviceEntry> entries;
    for (std::size_t i = 0; i < scene.layers.size(); ++i) {
        const CompositionLayer& layer = scene.layers[i];
        const auto* const device = std::get_if<DeviceContent>(&layer.content);
        if (!device) continue;
        DeviceEntry& entry =
            entries.emplace_back(DeviceEntry{i, layer.id, layer.fromSec, {}, 0, nullptr, false});
        if (const auto* const clip = std::get_if<VideoClip>(&device->screen)) {
            entry.clipPath = clip->path;
            entry.trimStartSec = clip->trimStartSec;
        }
    }
    return entries;
}

class SceneResolver {
public:
    SceneResolver(
        CompositionScene& scene, const KeyPath& at, Sidecars& sidecars, CompositionLint::LintReport& report)
        : scene_(scene), layersAt_(at, "layers"), finder_(at, entriesOf(scene), sidecars, report),
          report_(report) {}

    // All clips are trimmed before any time is measured from where they start.
    void resolve() {
        if (finder_.entries().empty()) return;   // lint says that the references mean nothing
        for (DeviceEntry& entry : finder_.entries()) resolveTrim(entry, KeyPath(layersAt_, entry.layerIndex));
        for (const DeviceEntry& entry : finder_.entries())
            resolveDevice(entry, KeyPath(layersAt_, entry.layerIndex));
        for (std::size_t i = 0; i < scene_.layers.size(); ++i)
            resolveLayer(scene_.layers[i], KeyPath(layersAt_, i));
    }

private:
    DeviceContent& deviceOf(const DeviceEntry& entry) {
        return std::get<DeviceContent>(scene_.layers[entry.layerIndex].content);
    }

    // On a device a reference without a clip means the device's own.
    std::optional<MarkFinder::Moment> findOnDevice(
        const MarkRef& ref, const DeviceEntry& entry, const KeyPath& at) {
        return finder_.find(ref, ref.clip ? ref.clip : entry.id, at);
    }

    void resolveTrim(DeviceEntry& entry, const KeyPath& layerAt) {
        auto* const clip = std::get_if<VideoClip>(&deviceOf(entry).screen);
        if (!clip || !clip->trimStartMark) return;
        const KeyPath deviceAt(layerAt, "device"), screenAt(deviceAt, "screen"),
            at(screenAt, "trimStartMark");
        const auto moment = findOnDevice(*clip->trimStartMark, entry, at);
        if (!moment) return;
        if (moment->entry != &entry)
            return report_.error(at, "trimStartMark must reference the SAME device layer's clip.");
        entry.trimStartSec = clip->trimStartSec = std::max(moment->clipSec, 0.0);
        clip->trimStartMark.reset();
    }

    void resolveDevice(const DeviceEntry& entry, const KeyPath& at) {
        DeviceContent& device = deviceOf(entry);
        const KeyPath deviceAt(at, "device"), placementAt(deviceAt, "placement");
        if (device.placement) resolvePlacement(device.placement->track, entry, KeyPath(placementAt, "track"));
        const auto sinceLayerStart = [&](const MarkRef& ref, const KeyPath& here) {
            const auto moment = findOnDevice(ref, entry, here);
            return moment ? std::optional(moment->clipSec - entry.trimStartSec) : std::nullopt;
        };
        resolveKeyframes(device.screenOpacity, KeyPath(deviceAt, "screenOpacity"), sinceLayerStart);
        resolveTracks(scene_.layers[entry.layerIndex], at, sinceLayerStart);
    }

    void resolvePlacement(
        std::vector<DevicePlacementKeyframe>& track, const DeviceEntry& entry, const KeyPath& trackAt) {
        for (std::size_t k = 0; k < track.size(); ++k) {
            if (!track[k].atMark) continue;
            const KeyPath at(trackAt, k);
            const auto moment = findOnDevice(*track[k].atMark, entry, KeyPath(at, "atMark"));
            if (!moment) continue;
            const MarkRef ref = *std::exchange(track[k].atMark, std::nullopt);
            track[k].tSec = moment->clipSec - entry.trimStartSec;
            if (track[k].tSec < 0)
                report_.error(
                    at, worded("Mark \"{}\" resolves to {}s — before the clip's trimStartSec ({}s).",
                            {ref.mark, twoDecimals(track[k].tSec), twoDecimals(entry.trimStartSec)}));
        }
    }

    template <class Time> void resolveTracks(CompositionLayer& layer, const KeyPath& at, const Time& timeOf) {
        const KeyPath tracksAt(at, "tracks");
        for (std::size_t j = 0; j < layer.tracks.size(); ++j) {
            const KeyPath trackAt(tracksAt, j);
            resolveKeyframes(layer.tracks[j].keyframes, KeyPath(trackAt, "keyframes"), timeOf);
        }
    }

    // `timeOf`: the layer's time of a reference that stands somewhere, or nothing.
    template <class Time>
    void resolveKeyframes(
        std::vector<CompositionKeyframe>& keyframes, const KeyPath& keyframesAt, const Time& timeOf) {
        for (std::size_t k = 0; k < keyframes.size(); ++k) {
            if (!keyframes[k].atMark) continue;
            const KeyPath at(keyframesAt, k);
            const std::optional<double> atSec = timeOf(*keyframes[k].atMark, KeyPath(at, "atMark"));
            if (!atSec) continue;
            keyframes[k].t = *atSec;
            keyframes[k].atMark.reset();
        }
    }

    // The scene's time at which that frame of the clip shows.
    std::optional<double> sceneTime(const MarkRef& ref, const KeyPath& at) {
        const auto moment = finder_.find(ref, ref.clip, at);
        if (!moment) return std::nullopt;
        return moment->entry->fromSec + (moment->clipSec - moment->entry->trimStartSec);
    }

    void resolveLayer(CompositionLayer& layer, const KeyPath& at) {
        if (layer.fromMark) resolveStart(layer, KeyPath(at, "fromMark"));
        if (layer.toMark) resolveEnd(layer, KeyPath(at, "toMark"));
        if (std::holds_alternative<DeviceContent>(layer.content)) return;   // its keyframes are done
        resolveTracks(layer, at, [&](const MarkRef& ref, const KeyPath& here) {
            const auto atSec = sceneTime(ref, here);
            return atSec ? std::optional(*atSec - layer.fromSec) : std::nullopt;
        });
    }

    void resolveStart(CompositionLayer& layer, const KeyPath& at) {
        const auto startSec = sceneTime(*layer.fromMark, at);
        if (!startSec) return;
        const MarkRef ref = *std::exchange(layer.fromMark, std::nullopt);
        layer.fromSec = *startSec;
        if (*startSec < 0)
            report_.error(at, worded("Mark \"{}\" resolves to scene time {}s — before the scene starts.",
                                  {ref.mark, twoDecimals(*startSec)}));
    }

    void resolveEnd(CompositionLayer& layer, const KeyPath& at) {
        const auto endSec = sceneTime(*layer.toMark, at);
        if (!endSec) return;
        const MarkRef ref = *std::exchange(layer.toMark, std::nullopt);
        layer.durationSec = *endSec - layer.fromSec;
        if (*layer.durationSec <= 0)
            report_.error(
                at, worded("Mark \"{}\" resolves to scene time {}s — at or before the layer's start ({}s).",
                        {ref.mark, twoDecimals(*endSec), twoDecimals(layer.fromSec)}));
    }

    CompositionScene& scene_;
    KeyPath layersAt_;
    MarkFinder finder_;
    CompositionLint::LintReport& report_;
};

}   // namespace

std::optional<Timeline> loadTimeline(const std::filesystem::path& sidecar) {
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(sidecar, ignored)) return std::nullopt;   // a pipe would block
    try {
        return decodeFile<Timeline>(sidecar);
    } catch (const Failure&) {
        return std::nullopt;   // reported by whoever needs the marks
    }
}

std::filesystem::path sidecarFile(const std::filesystem::path& clip) {
    return std::filesystem::path(clip).replace_extension(".timeline.json");
}

bool containsMarkRefs(const CompositionSpec& spec) {
    return std::ranges::any_of(spec.scenes, [](const CompositionScene& scene) { return hasMarks(scene); });
}

CompositionResolution resolve(
    CompositionSpec spec, const std::filesystem::path& assetRoot, const TimelineLoader& load) {
    CompositionLint::LintReport report;
    Sidecars sidecars(assetRoot, load);
    const KeyPath root, scenes(root, "scenes");
    for (std::size_t i = 0; i < spec.scenes.size(); ++i) {
        const KeyPath at(scenes, i);
        if (hasMarks(spec.scenes[i])) SceneResolver(spec.scenes[i], at, sidecars, report).resolve();
    }
    return {std::move(spec), std::move(report).findings()};
}

}   // namespace tavix::CompositionMarks
