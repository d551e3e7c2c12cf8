#include "Editor/EditorDomain/Inspector/InspectorRows.h"

#include "Editor/EditorDomain/Inspector/ContentSizes.h"
#include "Editor/EditorDomain/Inspector/KeyframeRows.h"
#include "Editor/EditorDomain/Inspector/PhaseEditor.h"
#include "Editor/EditorDomain/Inspector/RowWalk.h"
#include "Editor/EditorDomain/Timeline/TimelineScene.h"
#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Values/TextWords.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <limits>

namespace tavix {

namespace {

struct Said {
    std::string_view key, label;
};
// Where the key alone does not say it well.
constexpr std::array said{Said{"fromSec", "Start"}, Said{"wordIndices", "Words"},
    Said{"sizeFraction", "Size"}, Said{"scene3D", "In space"}, Said{"fovDegrees", "Field of view"},
    Said{"widthPx", "Width"}, Said{"heightPx", "Height"}, Said{"fps", "Frame rate"}, Said{"bpm", "Tempo"},
    Said{"rotationDeg", "Turn"}, Said{"id", "Name"}, Said{"heightFraction", "Height"},
    Said{"widthFraction", "Width"}, Said{"bundledID", "Model"}, Said{"tiltDegrees", "Tilt"},
    Said{"keyLightDegrees", "Key light"}, Said{"clipToBounds", "Clip"}};
constexpr std::array<std::string_view, 9> unitEndings{
    "Fraction", "Degrees", "Seconds", "Sec", "Deg", "Px", "Em", "Hz", "Pixels"};

// Under which heading a row of a layer stands.
std::string sectionOf(const JsonPointer& path, const CompositionLayer& layer) {
    const auto& tokens = path.tokens();
    const std::string& first = tokens.front();
    if (first == "id") return {};
    if (first == "position" || first == "opacity") return "Place";
    if (first == "fromSec" || first == "durationSec") return "Time";
    if (first == "enter" || first == "exit" || first == "effects") return labelOfKey(first);
    if (tokens.size() > 1 && first == "device") {
        const std::string& second = tokens[1];
        if (second == "scene3D") return "In space";
        if (second == "placement" || second == "screenOpacity") return "Placement";
        if (second == "mockup") return "Frame";
        if (second == "screen" || second == "screens") return "Screen";
    }
    if (tokens.size() > 1 && first == "text" && tokens[1] == "kinetic") return "Animation";
    if (tokens.size() > 1 && first == "text" && tokens[1] == "shadow") return "Shadow";
    if (tokens.size() > 1 && first == "text" && tokens[1] == "emphasis") return "Emphasis";
    return labelOfKey(kindName(layer.content));
}

bool isBakedAway(const LayerOrigin& origin, const JsonPointer& path) {
    if (origin.baked == LayerOrigin::Baked::nothing) return false;
    const auto& tokens = path.tokens();
    if (tokens.front() == "enter" || tokens.front() == "tracks") return true;
    return tokens.size() > 1 && tokens[0] == "device" &&
           (tokens[1] == "scene3D" || tokens[1] == "placement") &&
           !(tokens.size() > 2 && tokens[2] == "finish");
}

void put(std::vector<InspectorSection>& sections, const std::string& title, InspectorRow&& row) {
    auto found = std::ranges::find(sections, title, &InspectorSection::title);
    if (found == sections.end()) found = sections.insert(sections.end(), InspectorSection{title, {}});
    found->rows.push_back(std::move(row));
}

// What is shown in pixels of this canvas although the document counts it otherwise.
void showInPixels(InspectorRow& row, const CompositionOutput& output) {
    if (row.path.tokens().back() != "sizeFraction") return;
    row.shownTimes = double(output.heightPx);
    row.unit = Unit::pixels;
    row.step = 1;
    row.range = {1, 2 * double(output.heightPx), 1, 1};
}

void sortSections(std::vector<InspectorSection>& sections) {
    // The name, then what the layer is, and only then where, when and how.
    constexpr std::array<std::string_view, 6> last{"Place", "Transform", "Time", "Enter", "Exit", "Effects"};
    const auto rank = [&](const InspectorSection& section) {
        const auto at = std::ranges::find(last, section.title);
        return section.title.empty() ? -1 : at == last.end() ? 0 : int(at - last.begin()) + 1;
    };
    std::ranges::stable_sort(sections, {}, rank);
}

// The words of the text that an emphasis picks from.
void showWords(InspectorRow& row, const CompositionLayer& layer) {
    const auto* const text = std::get_if<TextContent>(&layer.content);
    if (row.control != InspectorRow::Control::picks || !text) return;
    for (const KineticMath::Word& word : KineticMath::words(text->text)) row.words.emplace_back(word.text);
}

void addCorner(
    Inspection& shown, const EditState& state, const LayerPlace& place, const InspectionContext& context) {
    const CompositionLayer& layer = state.spec.scenes[place.scene].layers[place.layer];
    const auto size = context.sizes ? context.sizes->of(layer, state.spec, context.assetRoot) : std::nullopt;
    if (!size) return;
    InspectorRow row;
    row.path = JsonPointer() / std::string(cornerKey);
    row.control = InspectorRow::Control::numbers;
    row.label = "Corner";
    row.help = "The left upper corner of the layer, in pixels of the canvas.";
    row.parts = {"x", "y"};
    row.unit = Unit::pixels;
    row.range = {-std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity(), 1, 1};
    row.step = 1;
    JsonObject corner;
    corner.set("x", Json(layer.position.x - size->width / 2));
    corner.set("y", Json(layer.position.y - size->height / 2));
    row.value = Json(std::move(corner));
    const auto section = std::ranges::find(shown.sections, "Place", &InspectorSection::title);
    if (section == shown.sections.end()) return;
    section->rows.insert(
        section->rows.begin() + std::min<std::ptrdiff_t>(1, std::ssize(section->rows)), std::move(row));
}

Inspection ofLayers(
    const EditState& state, const std::vector<LayerPlace>& places, const InspectionContext& context) {
    std::vector<const void*> records;
    for (const LayerPlace& place : places)
        records.push_back(&state.spec.scenes[place.scene].layers[place.layer]);
    const CompositionLayer& first = state.spec.scenes[places[0].scene].layers[places[0].layer];
    Inspection shown;
    shown.title = places.size() > 1 ? std::to_string(places.size()) + " layers" : timeline::barLabel(first);
    shown.subtitle = timeline::selectionSummary(state);
    std::vector<InspectorRow> rows = rowsOf(typeOf<CompositionLayer>(), records);
    arrangePhases(rows);
    for (InspectorRow& row : rows) {
        const auto& tokens = row.path.tokens();
        if (tokens.front() == "tracks") continue;   // the timeline shows them
        // Named motions are given by the gallery, which lays them out at once.
        if (tokens.size() > 1 && (tokens[1] == "motionPreset" || tokens[1] == "choreographyPreset")) continue;
        // Effects are added from a menu of their kinds.
        if (tokens.front() == "effects" && row.control == InspectorRow::Control::adder) continue;
        row.isSetByPreset = isBakedAway(first.origin, row.path);
        showInPixels(row, state.spec.output);
        showWords(row, first);
        put(shown.sections, sectionOf(row.path, first), std::move(row));
    }
    if (places.size() == 1) addCorner(shown, state, places[0], context);
    shown.sections.push_back(keyframeRows(state, places, context.atSec));
    sortSections(shown.sections);
    return shown;
}

Inspection ofScene(const EditState& state, std::size_t index) {
    const CompositionScene& scene = state.spec.scenes[index];
    Inspection shown{scene.displayName(index), timeline::selectionSummary(state), {}};
    if (scene.id) shown.subtitle = "Scene " + std::to_string(index);
    for (InspectorRow& row : rowsOf(typeOf<CompositionScene>(), {&scene})) {
        const std::string& key = row.path.tokens().front();
        if (key == "layers") continue;
        put(shown.sections,
            key == "transition"   ? "Transition"
            : key == "background" ? "Background"
                                  : "Scene",
            std::move(row));
    }
    return shown;
}

Inspection ofDocument(const EditState& state) {
    Inspection shown{"Composition", {}, {}};
    for (InspectorRow& row : rowsOf(typeOf<CompositionSpec>(), {&state.spec})) {
        const std::string& key = row.path.tokens().front();
        if (key == "output")
            put(shown.sections, "Canvas", std::move(row));
        else if (key == "background")
            put(shown.sections, "Background", std::move(row));
        else if (key == "audio")
            put(shown.sections,
                row.path.tokens().size() > 1 && row.path.tokens()[1] == "cues" ? "Sounds" : "Music",
                std::move(row));
        else if (key == "seed")
            put(shown.sections, "Chance", std::move(row));
    }
    return shown;
}

}   // namespace

bool InspectorRow::isLike(const InspectorRow& other) const {
    return path == other.path && control == other.control && isOptional == other.isOptional &&
           words == other.words && parts == other.parts && keyed.has_value() == other.keyed.has_value() &&
           unit == other.unit && depth == other.depth && label == other.label;
}

Inspection inspection(const EditState& state, const InspectionContext& context) {
    std::vector<LayerPlace> places = state.selection.layers();
    std::erase_if(places, [&](const LayerPlace& place) {
        return place.scene >= state.spec.scenes.size() ||
               place.layer >= state.spec.scenes[place.scene].layers.size();
    });
    if (!places.empty()) return ofLayers(state, places, context);
    if (state.selection.scene && *state.selection.scene < state.spec.scenes.size())
        return ofScene(state, *state.selection.scene);
    return ofDocument(state);
}

std::string labelOfKey(std::string_view key) {
    for (const Said& row : said)
        if (row.key == key) return std::string(row.label);
    for (const std::string_view ending : unitEndings)
        if (key.size() > ending.size() && key.ends_with(ending)) {
            key.remove_suffix(ending.size());
            break;
        }
    std::string words;
    for (std::size_t i = 0; i < key.size(); ++i) {
        const bool isUpper = std::isupper(static_cast<unsigned char>(key[i])) != 0;
        const bool startsWord = isUpper && i > 0 && !std::isupper(static_cast<unsigned char>(key[i - 1]));
        const bool isAlone =
            isUpper && (i + 1 == key.size() || !std::islower(static_cast<unsigned char>(key[i + 1])));
        if (startsWord) words += ' ';
        words += i == 0    ? static_cast<char>(std::toupper(static_cast<unsigned char>(key[i])))
                 : isAlone ? key[i]
                           : static_cast<char>(std::tolower(static_cast<unsigned char>(key[i])));
    }
    return words;
}

std::string_view shortSymbol(Unit unit) {
    switch (unit) {
    case Unit::seconds: return "s";
    case Unit::milliseconds: return "ms";
    case Unit::beats: return "beats";
    case Unit::beatsPerMinute: return "bpm";
    case Unit::hertz: return "Hz";
    case Unit::pixels: return "px";
    case Unit::degrees: return "°";
    case Unit::ems: return "em";
    case Unit::times: return "×";
    case Unit::decibels: return "dB";
    case Unit::canvasHeights: return "h";
    case Unit::canvasWidths: return "w";
    case Unit::none:
    case Unit::canvasSides:
    case Unit::shorterSides:
    case Unit::ownSides:
    case Unit::fraction: break;
    }
    return {};
}

}   // namespace tavix
