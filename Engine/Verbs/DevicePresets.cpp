#include "Engine/Verbs/DevicePresets.h"

#include "Engine/Arguments.h"
#include "Engine/Errors.h"
#include "Engine/NearestWord.h"
#include "TavixCore/Choreography/DeviceChoreographyExpander.h"
#include "TavixCore/Choreography/DeviceMotionExpander.h"
#include "TavixCore/Choreography/DeviceMotionReferenceCatalog.h"
#include "TavixCore/Support/Document.h"

#include <algorithm>
#include <array>

namespace tavix::engine {

namespace {

using Direction = DeviceMotionParams::Direction;

// A number that says how a preset is played; `family` is empty for both.
struct PlayOption {
    std::string_view name, key, placeholder, meaning, family;
};

constexpr std::array<PlayOption, 7> playOptions{{
    {"--duration", "durationSec", "SEC", "Length; its own without this.", {}},
    {"--intensity", "intensity", "N", "How strong; 1 is usual.", {}},
    {"--anchor-x", "anchorX", "FRACTION", "A motion's shift aside, of the canvas height.",
        DevicePresets::motionFamily},
    {"--face-inward", "faceInwardDeg", "DEG", "Turn of a shifted device towards the middle.",
        DevicePresets::motionFamily},
    {"--start-at", "startAtSec", "SEC", "When a motion starts.", DevicePresets::motionFamily},
    {"--spread", "spread", "N", "How wide a formation is; 1 is usual.", DevicePresets::formationFamily},
    {"--stagger", "staggerSec", "SEC", "Time between one device of a formation and the next.",
        DevicePresets::formationFamily},
}};

void requireFamily(std::string_view option, std::string_view its, std::string_view asked) {
    if (its.empty() || its == asked) return;
    throw UsageError(std::string(option) + " goes with presets " + std::string(its) + ", not with " +
                     std::string(asked) + ".");
}

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

}   // namespace

void DevicePlayArguments::declare(Arguments& arguments) {
    numbers_.resize(playOptions.size());
    for (std::size_t i = 0; i < playOptions.size(); ++i)
        arguments.number(
            playOptions[i].name, numbers_[i], playOptions[i].placeholder, playOptions[i].meaning);
    arguments.wholeNumber("--count", count_, 2, 8, "N", "How many devices a formation has.");
    std::vector<std::pair<std::string_view, std::string>> words;
    for (const std::string_view word : allNames<Direction>()) words.emplace_back(word, word);
    arguments.choice("--direction", direction_, std::move(words), "Which way round.");
}

bool DevicePlayArguments::isEmpty() const {
    return !count_ && !direction_ &&
           std::ranges::none_of(numbers_, [](const auto& number) { return number.has_value(); });
}

Json DevicePlayArguments::params(std::string_view family) const {
    JsonObject params;
    for (std::size_t i = 0; i < numbers_.size(); ++i) {
        if (!numbers_[i]) continue;
        requireFamily(playOptions[i].name, playOptions[i].family, family);
        params.set(playOptions[i].key, *numbers_[i]);
    }
    if (count_) {
        requireFamily("--count", DevicePresets::formationFamily, family);
        params.set("count", *count_);
    }
    if (direction_) params.set("direction", *direction_);
    return params;
}

namespace DevicePresets {

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

Json expandedMotion(const std::string& name, const DevicePlayArguments& arguments) {
    const DeviceMotionPreset preset = motionNamed(name);
    return Codec<DeviceMotion>::write(DeviceMotionExpander::expand(
        preset, decodeValue<DeviceMotionParams>(arguments.params(motionFamily))));
}

Json expandedFormation(const std::string& name, const DevicePlayArguments& arguments) {
    CompositionLayer source;
    source.content = DeviceContent{};
    const DeviceChoreography formation = *DeviceChoreographyExpander::expand(formationNamed(name), source, {},
        decodeValue<DeviceChoreographyParams>(arguments.params(formationFamily)));
    return JsonObject{{"durationSec", formation.durationSec},
        {"layers", Codec<std::vector<CompositionLayer>>::write(formation.layers)}};
}

}   // namespace DevicePresets

}   // namespace tavix::engine
