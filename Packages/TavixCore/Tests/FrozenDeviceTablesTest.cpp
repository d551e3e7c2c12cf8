#include "TavixCore/Choreography/DeviceChoreographyExpander.h"
#include "TavixCore/Choreography/DeviceMotionExpander.h"
#include "TavixCore/Choreography/DeviceMotionReferenceCatalog.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Tests/FrozenForms.h"
#include "TavixCore/Tests/FrozenTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <variant>

namespace tavix {
namespace {

using frozen::departures;
using testing::IsEmpty;

DeviceMotionPreset presetOf(std::string_view name) { return *DeviceMotionPreset::fromRawValue(name); }

// The time, then what differs from rest.
Json frameForm(const DeviceMotionFrame& frame) {
    const DeviceMotionFrame rest;
    JsonObject form{{"t", frame.t}};
    for (const auto& [word, member] : DeviceMotionFrames::fieldWords)
        if (frame.*member != rest.*member) form.set(word, frame.*member);
    return form;
}

TEST(FrozenTables, HoldWhatTheGalleryTellsOfDeviceMotionsAndTheirFrames) {
    JsonArray rows;
    for (const std::string_view name : DeviceMotionPreset::knownRawValues()) {
        Json row = Codec<DeviceMotionMetadata>::write(DeviceMotionReferenceCatalog::metadata(presetOf(name)));
        row.object()->set("name", name);
        row.object()->set("label", DeviceMotionReferenceCatalog::label(presetOf(name)));
        if (const auto* definition = DeviceMotionReferenceCatalog::definition(name)) {
            JsonArray frames;
            for (const DeviceMotionFrame& frame : definition->frames) frames.push_back(frameForm(frame));
            row.object()->set("frames", frames);
        }
        rows.push_back(row);
    }
    EXPECT_THAT(departures(frozen::member(frozen::table("device-motions"), "rows"), rows), IsEmpty());
}

Json motionForm(std::string_view name, const DeviceMotion& motion) {
    JsonObject form = frozen::deviceForm(motion.placement, motion.scene3D);
    form.set("name", name);
    form.set("seconds", motion.sceneDurationSec);
    form.set("uses3D", motion.uses3D);
    if (motion.enter) form.set("enter", frozen::phaseForm(*motion.enter));
    if (!motion.tracks.empty()) form.set("tracks", frozen::tracksForm(motion.tracks));
    return form;
}

TEST(FrozenTables, HoldEveryDeviceMotionAsItIsPlayed) {
    for (const char* file : {"device-motions-natural", "device-motions-reversed"}) {
        SCOPED_TRACE(file);
        const Json table = frozen::table(file);
        const auto params = decodeValue<DeviceMotionParams>(frozen::member(table, "params"));
        JsonArray expected, found;
        for (const Json& row : frozen::list(table, "rows"))
            expected.push_back(frozen::withUsual(row, frozen::member(table, "usual")));
        for (const std::string_view name : DeviceMotionPreset::knownRawValues())
            found.push_back(motionForm(name, DeviceMotionExpander::expand(presetOf(name), params)));
        EXPECT_THAT(departures(expected, found), IsEmpty());
    }
}

constexpr CompositionOutput portrait{1080, 1920, 30};

CompositionLayer phoneWith(std::string_view screen) {
    CompositionLayer layer;
    layer.id = "hero";
    layer.fromSec = 0.5;
    layer.fromMark = MarkRef{"tap"};
    layer.enter = layer.exit = KineticPhase{.durationSec = 1};
    DeviceContent device;
    if (screen == "video")
        device.screen = VideoClip{.path = "screen.mp4"};
    else
        device.screen = StillScreen{"screen.png"};
    layer.content = device;
    return layer;
}

Json rectForm(const std::optional<NormalizedRect>& rect) {
    return rect ? frozen::numbers({rect->x, rect->y, rect->width, rect->height}) : Json();
}

struct ContentForm {
    JsonObject& layer;

