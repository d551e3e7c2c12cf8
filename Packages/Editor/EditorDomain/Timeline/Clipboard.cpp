#include "Editor/EditorDomain/Timeline/TimelineCommands.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Paths/Walk.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixLive/Operations/LayerOperations.h"
#include "TavixLive/Operations/SceneOperations.h"

#include <algorithm>
#include <cmath>

namespace tavix::timeline {

namespace {

constexpr std::string_view kindKey = "tavixClipboard";

bool namesFile(Role role) {
    return role == Role::picture || role == Role::clip || role == Role::recording ||
           role == Role::soundFile || role == Role::fontPath;
}

// Relative paths of another document's folder become whole ones.
template <class T> void anchorFiles(T& value, const AssetRoot& from, const AssetRoot& to) {
    if (!from || from == to) return;
    walk(value, [&](const MutablePlace& place) {
        if (auto* path = place.as<std::string>(); path && place.row && namesFile(place.row->role) &&
                                                  !path->empty() &&
                                                  std::filesystem::path(*path).is_relative())
            *path = (*from / *path).string();
        return Walk::into;
    });
}

bool hasId(const CompositionScene& scene, const std::string& id) {
    return std::ranges::any_of(scene.layers, [&](const CompositionLayer& layer) { return layer.id == id; });
}

void pasteLayer(EditState& state, std::size_t scene, CompositionLayer layer, double fromSec) {
    CompositionScene& into = *state.scene(scene);
    const double most = std::max(into.durationSec - LayerOperations::minLayerWindowSec, 0.0);
    layer.fromSec = std::clamp(fromSec, 0.0, most);
    // What would end behind the scene runs to its end.
    if (layer.durationSec && layer.fromSec + *layer.durationSec >= into.durationSec)
        layer.durationSec.reset();
    if (layer.id && hasId(into, *layer.id)) layer.id.reset();
    into.layers.push_back(std::move(layer));
}

struct Clip {
    CompositionScene scene;   // with the layers alone, or whole
    CompositionOutput output;
    AssetRoot root;
    bool isWholeScene = false;
};

std::optional<Clip> clipIn(std::string_view text) {
    try {
        const Json json = parseJson(text);
        const Json* const kind = json.find(kindKey);
        if (!kind) return std::nullopt;
        Clip clip;
        clip.isWholeScene = kind->stringValue() == "scene";
        if (const Json* const scene = json.find("scene")) clip.scene = decodeValue<CompositionScene>(*scene);
        if (const Json* const output = json.find("output"))
            clip.output = decodeValue<CompositionOutput>(*output);
        if (const Json* const root = json.find("assetRoot"))
            if (const auto path = root->stringValue()) clip.root = *path;
        return clip;
    } catch (const Failure&) {
        return std::nullopt;   // text of anybody else
    }
}

void pasteLayers(EditState& state, std::size_t scene, const Clip& clip, double atSec) {
    double first = INFINITY;
    for (const CompositionLayer& layer : clip.scene.layers) first = std::min(first, layer.fromSec);
    const double start = CompositionTimeline(state.spec).globalTime(scene, 0).value_or(0);
    const std::size_t before = state.scene(scene)->layers.size();
    for (const CompositionLayer& layer : clip.scene.layers)
        pasteLayer(state, scene, layer, atSec - start + layer.fromSec - first);
    std::vector<LayerPlace> places;
    for (std::size_t i = before; i < state.scene(scene)->layers.size(); ++i) places.push_back({scene, i});
    selectLayers(state, places);
}

}   // namespace

std::string copied(const EditState& state, const AssetRoot& assetRoot) {
    const Selection& selected = state.selection;
    if (!selected.scene || *selected.scene >= state.spec.scenes.size()) return {};
    CompositionScene scene = state.spec.scenes[*selected.scene];
    std::vector<LayerPlace> places = selected.layers();
    if (!places.empty()) {
        std::ranges::sort(places);
        scene.layers.clear();
        for (const LayerPlace& place : places)
            scene.layers.push_back(state.spec.scenes[place.scene].layers[place.layer]);
    }
    JsonObject object{{std::string(kindKey), Json(places.empty() ? "scene" : "layers")},
        {"scene", writeValue(typeOf<CompositionScene>(), &scene)},
        {"output", writeValue(typeOf<CompositionOutput>(), &state.spec.output)}};
    if (assetRoot) object.set("assetRoot", Json(assetRoot->string()));
    return writeJson(Json(std::move(object)));
}

bool paste(EditState& state, std::string_view text, double atSec, const AssetRoot& assetRoot) {
    std::optional<Clip> clip = clipIn(text);
    if (!clip || state.spec.scenes.empty()) return false;
    anchorFiles(clip->scene, clip->root, assetRoot);
    const double ratio =
        double(state.spec.output.heightPx) / double(std::max<std::int64_t>(clip->output.heightPx, 1));
    const double across =
        double(state.spec.output.widthPx) / double(std::max<std::int64_t>(clip->output.widthPx, 1));
    for (CompositionLayer& layer : clip->scene.layers) {
        layer.position = {layer.position.x * across, layer.position.y * ratio};
        if (auto* device = std::get_if<DeviceContent>(&layer.content))
            device->basePaddingPx *= std::max(ratio, across);
    }
    const std::size_t scene = std::min(state.selection.scene.value_or(0), state.spec.scenes.size() - 1);
    if (!clip->isWholeScene) {
        if (clip->scene.layers.empty()) return false;
        pasteLayers(state, scene, *clip, atSec);
        return true;
    }
    clip->scene.id.reset();
    state.spec.scenes.insert(state.spec.scenes.begin() + std::ptrdiff_t(scene) + 1, std::move(clip->scene));
    state.selection = {scene + 1, std::nullopt, {}};
    return true;
}

}   // namespace tavix::timeline
