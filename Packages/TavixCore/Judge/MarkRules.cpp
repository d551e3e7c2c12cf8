#include "TavixCore/Findings/Suggestion.h"
#include "TavixCore/Judge/CompositionLint.h"
#include "TavixCore/Judge/LintRules.h"

namespace tavix::CompositionLint {
namespace {

// The recordings that marks of a scene can belong to.
struct SceneDevices {
    std::size_t count = 0;
    std::vector<std::string_view> ids;   // of those that have one
};

SceneDevices devicesOf(const CompositionScene& scene) {
    SceneDevices devices;
    for (const CompositionLayer& layer : scene.layers) {
        if (!std::holds_alternative<DeviceContent>(layer.content)) continue;
        ++devices.count;
        if (layer.id) devices.ids.push_back(*layer.id);
    }
    return devices;
}

class MarkCheck {
public:
    MarkCheck(const SceneDevices& devices, LintReport& report) : devices_(devices), report_(report) {}

    // `ownClip` is what the reference means when it names no clip.
    void operator()(const std::optional<MarkRef>& reference, const KeyPath& owner, std::string_view key,
        const std::optional<std::string>& ownClip = {}) const {
        if (!reference) return;
        const KeyPath at(owner, key);
        if (reference->mark.empty()) report_.error(at, "Mark reference has an empty mark name.");
        if (const auto& clip = reference->clip ? reference->clip : ownClip)
            clipIsADevice(*clip, at);
        else
            deviceIsPlain(at);
    }

private:
    void clipIsADevice(std::string_view clip, const KeyPath& at) const {
        for (const std::string_view id : devices_.ids)
            if (id == clip) return;
        const std::string known =
            devices_.ids.empty() ? "" : worded(" (device ids: {})", {listed(devices_.ids)});
        report_.error(at,
            worded("clip \"{}\" doesn't match any device layer id in this scene{}.", {clip, known}),
            didYouMean(clip, devices_.ids));
    }

    void deviceIsPlain(const KeyPath& at) const {
        if (devices_.count == 0)
            report_.error(at,
                "Mark references need a device layer (with a video screen) in the same scene — this scene "
                "has none.");
        if (devices_.count > 1)
            report_.error(
                at, worded("This scene has {} device layers — set \"clip\" on the mark reference to pick one "
                           "(device ids: {}).",
                        {static_cast<double>(devices_.count), listed(devices_.ids)}));
    }

    const SceneDevices& devices_;
    LintReport& report_;
};

void checkDeviceMarks(const DeviceContent& device, const std::optional<std::string>& ownClip,
    const KeyPath& layerAt, const MarkCheck& check) {
    const KeyPath at(layerAt, "device"), screenAt(at, "screen"), opacityAt(at, "screenOpacity"),
        placementAt(at, "placement"), trackAt(placementAt, "track");
    if (const auto* clip = std::get_if<VideoClip>(&device.screen))
        check(clip->trimStartMark, screenAt, "trimStartMark", ownClip);
    for (std::size_t k = 0; k < device.screenOpacity.size(); ++k)
        check(device.screenOpacity[k].atMark, KeyPath(opacityAt, k), "atMark", ownClip);
    if (!device.placement) return;
    for (std::size_t k = 0; k < device.placement->track.size(); ++k)
        check(device.placement->track[k].atMark, KeyPath(trackAt, k), "atMark", ownClip);
}

void checkLayerMarks(const CompositionLayer& layer, const KeyPath& at, const MarkCheck& check) {
    check(layer.fromMark, at, "fromMark");
    check(layer.toMark, at, "toMark");
    const KeyPath tracksAt(at, "tracks");
    for (std::size_t t = 0; t < layer.tracks.size(); ++t) {
        const KeyPath trackAt(tracksAt, t), keyframesAt(trackAt, "keyframes");
        for (std::size_t k = 0; k < layer.tracks[t].keyframes.size(); ++k)
            check(layer.tracks[t].keyframes[k].atMark, KeyPath(keyframesAt, k), "atMark");
    }
    if (const auto* device = std::get_if<DeviceContent>(&layer.content))
        checkDeviceMarks(*device, layer.id, at, check);
}

}   // namespace

void checkMarks(const SceneScope& scope, LintReport& report) {
    const SceneDevices devices = devicesOf(scope.scene());
    const MarkCheck check(devices, report);
    const KeyPath layersAt(scope.at, "layers");
    for (std::size_t l = 0; l < scope.scene().layers.size(); ++l)
        checkLayerMarks(scope.scene().layers[l], KeyPath(layersAt, l), check);
}

}   // namespace tavix::CompositionLint
