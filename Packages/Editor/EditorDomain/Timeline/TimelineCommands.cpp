#include "Editor/EditorDomain/Timeline/TimelineCommands.h"

#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixLive/Operations/LayerOperations.h"
#include "TavixLive/Operations/SceneOperations.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace tavix::timeline {

namespace {

std::vector<LayerPlace> sortedSelection(const EditState& state) {
    std::vector<LayerPlace> places = state.selection.layers();
    std::ranges::sort(places);
    return places;
}

}   // namespace

void selectLayers(EditState& state, const std::vector<LayerPlace>& places) {
    if (places.empty()) return;
    state.selection = {places.back().scene, places.back().layer, {places.begin(), places.end() - 1}};
}

void selectLayer(EditState& state, const LayerPlace& place, Extend extend) {
    if (!state.layer(place.scene, place.layer)) return;
    Selection& selected = state.selection;
    if (extend == Extend::no || !selected.layer) {
        selected = {place.scene, place.layer, {}};
        return;
    }
    std::vector<LayerPlace> places = selected.layers();
    if (extend == Extend::toggle) {
        const bool wasIn = std::erase(places, place) > 0;
        if (!wasIn) places.push_back(place);
        if (places.empty()) selected = {place.scene, std::nullopt, {}};
        return selectLayers(state, places);
    }
    if (selected.scene != place.scene) return selectLayer(state, place, Extend::toggle);
    const std::size_t from = *selected.layer;
    places.clear();
    for (std::size_t i = std::min(from, place.layer); i <= std::max(from, place.layer); ++i)
        if (i != from) places.push_back({place.scene, i});
    places.push_back({place.scene, from});
    selectLayers(state, places);
}

void selectAllLayers(EditState& state) {
    const std::size_t scene = state.selection.scene.value_or(0);
    if (!state.scene(scene)) return;
    std::vector<LayerPlace> places;
    for (std::size_t i = 0; i < state.scene(scene)->layers.size(); ++i) places.push_back({scene, i});
    selectLayers(state, places);
}

void deleteSelection(EditState& state) {
    std::vector<LayerPlace> places = sortedSelection(state);
    if (places.empty()) {
        if (state.selection.scene) SceneOperations::removeScene(state, *state.selection.scene);
        return;
    }
    std::ranges::reverse(places);
    const std::size_t scene = *state.selection.scene;
    for (const LayerPlace& place : places) LayerOperations::deleteLayer(state, place.scene, place.layer);
    state.selection = {scene, std::nullopt, {}};
}

void duplicateSelection(EditState& state) {
    std::vector<LayerPlace> places = sortedSelection(state);
    if (places.empty()) {
        if (state.selection.scene) SceneOperations::duplicateScene(state, *state.selection.scene);
        return;
    }
    std::vector<LayerPlace> copies;
    std::size_t scene = places.front().scene, added = 0;
    for (const LayerPlace& place : places) {
        if (place.scene != scene) added = 0;
        scene = place.scene;
        LayerOperations::duplicateLayer(state, scene, place.layer + added);
        copies.push_back({scene, place.layer + ++added});
    }
    selectLayers(state, copies);
}

void nudgeSelection(EditState& state, double bySec) {
    double by = bySec;
    const std::vector<LayerPlace> places = state.selection.layers();
    for (const LayerPlace& place : places) {
        const CompositionLayer* const layer = state.layer(place.scene, place.layer);
        if (!layer) return;
        const double length = layer->durationSec.value_or(LayerOperations::minLayerWindowSec);
        const double room = state.scene(place.scene)->durationSec - length - layer->fromSec;
        by = std::clamp(by, -layer->fromSec, std::max(room, -layer->fromSec));
    }
    for (const LayerPlace& place : places)
        LayerOperations::moveLayer(
            state, place.scene, place.layer, state.layer(place.scene, place.layer)->fromSec + by);
}

void restackSelection(EditState& state, int by) {
    std::vector<LayerPlace> places = sortedSelection(state);
    if (by > 0) std::ranges::reverse(places);
    std::vector<LayerPlace> moved;
    for (const LayerPlace& place : places) {
        const CompositionScene* const scene = state.scene(place.scene);
        const auto last = std::ptrdiff_t(scene->layers.size()) - 1;
        const auto to = LayerPlace{
            place.scene, std::size_t(std::clamp<std::ptrdiff_t>(std::ptrdiff_t(place.layer) + by, 0, last))};
        const bool isTaken = std::ranges::find(moved, to) != moved.end();   // one of ours has stopped there
        if (!isTaken) LayerOperations::reorderLayer(state, place.scene, place.layer, to.layer);
        moved.push_back(isTaken ? place : to);
    }
    selectLayers(state, moved);
}

void extendToSceneEnd(EditState& state) {
    for (const LayerPlace& place : state.selection.layers())
        if (const CompositionScene* const scene = state.scene(place.scene))
            LayerOperations::setLayerEnd(state, place.scene, place.layer, scene->durationSec);
}

namespace {

// All of a layer that runs by its own clock goes on where it was.
void beginLater(CompositionLayer& layer, double fromSec, double cutSec) {
    const auto shift = [&](double& sec) { sec = fromSec + sec - cutSec; };
    for (PropertyTrack& track : layer.tracks)
        for (CompositionKeyframe& keyframe : track.keyframes) shift(keyframe.t);
    if (auto* video = std::get_if<VideoContent>(&layer.content)) video->clip.trimStartSec += cutSec - fromSec;
    auto* device = std::get_if<DeviceContent>(&layer.content);
    if (!device) return;
    if (auto* clip = std::get_if<VideoClip>(&device->screen)) clip->trimStartSec += cutSec - fromSec;
    for (CompositionKeyframe& keyframe : device->screenOpacity) shift(keyframe.t);
    if (device->placement)
        for (DevicePlacementKeyframe& keyframe : device->placement->track) shift(keyframe.tSec);
    if (!device->scene3D) return;
    for (DevicePoseKeyframe& keyframe : device->scene3D->poseTrack) shift(keyframe.tSec);
    for (DeviceScalarKeyframe& keyframe : device->scene3D->depthTrack) shift(keyframe.tSec);
}

}   // namespace

void splitSelection(EditState& state, double atSec) {
    std::vector<LayerPlace> places = sortedSelection(state);
    std::ranges::reverse(places);
    const CompositionTimeline clock(state.spec);
    constexpr double least = LayerOperations::minLayerWindowSec;
    for (const LayerPlace& place : places) {
        CompositionScene& scene = *state.scene(place.scene);
        const CompositionLayer whole = scene.layers[place.layer];
        const double end =
            whole.fromSec + LayerOperations::layerWindowLength(state.spec, place.scene, place.layer);
        const double cut = atSec - clock.startSec[place.scene];
        if (cut < whole.fromSec + least || cut > end - least) continue;
        CompositionLayer second = whole;
        const double passed = cut - whole.fromSec;
        second.fromSec = cut;
        // From its end, which may stand on a beat.
        if (second.durationSec) second.durationSec = whole.fromSec + *whole.durationSec - cut;
        second.id.reset();
        second.origin = {};
        second.enter.reset();
        beginLater(second, whole.fromSec, cut);
        CompositionLayer& first = scene.layers[place.layer];
        first.durationSec = passed;
        first.exit.reset();
        scene.layers.insert(scene.layers.begin() + std::ptrdiff_t(place.layer) + 1, std::move(second));
        state.selection = {place.scene, place.layer + 1, {}};
    }
}

}   // namespace tavix::timeline
