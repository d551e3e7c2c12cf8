#include "TavixCore/Time/CompositionMarks.h"

#include "TavixCore/Support/Decimals.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Time/CompositionMarksFinder.h"
#include "TavixCore/Time/TimedRows.h"

#include <algorithm>
#include <system_error>
#include <utility>
#include <variant>

namespace tavix::CompositionMarks {
namespace {

using CompositionLint::worded;

const RowFilter& rowsByMark() {
    static const RowFilter filter(typeOf<CompositionSpec>(), isByMark);
    return filter;
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
    using Seconds = std::optional<double>;

    // On a device a reference without a clip means the device's own.
    std::optional<MarkFinder::Moment> findOnDevice(
        const MarkRef& ref, const DeviceEntry& entry, const KeyPath& at) {
        return finder_.find(ref, ref.clip ? ref.clip : entry.id, at);
    }

    void resolveTrim(DeviceEntry& entry, const KeyPath& layerAt) {
        const auto trimOf = [&](const MutablePlace& place) {
            const auto moment = findOnDevice(*place.as<MarkRef>(), entry, place.at);
            if (!moment) return Seconds();
            if (moment->entry != &entry) {
                report_.tell(CompositionLint::Rule::markTrim, place.at,
                    worded("{} must reference the SAME device layer's clip.", {place.row->key}));
                return Seconds();
            }
            entry.trimStartSec = std::max(moment->clipSec, 0.0);
            return Seconds(entry.trimStartSec);
        };
        resolveContent(scene_.layers[entry.layerIndex], layerAt, Role::markTrim, trimOf);
    }

    void resolveDevice(const DeviceEntry& entry, const KeyPath& at) {
        const auto sinceLayerStart = [&](const MutablePlace& place) {
            const auto* const ref = place.as<MarkRef>();
            const auto moment = findOnDevice(*ref, entry, place.at);
            if (!moment) return Seconds();
            const double atSec = moment->clipSec - entry.trimStartSec;
            if (atSec < 0 && place.ownerAs<DevicePlacementKeyframe>())
                report_.tell(CompositionLint::Rule::markEarly, *place.ownerAt,
                    worded("Mark \"{}\" resolves to {}s — before the clip's trimStartSec ({}s).",
                        {ref->mark, twoDecimals(atSec), twoDecimals(entry.trimStartSec)}));
            return Seconds(atSec);
        };
        CompositionLayer& layer = scene_.layers[entry.layerIndex];
        resolveContent(layer, at, Role::markMoment, sinceLayerStart);
        resolveTracks(layer, at, sinceLayerStart);
    }

    static void resolveContent(
        CompositionLayer& layer, const KeyPath& at, Role role, const SecondsOf& secondsOf) {
        resolveRows(typeOf<LayerContent>(), &layer.content, at, role, secondsOf, &rowsByMark());
    }

    static void resolveTracks(CompositionLayer& layer, const KeyPath& at, const SecondsOf& secondsOf) {
        resolveRows(typeOf<std::vector<PropertyTrack>>(), &layer.tracks, KeyPath(at, "tracks"),
            Role::markMoment, secondsOf, &rowsByMark());
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
        const auto sinceLayerStart = [&](const MutablePlace& place) {
            const auto atSec = sceneTime(*place.as<MarkRef>(), place.at);
            return atSec ? Seconds(*atSec - layer.fromSec) : Seconds();
        };
        resolveTracks(layer, at, sinceLayerStart);
        resolveContent(layer, at, Role::markMoment, sinceLayerStart);
    }

    void resolveStart(CompositionLayer& layer, const KeyPath& at) {
        const auto startSec = sceneTime(*layer.fromMark, at);
        if (!startSec) return;
        const MarkRef ref = *std::exchange(layer.fromMark, std::nullopt);
        layer.fromSec = *startSec;
        if (*startSec < 0)
            report_.tell(CompositionLint::Rule::markEarly, at,
                worded("Mark \"{}\" resolves to scene time {}s — before the scene starts.",
                    {ref.mark, twoDecimals(*startSec)}));
    }

    void resolveEnd(CompositionLayer& layer, const KeyPath& at) {
        const auto endSec = sceneTime(*layer.toMark, at);
        if (!endSec) return;
        const MarkRef ref = *std::exchange(layer.toMark, std::nullopt);
        layer.durationSec = *endSec - layer.fromSec;
        if (*layer.durationSec <= 0)
            report_.tell(CompositionLint::Rule::markEmpty, at,
                worded("Mark \"{}\" resolves to scene time {}s — at or before the layer's start ({}s).",
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
    return containsRow(typeOf<CompositionSpec>(), &spec, rowsByMark());
}

CompositionResolution resolve(
    CompositionSpec spec, const std::filesystem::path& assetRoot, const TimelineLoader& load) {
    CompositionLint::LintReport report;
    Sidecars sidecars(assetRoot, load);
    const KeyPath root, scenes(root, "scenes");
    for (std::size_t i = 0; i < spec.scenes.size(); ++i) {
        const KeyPath at(scenes, i);
        if (containsRow(typeOf<CompositionScene>(), &spec.scenes[i], rowsByMark()))
            SceneResolver(spec.scenes[i], at, sidecars, report).resolve();
    }
    return {std::move(spec), std::move(report).findings()};
}

}   // namespace tavix::CompositionMarks
