#include "TavixLive/Operations/SceneOperations.h"

#include <algorithm>
#include <cmath>

namespace tavix {

bool Selection::contains(const LayerPlace& place) const {
    return (scene == place.scene && layer == place.layer) || std::ranges::find(others, place) != others.end();
}

std::vector<LayerPlace> Selection::layers() const {
    if (!scene || !layer) return {};
    std::vector<LayerPlace> all{{*scene, *layer}};
    all.insert(all.end(), others.begin(), others.end());
    return all;
}

void clampSelection(EditState& state) {
    Selection& selected = state.selection;
    if (selected.scene && *selected.scene >= state.spec.scenes.size()) {
        selected.scene = state.spec.scenes.empty() ? std::nullopt : std::optional<std::size_t>(0);
        selected.layer.reset();
    }
    if (!selected.scene) selected.layer.reset();
    if (selected.layer && *selected.layer >= state.spec.scenes[*selected.scene].layers.size())
        selected.layer.reset();
    std::erase_if(
        selected.others, [&](const LayerPlace& place) { return !state.layer(place.scene, place.layer); });
    if (!selected.layer) selected.others.clear();
}

namespace SceneOperations {

namespace {

constexpr double newSceneSec = 3, shortestSceneSec = 0.1;
constexpr double noLengthSec = 0.000001, sameLengthSec = 0.000000001;

void stretch(DeviceContent& device, double ratio) {
    if (device.placement)
        for (DevicePlacementKeyframe& keyframe : device.placement->track) keyframe.tSec *= ratio;
    for (CompositionKeyframe& keyframe : device.screenOpacity) keyframe.t *= ratio;
    if (!device.scene3D) return;
    for (DevicePoseKeyframe& keyframe : device.scene3D->poseTrack) keyframe.tSec *= ratio;
    for (DeviceScalarKeyframe& keyframe : device.scene3D->depthTrack) keyframe.tSec *= ratio;
}

void stretch(CompositionLayer& layer, double ratio) {
    layer.fromSec *= ratio;
    if (layer.durationSec) *layer.durationSec *= ratio;
    if (layer.enter) layer.enter->durationSec *= ratio;
    if (layer.exit) layer.exit->durationSec *= ratio;
    for (PropertyTrack& track : layer.tracks)
        for (CompositionKeyframe& keyframe : track.keyframes) keyframe.t *= ratio;
    if (auto* device = std::get_if<DeviceContent>(&layer.content)) stretch(*device, ratio);
}

}   // namespace

void addScene(EditState& state) {
    CompositionScene scene;
    scene.durationSec = newSceneSec;
    state.spec.scenes.push_back(std::move(scene));
    state.selection = {state.spec.scenes.size() - 1, std::nullopt};
}

void duplicateScene(EditState& state, std::size_t scene) {
    if (state.scene(scene) == nullptr) return;
    auto& scenes = state.spec.scenes;
    CompositionScene copy = scenes[scene];
    copy.id.reset();
    scenes.insert(scenes.begin() + std::ptrdiff_t(scene) + 1, std::move(copy));
    state.selection = {scene + 1, std::nullopt};
}

void removeScene(EditState& state, std::size_t scene) {
    auto& scenes = state.spec.scenes;
    if (scene >= scenes.size() || scenes.size() == 1) return;
    scenes.erase(scenes.begin() + std::ptrdiff_t(scene));
    auto& selected = state.selection.scene;
    if (selected && *selected == scene)
        selected = std::min(scenes.size() - 1, scene);
    else if (selected && *selected > scene)
        --*selected;
    state.selection.layer.reset();
    state.selection.others.clear();
}

void moveScene(EditState& state, std::size_t from, std::size_t to) {
    auto& scenes = state.spec.scenes;
    if (from >= scenes.size() || from == to) return;
    to = std::min(to, scenes.size() - 1);
    CompositionScene moved = std::move(scenes[from]);
    scenes.erase(scenes.begin() + std::ptrdiff_t(from));
    scenes.insert(scenes.begin() + std::ptrdiff_t(to), std::move(moved));
    state.selection = {to, std::nullopt};
}

void setSceneBackgroundOverride(EditState& state, std::size_t scene, bool isEnabled) {
    CompositionScene* const changed = state.scene(scene);
    if (changed == nullptr) return;
    if (!isEnabled)
        changed->background.reset();
    else if (!changed->background)
        changed->background = state.spec.background;
}

void setSceneDurationRescaling(EditState& state, std::size_t scene, double toSec) {
    CompositionScene* const changed = state.scene(scene);
    if (changed == nullptr) return;
    const double beforeSec = changed->durationSec;
    changed->durationSec = std::max(toSec, shortestSceneSec);
    if (!(beforeSec > noLengthSec) || std::abs(beforeSec - changed->durationSec) <= sameLengthSec) return;
    for (CompositionLayer& layer : changed->layers) stretch(layer, changed->durationSec / beforeSec);
}

}   // namespace SceneOperations

}   // namespace tavix
