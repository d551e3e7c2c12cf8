#include "TavixCore/Judge/IgnoredBesideMotion.h"

#include "TavixCore/Choreography/DeviceMotionExpander.h"
#include "TavixCore/Document/CompositionLayer.h"
#include "TavixCore/Document/CompositionOutput.h"
#include "TavixCore/Findings/LintReport.h"
#include "TavixCore/Support/DecodingError.h"
#include "TavixCore/Support/Document.h"

#include <array>
#include <cmath>
#include <optional>
#include <variant>

namespace tavix::CompositionLint {
namespace {

bool isWritten(const Json& owner, std::string_view key) {
    const Json* value = owner.find(key);
    if (!value || value->isNull()) return false;
    return !(value->array() && value->array()->empty());
}

// Turning and growing need the point that `position` gives; moving aside and fading do not.
bool usesItsPosition(const CompositionLayer& layer) {
    for (const PropertyTrack& track : layer.tracks) switch (track.property) {
        case AnimProperty::x:
        case AnimProperty::y:
        case AnimProperty::opacity:
        case AnimProperty::blur: break;
        default: return true;
        }
    for (const std::optional<KineticPhase>* phase : {&layer.enter, &layer.exit})
        if (*phase && ((*phase)->scale != 1 || (*phase)->rotationDeg.z != 0)) return true;
    return false;
}

class IgnoredKeys {
public:
    IgnoredKeys(const CompositionOutput& output, LintReport& report) : output_(output), report_(report) {}

    void look(const Json& json, const KeyPath& at) const {
        std::optional<CompositionLayer> layer = read(json);
        const auto* device = layer ? std::get_if<DeviceContent>(&layer->content) : nullptr;
        const Json* deviceJson = json.find("device");
        if (device && deviceJson) lookAtDevice(json, *deviceJson, *layer, *device, at);
        if (!layer || device) return;
        if (std::holds_alternative<BackgroundFill>(layer->content))
            positionCounts(*layer, at, "A fill covers the whole frame");
        if (std::holds_alternative<VideoContent>(layer->content))
            positionCounts(*layer, at, "A video stands in its rect, or fills the frame");
    }

private:
    static std::optional<CompositionLayer> read(const Json& json) {
        try {
            return decodeValue<CompositionLayer>(json);
        } catch (const DecodingError&) {
            return std::nullopt;   // which is told by whoever reads the document
        }
    }

    void lookAtDevice(const Json& json, const Json& deviceJson, CompositionLayer& layer,
        const DeviceContent& device, const KeyPath& at) const {
        const KeyPath deviceAt(at, "device");
        if (device.choreographyPreset) {
            const std::string name =
                "the formation \"" + std::string(nameOf(device.choreographyPreset->preset)) + "\"";
            for (const std::string_view key :
                {"durationSec", "toMark", "fromMark", "enter", "exit", "tracks"})
                ignored(json, key, at, name);
            ignored(deviceJson, "placement", deviceAt, name);
            ignored(deviceJson, "motionPreset", deviceAt, name);
            sceneIsIgnored(
                deviceJson, deviceAt, name, traitsOf(device.choreographyPreset->preset).uses3DDevices);
            layer.enter.reset(), layer.exit.reset(), layer.tracks.clear();
        } else if (device.motionPreset) {
            const DeviceMotion motion =
                DeviceMotionExpander::expand(device.motionPreset->preset, device.motionPreset->params);
            const std::string name =
                "the motion \"" + std::string(device.motionPreset->preset.rawValue()) + "\"";
            ignored(json, "enter", at, name);
            ignored(json, "tracks", at, name);
            ignored(deviceJson, "placement", deviceAt, name);
            sceneIsIgnored(deviceJson, deviceAt, name, motion.uses3D);
            layer.enter = motion.enter, layer.tracks = motion.tracks;
        }
        positionCounts(layer, at, "A device stands in the middle of the frame, moved by its placement");
    }

    // The finish is the author's beside every motion in space.
    void sceneIsIgnored(
        const Json& deviceJson, const KeyPath& deviceAt, const std::string& name, bool isInSpace) const {
        const Json* scene = deviceJson.find("scene3D");
        if (!scene || !scene->object()) return;
        if (!isInSpace)
            return ignored(deviceJson, "scene3D", deviceAt, name + ", which leaves the device flat");
        const KeyPath sceneAt(deviceAt, "scene3D");
        for (const JsonMember& member : *scene->object())
            if (member.key != "finish") ignored(*scene, member.key, sceneAt, name);
    }

    void ignored(const Json& owner, std::string_view key, const KeyPath& at, const std::string& name) const {
        if (isWritten(owner, key))
            report_.tell(Rule::keyIgnored, KeyPath(at, key),
                worded("{} has no effect beside {}, which takes its place.", {key, name}));
    }

    void positionCounts(const CompositionLayer& layer, const KeyPath& at, std::string_view why) const {
        constexpr double nearPx = 1;
        const PixelPoint middle{double(output_.widthPx) / 2, double(output_.heightPx) / 2};
        const auto isAt = [&](const PixelPoint& point) {
            return std::abs(layer.position.x - point.x) <= nearPx &&
                   std::abs(layer.position.y - point.y) <= nearPx;
        };
        if (isAt(middle) || isAt(CompositionLayer{}.position) || usesItsPosition(layer)) return;
        report_.tell(
            Rule::keyIgnored, KeyPath(at, "position"), worded("position has no effect here. {}.", {why}));
    }

    const CompositionOutput& output_;
    LintReport& report_;
};

const JsonArray* itemsOf(const Json& owner, std::string_view key) {
    const Json* items = owner.find(key);
    return items ? items->array() : nullptr;
}

}   // namespace

std::vector<Finding> ignoredBesideMotion(const Json& document) {
    LintReport report;
    const Json* outputJson = document.find("output");
    const CompositionOutput output = outputJson && outputJson->object()
                                         ? decodeValue<CompositionOutput>(*outputJson)
                                         : CompositionOutput{};
    const IgnoredKeys keys(output, report);
    const KeyPath root, scenesAt(root, "scenes");
    const JsonArray* scenes = itemsOf(document, "scenes");
    for (std::size_t i = 0; scenes && i < scenes->size(); ++i) {
        const KeyPath sceneAt(scenesAt, i), layersAt(sceneAt, "layers");
        const JsonArray* layers = itemsOf((*scenes)[i], "layers");
        for (std::size_t l = 0; layers && l < layers->size(); ++l)
            keys.look((*layers)[l], KeyPath(layersAt, l));
    }
    return std::move(report).findings();
}

}   // namespace tavix::CompositionLint
