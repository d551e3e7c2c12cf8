#include "Engine/Presets/DevicePresets.h"

#include "Engine/Console/Words.h"
#include "Engine/Presets/PlayArguments.h"
#include "Engine/System/Errors.h"
#include "TavixCore/Choreography/DeviceChoreographyExpander.h"
#include "TavixCore/Choreography/DeviceMotionExpander.h"
#include "TavixCore/Choreography/DeviceMotionReferenceCatalog.h"
#include "TavixCore/Device/DeviceCatalog.h"
#include "TavixCore/Device/DeviceMockup.h"
#include "TavixCore/Support/Document.h"

namespace tavix::engine {

namespace {

std::string summary(std::string_view title, std::string_view kind, double lengthSec, bool isInSpace) {
    return std::string(title) + ": " + std::string(kind) + ", " + writeJson(lengthSec) + " s, " +
           (isInSpace ? "3D" : "flat");
}

DeviceMotionPreset motionNamed(const std::string& name) {
    if (const auto preset = DeviceMotionPreset::fromRawValue(name)) return *preset;
    throw UsageError("There is no device motion \"" + name + "\"; list them by tavix presets motions." +
                     suggestion(name, DeviceMotionPreset::knownRawValues()));
}

DeviceChoreographyPreset formationNamed(const std::string& name) {
    if (const auto preset = named<DeviceChoreographyPreset>(name)) return *preset;
    const std::vector<std::string_view> names = allNames<DeviceChoreographyPreset>();
    throw UsageError(
        "There is no formation \"" + name + "\"; use " + listed(names) + "." + suggestion(name, names));
}

const BundledDevice& deviceNamed(const std::string& name) {
    if (const BundledDevice* device = DeviceCatalog::device(name)) return *device;
    std::vector<std::string_view> ids;
    for (const BundledDevice& device : DeviceCatalog::all()) ids.push_back(device.id);
    throw UsageError(
        "There is no device \"" + name + "\"; list them by tavix presets devices." + suggestion(name, ids));
}

Json mockupOf(const BundledDevice& device) {
    return Codec<DeviceMockup>::write(DeviceMockup::bundled(device));
}

}   // namespace

namespace DevicePresets {

std::vector<Preset> devices() {
    std::vector<Preset> presets;
    for (const BundledDevice& device : DeviceCatalog::all())
        presets.push_back({device.id,
            device.displayName + ", " + std::to_string(device.pictureWidthPx) + " × " +
                std::to_string(device.pictureHeightPx),
            {{"displayName", device.displayName}, {"widthPx", device.pictureWidthPx},
                {"heightPx", device.pictureHeightPx}, {"screen", Codec<NormalizedRect>::write(device.screen)},
                {"screenCornerRadiusFraction", device.screenCornerRadiusFraction},
                {"mockup", mockupOf(device)}}});
    return presets;
}

std::vector<Preset> motions() {
    std::vector<Preset> presets;
    for (const std::string_view name : DeviceMotionPreset::knownRawValues()) {
        const DeviceMotionPreset preset = *DeviceMotionPreset::fromRawValue(name);
        const DeviceMotionMetadata metadata = DeviceMotionReferenceCatalog::metadata(preset);
        JsonObject details = *Codec<DeviceMotionMetadata>::write(metadata).object();
        details.set("label", DeviceMotionReferenceCatalog::label(preset));
        presets.push_back({std::string(name),
            summary(metadata.title, nameOf(metadata.category), metadata.naturalDurationSec, metadata.uses3D),
            std::move(details)});
    }
    return presets;
}

std::vector<Preset> formations() {
    std::vector<Preset> presets;
    for (const DeviceChoreographyPreset preset : allCases<DeviceChoreographyPreset>()) {
        const DeviceChoreographyTraits& traits = traitsOf(preset);
        presets.push_back({std::string(nameOf(preset)),
            summary(traits.label, std::to_string(traits.naturalCount) + " devices", traits.naturalDurationSec,
                traits.uses3DDevices),
            {{"label", traits.label}, {"naturalCount", traits.naturalCount},
                {"naturalDurationSec", traits.naturalDurationSec}, {"uses3DDevices", traits.uses3DDevices}}});
    }
    return presets;
}

Json expandedMotion(const std::string& name, const PlayArguments& play) {
    const DeviceMotionPreset preset = motionNamed(name);
    return Codec<DeviceMotion>::write(DeviceMotionExpander::expand(
        preset, decodeValue<DeviceMotionParams>(play.deviceParams(PresetFamily::motions))));
}

Json expandedFormation(const std::string& name, const PlayArguments& play) {
    CompositionLayer source;
    source.content = DeviceContent{};
    const DeviceChoreography formation = *DeviceChoreographyExpander::expand(formationNamed(name), source, {},
        decodeValue<DeviceChoreographyParams>(play.deviceParams(PresetFamily::formations)));
    return JsonObject{{"durationSec", formation.durationSec},
        {"layers", Codec<std::vector<CompositionLayer>>::write(formation.layers)}};
}

Json expandedDevice(const std::string& name, const PlayArguments& play) {
    if (!play.isEmpty()) throw UsageError("A device has no options; leave them out.");
    return JsonObject{{"mockup", mockupOf(deviceNamed(name))}};
}

}   // namespace DevicePresets

}   // namespace tavix::engine
