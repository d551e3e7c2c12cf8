// Edits of layers: which there are, when they are shown, what they show and how they come and go.
#pragma once

#include "TavixLive/Operations/EditState.h"

#include <array>
#include <string_view>

namespace tavix {

enum class ContentKind { text, device, image, video, shape, fill };

struct ContentKindRow {
    ContentKind kind;
    std::string_view label, symbol;   // of menus
};
inline constexpr std::array<ContentKindRow, 6> contentKinds{
    {{ContentKind::text, "Text", "textformat"}, {ContentKind::device, "Device", "iphone"},
        {ContentKind::image, "Image", "photo"}, {ContentKind::video, "Video", "film"},
        {ContentKind::shape, "Shape", "square.on.circle"}, {ContentKind::fill, "Fill", "rectangle.fill"}}};

ContentKind kindOf(const LayerContent& content);
LayerContent defaultContent(ContentKind kind);
// The effect of a kind as it comes from a menu.
LayerEffect defaultEffect(std::string_view kind);

namespace LayerOperations {

inline constexpr double minLayerWindowSec = 0.1;
// How long the layer is shown; 0 where there is none.
double layerWindowLength(const CompositionSpec& spec, std::size_t scene, std::size_t layer);

void addLayer(EditState& state, std::size_t scene, ContentKind kind);
void duplicateLayer(EditState& state, std::size_t scene, std::size_t layer);
void reorderLayer(EditState& state, std::size_t scene, std::size_t from, std::size_t to);
void deleteLayer(EditState& state, std::size_t scene, std::size_t layer);
void setLayerContentKind(EditState& state, std::size_t scene, std::size_t layer, ContentKind to);

// Seconds on the scene's clock, held inside the scene. Moving keeps the length; the ends move alone, and one
// at the scene's end follows it from then on.
void moveLayer(EditState& state, std::size_t scene, std::size_t layer, double toFromSec);
void setLayerStart(EditState& state, std::size_t scene, std::size_t layer, double toSec);
void setLayerEnd(EditState& state, std::size_t scene, std::size_t layer, double toSec);

KineticPhase enterPhase(const CompositionSpec& spec, std::size_t scene, std::size_t layer);
KineticPhase exitPhase(const CompositionSpec& spec, std::size_t scene, std::size_t layer);
void setEnterPhase(EditState& state, std::size_t scene, std::size_t layer, std::optional<KineticPhase> phase);
void setExitPhase(EditState& state, std::size_t scene, std::size_t layer, std::optional<KineticPhase> phase);
void addEffect(EditState& state, std::size_t scene, std::size_t layer, std::string_view kind);
void removeEffect(EditState& state, std::size_t scene, std::size_t layer, std::size_t effect);
void setEffect(
    EditState& state, std::size_t scene, std::size_t layer, std::size_t effect, const LayerEffect& to);

// Changes the content of a layer of that kind; one of another kind stays as it is.
template <class Content, class Mutation>
void updateContent(EditState& state, std::size_t scene, std::size_t layer, Mutation mutate) {
    if (auto* content = state.content<Content>(scene, layer)) mutate(*content);
}

}   // namespace LayerOperations

}   // namespace tavix
