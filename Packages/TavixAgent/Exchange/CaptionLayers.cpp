#include "TavixAgent/Exchange/CaptionLayers.h"

#include "TavixCore/Document/LayerWindow.h"
#include "TavixCore/Support/Decimals.h"
#include "TavixCore/Time/CompositionTimeline.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace tavix {
namespace {

constexpr double sameSec = 0.0015;   // beyond what files of milliseconds can tell
constexpr double shortestSec = 0.001;
constexpr std::string_view layerName = "caption-";
constexpr double heightFraction = 0.88, sizeFraction = 0.045, widthFraction = 0.86;

// A caption so far, with the layer and the scene that it was seen in last.
struct Shown {
    SubtitleCue caption;
    const CompositionLayer* layer = nullptr;
    std::size_t scene = 0;
};

bool goesOnIn(const Shown& before, const Shown& next) {
    return before.scene + 1 == next.scene && before.layer->id == next.layer->id &&
           before.caption.text == next.caption.text &&
           next.caption.fromSec <= before.caption.toSec + sameSec &&
           before.caption.fromSec <= next.caption.toSec + sameSec;
}

double microseconds(double sec) { return std::round(sec * 1e6) / 1e6; }

bool isImported(const Json& layer) {
    const Json* id = layer.find("id");
    const std::string name = id ? id->stringValue().value_or("") : "";
    return name.starts_with(layerName) && name.size() > layerName.size() &&
           name.find_first_not_of("0123456789", layerName.size()) == std::string::npos;
}

void removeImported(const Json& scene, const JsonPointer& layersAt, JsonPatch& patch) {
    const Json* layers = scene.find("layers");
    if (!layers || !layers->array()) return;
    for (std::size_t i = layers->array()->size(); i-- > 0;)
        if (isImported((*layers->array())[i]))
            patch.push_back({PatchOperation::Kind::remove, layersAt / std::to_string(i), {}, {}});
}

Json layerOf(std::size_t number, const SubtitleCue& caption, const LayerWindow& window,
    const CompositionOutput& output) {
    const auto share = [](double fraction, auto px) { return std::round(fraction * double(px)); };
    JsonObject text{{"text", caption.text}, {"sizeFraction", sizeFraction},
        {"maxWidthFraction", widthFraction}, {"kinetic", JsonObject{{"preset", "none"}}},
        {"shadow", JsonObject{}}};
    return JsonObject{{"id", std::string(layerName) + std::to_string(number)}, {"kind", "text"},
        {"fromSec", microseconds(window.startSec)},
        {"durationSec", microseconds(window.endSec - window.startSec)},
        {"position",
            JsonObject{{"x", share(0.5, output.widthPx)}, {"y", share(heightFraction, output.heightPx)}}},
        {"text", std::move(text)}};
}

Finding outside(std::size_t number, double totalSec, const char* what) {
    return Finding::warning("captions-outside", "Caption " + std::to_string(number) + " " + what +
                                                    " the film, which ends at " + twoDecimals(totalSec) +
                                                    " s.");
}

void noteFit(std::span<const SubtitleCue> captions, double totalSec, std::vector<Finding>& notes) {
    for (std::size_t i = 0; i < captions.size(); ++i) {
        if (captions[i].fromSec >= totalSec - shortestSec)
            notes.push_back(outside(i + 1, totalSec, "comes after"));
        else if (captions[i].toSec > totalSec + sameSec)
            notes.push_back(outside(i + 1, totalSec, "is cut off at the end of"));
        if (i > 0 && captions[i].fromSec < captions[i - 1].toSec - sameSec)
            notes.push_back(Finding::warning("captions-overlap",
                "Captions " + std::to_string(i) + " and " + std::to_string(i + 1) +
                    " are seen at once and stand in one place; move one of their layers."));
    }
}

}   // namespace

std::vector<SubtitleCue> captionsOf(const CompositionSpec& film) {
    const CompositionTimeline timeline(film);
    std::vector<Shown> shown;
    for (std::size_t s = 0; s < film.scenes.size(); ++s) {
        const CompositionScene& scene = film.scenes[s];
        for (const CompositionLayer& layer : scene.layers) {
            const auto* content = std::get_if<TextContent>(&layer.content);
            if (!content || content->text.find_first_not_of(" \t\r\n") == std::string::npos) continue;
            const LayerWindow window = shownWindow(layer, scene);
            const double end = std::min(window.endSec, scene.durationSec);
            if (end - window.startSec < shortestSec) continue;
            Shown part{{timeline.startSec[s] + window.startSec, timeline.startSec[s] + end, content->text},
                &layer, s};
            const auto before =
                std::ranges::find_if(shown, [&](const Shown& each) { return goesOnIn(each, part); });
            if (before == shown.end()) {
                shown.push_back(std::move(part));
                continue;
            }
            part.caption.fromSec = std::min(part.caption.fromSec, before->caption.fromSec);
            part.caption.toSec = std::max(part.caption.toSec, before->caption.toSec);
            *before = std::move(part);
        }
    }
    std::vector<SubtitleCue> captions;
    for (Shown& each : shown) captions.push_back(std::move(each.caption));
    std::ranges::stable_sort(captions, {}, &SubtitleCue::fromSec);
    return captions;
}

CaptionImport captionLayers(
    std::span<const SubtitleCue> captions, const CompositionSpec& film, const Json& written) {
    const CompositionTimeline timeline(film);
    CaptionImport result;
    noteFit(captions, timeline.totalSec, result.notes);
    for (std::size_t s = 0; s < film.scenes.size(); ++s) {
        const JsonPointer sceneAt = JsonPointer() / "scenes" / std::to_string(s);
        const Json* scene = find(written, sceneAt);
        if (!scene) continue;
        const double begin = timeline.startSec[s], end = begin + film.scenes[s].durationSec;
        removeImported(*scene, sceneAt / "layers", result.patch);
        bool hasLayers = scene->find("layers") != nullptr;
        for (std::size_t i = 0; i < captions.size(); ++i) {
            const LayerWindow window{
                std::max(captions[i].fromSec, begin) - begin, std::min(captions[i].toSec, end) - begin};
            if (window.lengthSec() < shortestSec) continue;
            if (!hasLayers)
                result.patch.push_back({PatchOperation::Kind::add, sceneAt / "layers", {}, JsonArray{}});
            hasLayers = true;
            result.patch.push_back({PatchOperation::Kind::add, sceneAt / "layers" / "-", {},
                layerOf(i + 1, captions[i], window, film.output)});
        }
    }
    return result;
}

}   // namespace tavix
