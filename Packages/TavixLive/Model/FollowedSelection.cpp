#include "TavixLive/Model/FollowedSelection.h"

#include "TavixCore/Paths/Matching.h"
#include "TavixCore/Support/Document.h"

#include <algorithm>

namespace tavix {

namespace {

template <class T> JsonArray written(const std::vector<T>& list) {
    JsonArray array;
    for (const T& element : list) array.push_back(writeValue(typeOf<T>(), &element));
    return array;
}

// Where the element that stood at the index stands now.
template <class T>
std::optional<std::size_t> followed(
    const std::vector<T>& before, std::size_t index, const std::vector<T>& now) {
    const auto places = matched(written(before), written(now));
    const auto found = std::ranges::find(places, std::optional(index));
    if (found == places.end()) return std::nullopt;
    return std::size_t(found - places.begin());
}

}   // namespace

Selection followedSelection(const EditState& before, const CompositionSpec& now) {
    const auto& scenes = before.spec.scenes;
    const Selection& was = before.selection;
    if (!was.scene || *was.scene >= scenes.size()) return {};
    const auto scene = followed(scenes, *was.scene, now.scenes);
    if (!scene) return {};
    const auto& layers = scenes[*was.scene].layers;
    if (!was.layer || *was.layer >= layers.size()) return {scene, {}};
    return {scene, followed(layers, *was.layer, now.scenes[*scene].layers)};
}

}   // namespace tavix
