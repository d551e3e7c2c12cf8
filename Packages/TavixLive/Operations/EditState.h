// What an edit changes: the document, and what of it is selected. Operations on it check their indices and do
// nothing when one is out of range, since views may be a frame behind.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"

#include <compare>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace tavix {

struct LayerPlace {
    std::size_t scene = 0, layer = 0;
    auto operator<=>(const LayerPlace&) const = default;
};

struct Selection {
    std::optional<std::size_t> scene, layer;   // a layer only with its scene
    std::vector<LayerPlace> others = {};       // layers selected beside that one

    bool contains(const LayerPlace& place) const;
    std::vector<LayerPlace> layers() const;   // that one first
    bool operator==(const Selection&) const = default;
};

struct EditState {
    CompositionSpec spec;
    Selection selection;
    bool operator==(const EditState&) const = default;

    // Null where there is none.
    CompositionScene* scene(std::size_t index) {
        return index < spec.scenes.size() ? &spec.scenes[index] : nullptr;
    }
    CompositionLayer* layer(std::size_t sceneIndex, std::size_t index) {
        CompositionScene* in = scene(sceneIndex);
        return in && index < in->layers.size() ? &in->layers[index] : nullptr;
    }
    const CompositionScene* scene(std::size_t index) const {
        return index < spec.scenes.size() ? &spec.scenes[index] : nullptr;
    }
    const CompositionLayer* layer(std::size_t sceneIndex, std::size_t index) const {
        const CompositionScene* in = scene(sceneIndex);
        return in && index < in->layers.size() ? &in->layers[index] : nullptr;
    }
    // The content of a layer of that kind; null for another one.
    template <class Content> Content* content(std::size_t sceneIndex, std::size_t index) {
        CompositionLayer* in = layer(sceneIndex, index);
        return in ? std::get_if<Content>(&in->content) : nullptr;
    }
    template <class Content> const Content* content(std::size_t sceneIndex, std::size_t index) const {
        const CompositionLayer* in = layer(sceneIndex, index);
        return in ? std::get_if<Content>(&in->content) : nullptr;
    }
};

// A scene that is not there becomes the first one, a layer that is not there none.
void clampSelection(EditState& state);

}   // namespace tavix
