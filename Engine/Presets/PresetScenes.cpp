#include "Engine/Presets/PresetScenes.h"

#include "Engine/Console/Words.h"
#include "Engine/Presets/DevicePresets.h"
#include "Engine/Presets/KineticPresets.h"
#include "Engine/Presets/PlayArguments.h"
#include "Engine/System/Errors.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Theme/BackgroundCatalog.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixRender/Assets/ResourceFolders.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace tavix::engine {

namespace {

constexpr double holdSec = 0.4;   // after a preset has come to its end

Json numberOr(const Json& params, std::string_view key, double otherwise) {
    const Json* given = params.find(key);
    return given ? *given : Json(otherwise);
}

Json color(double r, double g, double b) { return JsonObject{{"r", r}, {"g", g}, {"b", b}, {"a", 1}}; }

Json gradient(double angleDegrees, const Json& from, const Json& to) {
    return JsonObject{{"kind", "gradient"},
        {"gradient", JsonObject{{"angleDegrees", angleDegrees},
                         {"stops", JsonArray{JsonObject{{"location", 0}, {"color", from}},
                                       JsonObject{{"location", 1}, {"color", to}}}}}}};
}

Json paper() { return gradient(80, color(0.97, 0.97, 0.99), color(0.8, 0.83, 0.9)); }
Json night() { return gradient(70, color(0.07, 0.06, 0.16), color(0.2, 0.16, 0.42)); }

PresetScene film(int widthPx, int heightPx, JsonArray scenes) {
    const Json document =
        JsonObject{{"output", JsonObject{{"widthPx", widthPx}, {"heightPx", heightPx}, {"fps", 30}}},
            {"scenes", std::move(scenes)}};
    PresetScene made{decodeValue<CompositionSpec>(document), 0, 0, {}};
    made.toSec = CompositionTimeline(made.spec).totalSec;
    return made;
}

Json scene(double durationSec, Json background, JsonArray layers) {
    return JsonObject{
        {"durationSec", durationSec}, {"background", std::move(background)}, {"layers", std::move(layers)}};
}

Json still(std::string_view name) {
    return JsonObject{{"kind", "still"}, {"path", "assets/" + std::string(name) + ".png"}};
}

// The screens that come with the templates.
std::filesystem::path screensRoot() {
    if (const auto screen = ResourceFolders::find("templates/assets/journal.png"))
        return screen->parent_path().parent_path();
    throw Failure(
        "The screens of previews are not installed: share/tavix/templates/assets is missing beside the program; install it again.");
}

PresetScene deviceFilm(int widthPx, int heightPx, double durationSec, JsonObject device) {
    device.set("screen", still("climb"));
    JsonObject layer{{"id", "phone"}, {"kind", "device"}, {"device", std::move(device)},
        {"position", JsonObject{{"x", widthPx / 2}, {"y", heightPx / 2}}}};
    PresetScene made = film(widthPx, heightPx, {scene(durationSec, paper(), JsonArray{std::move(layer)})});
    made.assetRoot = screensRoot();
    return made;
}

PresetScene motion(const std::string& name, const PlayArguments& play) {
    const Json params = play.deviceParams(PresetFamily::motions);
    const Json expanded = DevicePresets::expandedMotion(name, play);
    const double lengthSec = *expanded.find("sceneDurationSec")->doubleValue();
    const double startSec = *numberOr(params, "startAtSec", 0).doubleValue();
    return deviceFilm(1080, 1080, startSec + lengthSec + holdSec,
        {{"motionPreset", JsonObject{{"preset", name}, {"params", params}}}});
}

PresetScene formation(const std::string& name, const PlayArguments& play) {
    DevicePresets::expandedFormation(name, play);   // names it
    return deviceFilm(1920, 1080, 0.1,
        {{"choreographyPreset",
             JsonObject{{"preset", name}, {"params", play.deviceParams(PresetFamily::formations)}}},
            {"screens", JsonArray{still("journal"), still("map"), still("climb"), still("pulse")}}});
}

PresetScene device(const std::string& name, const PlayArguments& play) {
    JsonObject flat{{"mockup", *DevicePresets::expandedDevice(name, play).find("mockup")}};
    return deviceFilm(1080, 1080, 1, std::move(flat));
}

Json letters(std::string text, double sizeFraction, Json kinetic) {
    return JsonObject{{"id", "text"}, {"kind", "text"}, {"position", JsonObject{{"x", 640}, {"y", 360}}},
        {"text", JsonObject{{"text", std::move(text)}, {"sizeFraction", sizeFraction}, {"fontWeight", "bold"},
                     {"maxWidthFraction", 1}, {"kinetic", std::move(kinetic)}}}};
}

PresetScene textAnimation(const std::string& name, const PlayArguments& play) {
    KineticPresets::resolved(name, play);   // names it
    const KineticPresetCatalog::Request request = play.kineticRequest(name);
    PresetScene made = film(1280, 720,
        {scene(3, night(),
            JsonArray{letters(std::string(request.text.value_or("Make it move")), 0.13,
                Codec<KineticPresetRef>::write(request.preset))})});
    made.spec.seed = request.seed;
    return made;
}

PresetScene transition(const std::string& name) {
    constexpr double holdSecOfEach = 0.5, overlapSec = 1;
    const Json kinetic = JsonObject{{"preset", "none"}};
    Json first = scene(holdSecOfEach + overlapSec,
        gradient(40, color(0.95, 0.35, 0.27), color(1, 0.68, 0.36)), JsonArray{letters("One", 0.3, kinetic)});
    first.object()->set("transition", JsonObject{{"style", name}, {"durationSec", overlapSec}});
    PresetScene made = film(1280, 720,
        {first,
            scene(holdSecOfEach + overlapSec, gradient(130, color(0.13, 0.2, 0.55), color(0.25, 0.55, 0.9)),
                JsonArray{letters("Two", 0.3, kinetic)})});
    made.fromSec = holdSecOfEach - 0.1;
    made.toSec = holdSecOfEach + overlapSec + 0.1;
    return made;
}

PresetScene background(const std::string& name) {
    return film(1920, 1080,
        {scene(1, JsonObject{{"kind", "image"}, {"image", JsonObject{{"bundledID", name}}}}, JsonArray{})});
}

void requireKnown(std::string_view kind, std::string_view family, const std::string& name,
    const std::vector<std::string_view>& known) {
    if (std::ranges::find(known, name) != known.end()) return;
    throw UsageError("There is no " + std::string(kind) + " \"" + name + "\"; list them by tavix presets " +
                     std::string(family) + "." + suggestion(name, known));
}

void requireNoOptions(std::string_view family, const PlayArguments& play) {
    if (!play.isEmpty())
        throw UsageError(
            "presets " + std::string(family) + " take no options but --preview; leave them out.");
}

}   // namespace

PresetScene presetScene(std::string_view family, const std::string& name, const PlayArguments& play) {
    if (family == PresetFamily::motions) return motion(name, play);
    if (family == PresetFamily::formations) return formation(name, play);
    if (family == PresetFamily::kinetic) return textAnimation(name, play);
    if (family == "devices") return device(name, play);
    if (family == "transitions") {
        requireNoOptions(family, play);
        requireKnown("transition", family, name, allNames<TransitionStyle>());
        return transition(name);
    }
    if (family == "backgrounds") {
        requireNoOptions(family, play);
        std::vector<std::string_view> ids;
        for (const BundledBackground& entry : BackgroundCatalog::all) ids.push_back(entry.id);
        requireKnown("background", family, name, ids);
        return background(name);
    }
    throw UsageError(
        "presets " + std::string(family) +
        " cannot be shown; --preview goes with motions, formations, transitions, backgrounds, devices and kinetic.");
}

}   // namespace tavix::engine