    void operator()(const DeviceContent& device) const {
        JsonObject form = frozen::deviceForm(device.placement.value(), device.scene3D);
        form.set("uses3D", device.scene3D.has_value());
        layer.set("device", form);
    }
    void operator()(const ImageContent& image) const {
        layer.set("image", JsonObject{{"path", image.path}, {"heightFraction", image.heightFraction.value()},
                               {"cornerRadiusFraction", image.cornerRadiusFraction},
                               {"sourceRect", rectForm(image.sourceRect)}});
    }
    void operator()(const VideoContent& video) const {
        layer.set(
            "video", JsonObject{{"path", video.clip.path}, {"rect", rectForm(video.rect)},
                         {"cornerRadiusFraction", video.cornerRadiusFraction},
                         {"sourceRect", rectForm(video.sourceRect)}, {"holdLastFrame", video.holdLastFrame}});
    }
    template <class Other> void operator()(const Other&) const { layer.set("other", true); }
};

// A layer of a formation; what it has from its source and must not keep shows as a key too many.
Json layerForm(const CompositionLayer& layer) {
    JsonObject form{
        {"name", layer.id.value()}, {"fromSec", layer.fromSec}, {"durationSec", layer.durationSec.value()}};
    if (layer.position != CompositionLayer().position)
        form.set("position", frozen::numbers({layer.position.x, layer.position.y}));
    if (layer.fromMark || layer.toMark || layer.enter || layer.exit) form.set("keepsSourceTimes", true);
    if (!layer.tracks.empty()) form.set("tracks", frozen::tracksForm(layer.tracks));
    for (const LayerEffect& effect : layer.effects) {
        const TintEffect& tint = std::get<TintEffect>(effect);
        const RGBAColor& c = tint.color;
        form.set("tint", frozen::numbers({tint.intensity, c.r, c.g, c.b, c.a}));
    }
    std::visit(ContentForm{form}, layer.content);
    return form;
}

Json formationForm(DeviceChoreographyPreset preset, const Json& params) {
    const auto made = DeviceChoreographyExpander::expand(preset, phoneWith(frozen::text(params, "screen")),
        portrait, decodeValue<DeviceChoreographyParams>(params));
    JsonArray layers;
    for (const CompositionLayer& layer : made.value().layers) layers.push_back(layerForm(layer));
    return JsonObject{{"durationSec", made->durationSec}, {"layers", layers}};
}

// With what devices in space have in common filled in.
Json wholePlay(const Json& play, const Json& usual) {
    JsonArray layers;
    for (Json layer : frozen::list(play, "layers")) {
        const Json* device = layer.find("device");
        const bool isFlat = device && device->find("uses3D");
        if (device && !isFlat) {
            Json whole = frozen::withUsual(*device, usual);
            layer.object()->set("device", std::move(whole));
        }
        layers.push_back(std::move(layer));
    }
    return JsonObject{{"durationSec", frozen::member(play, "durationSec")}, {"layers", layers}};
}

TEST(FrozenTables, HoldEveryFormationLayerByLayer) {
    const Json table = frozen::table("formations");
    const JsonArray& params = frozen::list(table, "params");
    JsonArray expected, found;
    for (Json row : frozen::list(table, "rows")) {
        JsonArray plays;
        for (const Json& play : frozen::list(row, "played"))
            plays.push_back(wholePlay(play, frozen::member(table, "usual")));
        row.object()->set("played", plays);
        expected.push_back(std::move(row));
    }
    for (const DeviceChoreographyPreset preset : allCases<DeviceChoreographyPreset>()) {
        const DeviceChoreographyTraits& traits = traitsOf(preset);
        JsonArray plays;
        for (const Json& played : params) plays.push_back(formationForm(preset, played));
        found.push_back(JsonObject{{"name", nameOf(preset)}, {"label", traits.label},
            {"naturalDurationSec", traits.naturalDurationSec}, {"naturalCount", traits.naturalCount},
            {"uses3DDevices", traits.uses3DDevices}, {"played", plays}});
    }
    EXPECT_THAT(departures(expected, found), IsEmpty());
}

}   // namespace
}   // namespace tavix
