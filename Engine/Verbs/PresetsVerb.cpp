#include "Engine/Verbs/PresetsVerb.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Terminal.h"
#include "Engine/Presets/DevicePresets.h"
#include "Engine/Presets/FontPresets.h"
#include "Engine/Presets/KineticPresets.h"
#include "Engine/Presets/PresetPreview.h"
#include "Engine/Presets/PresetScenes.h"
#include "Engine/Presets/SoundPresets.h"
#include "Engine/System/Errors.h"
#include "TavixCore/Animation/TimingCurve.h"
#include "TavixCore/Document/LayerEffect.h"
#include "TavixCore/Document/TransitionStyle.h"
#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Support/JsonWriter.h"
#include "TavixCore/Theme/BackgroundCatalog.h"

#include <algorithm>
#include <span>
#include <vector>

namespace tavix::engine {

namespace {

struct Family {
    std::string_view name, usage;
    std::vector<Preset> (*list)();
    Json (*expanded)(const std::string& name, const PlayArguments& play) = nullptr;
};

std::vector<Preset> backgrounds() {
    std::vector<Preset> presets;
    for (const BundledBackground& entry : BackgroundCatalog::all)
        presets.push_back(
            {std::string(entry.id), std::string(entry.displayName), {{"displayName", entry.displayName}}});
    return presets;
}

std::string spanOf(const EffectRange& range) { return writeJson(range.min) + " to " + writeJson(range.max); }

Preset effect(const Alternative& row) {
    LayerEffect made;
    row.emplace(&made);
    Preset preset{std::string(row.tag), {}, {}};
    JsonArray described;
    const std::vector<EffectRange> ranges = legalRanges(row.tag);
    for (const EffectParam& param : params(made)) {
        JsonObject entry{{"name", param.name}, {"default", param.value}};
        preset.about.append(preset.about.empty() ? "" : ", ").append(param.name).append(" ") +=
            writeJson(param.value);
        for (const EffectRange& range : ranges) {
            if (range.param != param.name) continue;
            preset.about += " (" + spanOf(range) + ")";
            entry.set("min", range.min);
            entry.set("max", range.max);
        }
        described.push_back(std::move(entry));
    }
    if (preset.about.empty()) preset.about = "two colours";
    preset.details = {{"params", std::move(described)}};
    return preset;
}

std::vector<Preset> effects() {
    std::vector<Preset> presets;
    for (const Alternative& row : alternativesOf(std::type_identity<LayerEffect>{}).rows)
        if (!row.tag.empty()) presets.push_back(effect(row));
    return presets;
}

std::vector<Preset> transitions() {
    std::vector<Preset> presets;
    for (const std::string_view name : allNames<TransitionStyle>())
        presets.push_back({std::string(name), {}, {}});
    return presets;
}

// With the parameters that a curve of that kind has by default.
std::vector<Preset> curves() {
    std::vector<Preset> presets;
    for (const Alternative& row : alternativesOf(std::type_identity<TimingCurve>{}).rows) {
        TimingCurve curve;
        row.emplace(&curve);
        const Json example = Codec<TimingCurve>::write(curve);
        std::string about;
        for (const JsonMember& member : *example.object())
            if (member.key != "kind")
                about.append(about.empty() ? "" : ", ").append(member.key).append(" ") +=
                    writeJson(member.value);
        presets.push_back({std::string(row.tag), about, {{"example", example}}});
    }
    return presets;
}

constexpr Family families[] = {
    {"backgrounds", R"({"kind": "image", "image": {"bundledID": "aurora"}})", backgrounds},
    {"effects", R"({"kind": "glow", "intensity": 0.5} in a layer's "effects")", effects},
    {"transitions", R"({"style": "push", "durationSec": 0.5} as a scene's "transition")", transitions},
    {"curves", R"({"kind": "bezier", "x1": 0.22, "y1": 1, "x2": 0.36, "y2": 1})", curves},
    {"devices", R"("mockup": {"bundledID": "iphone-17-pro-silver", ...}, whole by its name)",
        DevicePresets::devices, DevicePresets::expandedDevice},
    {PresetFamily::motions, R"("motionPreset": {"preset": "rise-up"} in a layer's "device")",
        DevicePresets::motions, DevicePresets::expandedMotion},
    {PresetFamily::formations, R"("choreographyPreset": {"preset": "fanDeck"} in a layer's "device")",
        DevicePresets::formations, DevicePresets::expandedFormation},
    {PresetFamily::kinetic, R"("kinetic": {"preset": "word-pop"} in a layer's "text")", KineticPresets::all,
        KineticPresets::resolved},
    {"fonts", R"("font": "futura" in a layer's "text")", FontPresets::all},
    {"sounds", R"({"sound": "whoosh", "atSec": 1.2} in the "cues" of "audio")", SoundPresets::all},
};

std::vector<std::string_view> familyNames() {
    std::vector<std::string_view> names;
    for (const Family& family : families) names.push_back(family.name);
    return names;
}

const Family& familyNamed(const std::string& name) {
    for (const Family& family : families)
        if (family.name == name) return family;
    const std::vector<std::string_view> names = familyNames();
    throw UsageError(
        "There are no presets called \"" + name + "\"; use " + listed(names) + "." + suggestion(name, names));
}

Json jsonOf(std::vector<Preset> presets) {
    JsonArray entries;
    for (Preset& preset : presets) {
        preset.details.set("id", preset.id);
        entries.emplace_back(std::move(preset.details));
    }
    return entries;
}

std::string tableOf(const std::vector<Preset>& presets, std::string_view usage) {
    std::size_t widest = 0;
    for (const Preset& preset : presets) widest = std::max(widest, preset.id.size());
    std::string text;
    for (const Preset& preset : presets) {
        text += preset.id;
        if (!preset.about.empty()) text += std::string(widest + 3 - preset.id.size(), ' ') + preset.about;
        text += "\n";
    }
    return text + "\nAs in " + std::string(usage) + "\n";
}

}   // namespace

void PresetsVerb::declare(Arguments& arguments, Terminal& terminal) {
    arguments.positional("family", family_, "One of " + listed(familyNames()) + ".",
        "presets needs a family: " + listed(familyNames()) + ".");
    const std::vector<std::string_view> families = familyNames();
    arguments.completes("family", {families.begin(), families.end()});
    arguments.positional(
        "name", name_, "A device, a motion, a formation or an animation of text, to see what it becomes.");
    arguments.text("--preview", preview_, "FILE",
        "Show a named motion, formation, transition, background, device or animation of text: a strip of "
        "moments as .png, or the film as .mp4, .mov or .gif.");
    play_.declare(arguments);
    arguments.jsonFlag(terminal);
}

void PresetsVerb::run(Terminal& terminal) {
    const Family& family = familyNamed(family_);
    if (preview_ && name_.empty())
        throw UsageError("--preview shows one preset; name it, as in tavix presets motions rise-up --preview "
                         "rise-up.png.");
    if (preview_) return writePreview(presetScene(family.name, name_, play_), *preview_, terminal);
    if (!name_.empty() && !family.expanded)
        throw UsageError("presets " + family_ + " are shown together; leave out \"" + name_ + "\".");
    if (name_.empty() && !play_.isEmpty())
        throw UsageError("Options say how one preset is played; name it, as in tavix presets motions rise-up "
                         "--duration 2.");
    if (!name_.empty())
        terminal.result(family.expanded(name_, play_));
    else if (terminal.mode() == Terminal::Mode::json)
        terminal.result(jsonOf(family.list()));
    else
        terminal.result(tableOf(family.list(), family.usage));
}

}   // namespace tavix::engine
