#include "TavixLive/Operations/LayerOperations.h"

#include "TavixCore/Support/Document.h"
#include "TavixCore/Typography/KineticVocabulary.h"

#include <algorithm>
#include <utility>

namespace tavix {

ContentKind kindOf(const LayerContent& content) {
    struct Kind {
        ContentKind operator()(const TextContent&) const { return ContentKind::text; }
        ContentKind operator()(const DeviceContent&) const { return ContentKind::device; }
        ContentKind operator()(const ImageContent&) const { return ContentKind::image; }
        ContentKind operator()(const VideoContent&) const { return ContentKind::video; }
        ContentKind operator()(const ShapeContent&) const { return ContentKind::shape; }
        ContentKind operator()(const BackgroundFill&) const { return ContentKind::fill; }
    };
    return std::visit(Kind(), content);
}

LayerContent defaultContent(ContentKind kind) {
    switch (kind) {
    case ContentKind::text: {
        TextContent text;
        text.text = "New text";
        text.sizeFraction = 0.045;
        text.maxWidthFraction = 0.82;
        text.color = RGBAColor::white;
        KineticPresetRef preset;
        preset.preset = KineticVocabulary::defaultPreset;
        text.kinetic = preset;
        return text;
    }
    case ContentKind::device: {
        DeviceContent device;
        device.mockup = DeviceMockup::iPhone16Pro;
        device.basePaddingPx = 82;
        device.scene3D = DeviceScene3D{};
        return device;
    }
    case ContentKind::image: return ImageContent{};
    case ContentKind::video: return VideoContent{};
    case ContentKind::shape: {
        ShapeContent shape;
        shape.fill = RGBAColor::white;
        shape.widthFraction = shape.heightFraction = 0.3;
        return shape;
    }
    case ContentKind::fill: break;
    }
    return BackgroundFill{RGBAColor{0, 0, 0, 0.4}};
}

LayerEffect defaultEffect(std::string_view kind) {
    return decodeValue<LayerEffect>(Json(JsonObject{{"kind", Json(kind)}}));
}

namespace LayerOperations {

namespace {

constexpr double atSceneEndSec = 0.02;

// Nothing where there is no such layer.
struct Place {
    CompositionScene* scene = nullptr;
    CompositionLayer* layer = nullptr;
    Place(EditState& state, std::size_t sceneIndex, std::size_t layerIndex)
        : scene(state.scene(sceneIndex)), layer(state.layer(sceneIndex, layerIndex)) {}
    explicit operator bool() const { return layer != nullptr; }
};

const CompositionLayer* layerOf(const CompositionSpec& spec, std::size_t scene, std::size_t layer) {
    if (scene >= spec.scenes.size() || layer >= spec.scenes[scene].layers.size()) return nullptr;
    return &spec.scenes[scene].layers[layer];
}

std::ptrdiff_t offset(std::size_t index) { return static_cast<std::ptrdiff_t>(index); }

}   // namespace

double layerWindowLength(const CompositionSpec& spec, std::size_t scene, std::size_t layer) {
    const CompositionLayer* const shown = layerOf(spec, scene, layer);
    if (shown == nullptr) return 0;
    return shown->durationSec.value_or(
        std::max(spec.scenes[scene].durationSec - shown->fromSec, minLayerWindowSec));
}

void addLayer(EditState& state, std::size_t scene, ContentKind kind) {
    CompositionScene* const into = state.scene(scene);
    if (into == nullptr) return;
    CompositionLayer layer;
    layer.position = {double(state.spec.output.widthPx) / 2, double(state.spec.output.heightPx) / 2};
    layer.content = defaultContent(kind);
    into->layers.push_back(std::move(layer));
    state.selection = {scene, into->layers.size() - 1};
}

void duplicateLayer(EditState& state, std::size_t scene, std::size_t layer) {
    const Place place(state, scene, layer);
    if (!place) return;
    CompositionLayer copy = *place.layer;
    copy.id.reset();
    copy.origin = {};   // it was never written
    place.scene->layers.insert(place.scene->layers.begin() + offset(layer) + 1, std::move(copy));
    state.selection = {scene, layer + 1};
}

void reorderLayer(EditState& state, std::size_t scene, std::size_t from, std::size_t to) {
    const Place place(state, scene, from);
    if (!place) return;
    auto& layers = place.scene->layers;
    to = std::min(to, layers.size() - 1);
    if (to == from) return;
    CompositionLayer moved = std::move(layers[from]);
    layers.erase(layers.begin() + offset(from));
    layers.insert(layers.begin() + offset(to), std::move(moved));
    state.selection = {scene, to};
}

void deleteLayer(EditState& state, std::size_t scene, std::size_t layer) {
    const Place place(state, scene, layer);
    if (!place) return;
    place.scene->layers.erase(place.scene->layers.begin() + offset(layer));
    Selection& selected = state.selection;
    std::erase(selected.others, LayerPlace{scene, layer});
    for (LayerPlace& other : selected.others)
        if (other.scene == scene && other.layer > layer) --other.layer;
    if (selected.scene != scene || !selected.layer) return;
    if (*selected.layer == layer) {
        selected.layer.reset();
        selected.others.clear();
    } else if (*selected.layer > layer) {
        --*selected.layer;
    }
}

void setLayerContentKind(EditState& state, std::size_t scene, std::size_t layer, ContentKind to) {
    const Place place(state, scene, layer);
    if (!place || kindOf(place.layer->content) == to) return;
    place.layer->content = defaultContent(to);
    if (to != ContentKind::device) return;
    // The placement of a device owns these.
    std::erase_if(place.layer->tracks, [](const PropertyTrack& track) {
        return track.property == AnimProperty::x || track.property == AnimProperty::y ||
               track.property == AnimProperty::scale;
    });
}

void moveLayer(EditState& state, std::size_t scene, std::size_t layer, double toFromSec) {
    const Place place(state, scene, layer);
    if (!place) return;
    const double lengthSec = place.layer->durationSec.value_or(minLayerWindowSec);
    const double latestSec = std::max(place.scene->durationSec - lengthSec, 0.0);
    place.layer->fromSec = std::min(std::max(toFromSec, 0.0), latestSec);
}

void setLayerStart(EditState& state, std::size_t scene, std::size_t layer, double toSec) {
    const Place place(state, scene, layer);
    if (!place) return;
    CompositionLayer& changed = *place.layer;
    const double endSec =
        changed.durationSec ? changed.fromSec + *changed.durationSec : place.scene->durationSec;
    changed.fromSec = std::min(std::max(toSec, 0.0), endSec - minLayerWindowSec);
    if (changed.durationSec) changed.durationSec = endSec - changed.fromSec;
}

void setLayerEnd(EditState& state, std::size_t scene, std::size_t layer, double toSec) {
    const Place place(state, scene, layer);
    if (!place) return;
    CompositionLayer& changed = *place.layer;
    const double endSec = std::max(toSec, changed.fromSec + minLayerWindowSec);
    if (endSec >= place.scene->durationSec - atSceneEndSec)
        changed.durationSec.reset();
    else
        changed.durationSec = endSec - changed.fromSec;
}

KineticPhase enterPhase(const CompositionSpec& spec, std::size_t scene, std::size_t layer) {
    const CompositionLayer* const shown = layerOf(spec, scene, layer);
    return shown && shown->enter ? *shown->enter : KineticPhase::identity;
}

KineticPhase exitPhase(const CompositionSpec& spec, std::size_t scene, std::size_t layer) {
    const CompositionLayer* const shown = layerOf(spec, scene, layer);
    return shown && shown->exit ? *shown->exit : KineticPhase::identity;
}

void setEnterPhase(
    EditState& state, std::size_t scene, std::size_t layer, std::optional<KineticPhase> phase) {
    if (const Place place(state, scene, layer); place) place.layer->enter = phase;
}

void setExitPhase(EditState& state, std::size_t scene, std::size_t layer, std::optional<KineticPhase> phase) {
    if (const Place place(state, scene, layer); place) place.layer->exit = phase;
}

void addEffect(EditState& state, std::size_t scene, std::size_t layer, std::string_view kind) {
    if (const Place place(state, scene, layer); place) place.layer->effects.push_back(defaultEffect(kind));
}

void removeEffect(EditState& state, std::size_t scene, std::size_t layer, std::size_t effect) {
    const Place place(state, scene, layer);
    if (place && effect < place.layer->effects.size())
        place.layer->effects.erase(place.layer->effects.begin() + offset(effect));
}

void setEffect(
    EditState& state, std::size_t scene, std::size_t layer, std::size_t effect, const LayerEffect& to) {
    const Place place(state, scene, layer);
    if (place && effect < place.layer->effects.size()) place.layer->effects[effect] = to;
}

}   // namespace LayerOperations

}   // namespace tavix
