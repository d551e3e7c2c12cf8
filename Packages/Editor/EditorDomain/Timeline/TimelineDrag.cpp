#include "Editor/EditorDomain/Timeline/TimelineDrag.h"

#include "Editor/EditorDomain/Timeline/Snapping.h"
#include "Editor/EditorDomain/Timeline/TimelineCommands.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixLive/Operations/AudioOperations.h"
#include "TavixLive/Operations/DeviceKeyframes.h"
#include "TavixLive/Operations/LayerOperations.h"
#include "TavixLive/Operations/SceneOperations.h"
#include "TavixLive/Operations/TrackOperations.h"

#include <algorithm>
#include <cmath>

namespace tavix::timeline {

namespace {

constexpr double roomBesideTransitionSec = 0.1, roomBehindLayersSec = 0.05, leastTransitionSec = 0.05;
constexpr double sameMarkSec = 0.0005;

double sceneStart(const CompositionSpec& spec, std::size_t scene) {
    return CompositionTimeline(spec).globalTime(scene, 0).value_or(0);
}

// The scene under a time: the layer's own one where scenes overlap, and beyond the film.
std::size_t sceneUnder(const CompositionSpec& spec, std::size_t own, double sec) {
    const CompositionTimeline clock(spec);
    const auto holds = [&](std::size_t i) {
        return sec >= clock.startSec[i] && sec < clock.startSec[i] + spec.scenes[i].durationSec;
    };
    if (holds(own)) return own;
    for (std::size_t i = 0; i < spec.scenes.size(); ++i)
        if (holds(i)) return i;
    return own;
}

// The index in the document's order, which is from back to front, of a row.
std::size_t indexOfRow(std::size_t layerCount, int row) {
    const auto last = std::ptrdiff_t(layerCount) - 1;
    return std::size_t(std::clamp<std::ptrdiff_t>(last - row, 0, last));
}

void moveOneLayer(EditState& state, const Drag& drag, const Drag::Pull& pull) {
    const double startsAtSec = pull.toSec - drag.grabbedSec;
    const std::size_t scene = sceneUnder(state.spec, drag.place.scene, pull.toSec);
    LayerPlace place = drag.place;
    if (scene != place.scene) {
        moveToScene(state, place, scene, startsAtSec - sceneStart(state.spec, scene), pull.row.value_or(0));
        place = state.selection.layers().front();
    } else if (pull.row) {
        const std::size_t to = indexOfRow(state.scene(scene)->layers.size(), *pull.row);
        LayerOperations::reorderLayer(state, scene, place.layer, to);
        place.layer = to;
    }
    double to = startsAtSec - sceneStart(state.spec, scene);
    if (pull.isSnapping) to = snapped(state, place, pull.playheadSec, pull.pps, to);
    LayerOperations::moveLayer(state, place.scene, place.layer, to);
}

void moveLayers(EditState& state, const Drag& drag, const Drag::Pull& pull) {
    const std::vector<LayerPlace> all = state.selection.layers();
    if (all.size() <= 1) return moveOneLayer(state, drag, pull);
    const double held = state.layer(drag.place.scene, drag.place.layer)->fromSec;
    double to = pull.toSec - drag.grabbedSec - sceneStart(state.spec, drag.place.scene);
    if (pull.isSnapping) to = snapped(state, drag.place, pull.playheadSec, pull.pps, to);
    nudgeSelection(state, to - held);   // keeps their distances
}

void moveTrackMarks(EditState& state, const Drag& drag, double by) {
    const TrackOperations::Place place{drag.place.scene, drag.place.layer, *drag.track};
    const CompositionLayer* const layer = state.layer(place.scene, place.layer);
    if (place.track >= layer->tracks.size()) return;
    const auto& keyframes = layer->tracks[place.track].keyframes;
    std::vector<std::size_t> moved;
    for (std::size_t i = 0; i < keyframes.size(); ++i)
        if (std::ranges::any_of(
                drag.marksSec, [&](double sec) { return std::abs(sec - keyframes[i].t) < sameMarkSec; }))
            moved.push_back(i);
    if (by > 0) std::ranges::reverse(moved);   // whoever goes first makes room
    for (const std::size_t i : moved) TrackOperations::setKeyframeTime(state, place, i, keyframes[i].t + by);
}

void moveMarks(EditState& state, const Drag& drag, const Drag::Pull& pull) {
    const CompositionLayer* const layer = state.layer(drag.place.scene, drag.place.layer);
    double to = pull.toSec - drag.grabbedSec - sceneStart(state.spec, drag.place.scene) - layer->fromSec;
    if (pull.isSnapping) to = snappedKeyframe(state, drag.place, pull.playheadSec, pull.pps, to);
    const double by = to - drag.marksSec.front();
    if (drag.track) return moveTrackMarks(state, drag, by);
    auto* const device = state.content<DeviceContent>(drag.place.scene, drag.place.layer);
    if (device == nullptr) return;
    std::vector<double> marks = drag.marksSec;
    std::ranges::sort(marks);
    if (by > 0) std::ranges::reverse(marks);
    for (const double sec : marks)
        DeviceKeyframes::moveUnifiedKeyframe(
            *device, sec, sec + by, state.scene(drag.place.scene)->durationSec);
}

void pullSceneEnd(EditState& state, const Drag& drag, const Drag::Pull& pull) {
    const double start = sceneStart(state.spec, drag.place.scene);
    double end = pull.toSec - drag.grabbedSec;
    if (pull.isSnapping) end = snappedToBeat(state, pull.pps, end);
    if (!pull.stretches) return setSceneDuration(state, drag.place.scene, end - start);
    const double least = minimumSceneDurationSec(state.spec, drag.place.scene);
    SceneOperations::setSceneDurationRescaling(state, drag.place.scene, std::max(end - start, least));
}

void pullTransition(EditState& state, const Drag& drag, const Drag::Pull& pull) {
    const double end = sceneStart(state.spec, drag.place.scene) + state.scene(drag.place.scene)->durationSec;
    double start = pull.toSec - drag.grabbedSec;
    if (pull.isSnapping) start = snappedToBeat(state, pull.pps, start);
    setTransitionDuration(state, drag.place.scene, end - start);
}

void pullCue(EditState& state, const Drag& drag, const Drag::Pull& pull) {
    SoundCue cue = state.spec.audio->cues[drag.cue];
    cue.atSec = pull.toSec - drag.grabbedSec;
    if (pull.isSnapping) cue.atSec = snappedToBeat(state, pull.pps, cue.atSec);
    cue.atSec = std::clamp(cue.atSec, 0.0, CompositionTimeline(state.spec).totalSec);
    AudioOperations::updateSoundCue(state, drag.cue, cue);
}

std::optional<Drag> keyframeDrag(Drag drag, const Scene& scene, const Hit& hit, double pressedSec,
    const std::vector<Drag::MarkPlace>& marks) {
    const KeyframeRow& row = scene.keyframeRows[hit.index];
    drag.kind = Drag::Kind::keyframes;
    drag.place = *scene.layer;
    drag.track = row.track;
    drag.marksSec.push_back(row.marks[hit.mark].sec);
    for (const Drag::MarkPlace& place : marks)
        if (place.row == hit.index && place.mark != hit.mark && place.mark < row.marks.size())
            drag.marksSec.push_back(row.marks[place.mark].sec);
    drag.grabbedSec = pressedSec - scene.layerStartSec - row.marks[hit.mark].sec;
    return drag;
}

}   // namespace

std::optional<Drag> Drag::of(const EditState& state, const Scene& scene, const Hit& hit, double pressedSec,
    const std::vector<MarkPlace>& marks) {
    Drag drag;
    drag.before = state;
    switch (hit.part) {
    case Part::barBody:
    case Part::barStart:
    case Part::barEnd: {
        const Bar& bar = scene.bars[hit.index];
        drag.place = bar.place;
        drag.kind = hit.part == Part::barBody    ? Kind::moveLayers
                    : hit.part == Part::barStart ? Kind::layerStart
                                                 : Kind::layerEnd;
        drag.grabbedSec = hit.part == Part::barBody ? pressedSec - bar.startSec : 0;
        return drag;
    }
    case Part::bandEnd:
        drag.kind = Kind::sceneEnd;
        drag.place.scene = hit.index;
        drag.grabbedSec = pressedSec - scene.bands[hit.index].endSec;
        return drag;
    case Part::transitionStart:
        drag.kind = Kind::transition;
        drag.place.scene = hit.index;
        drag.grabbedSec = pressedSec - scene.bands[hit.index + 1].startSec;
        return drag;
    case Part::cue:
        drag.kind = Kind::cue;
        drag.cue = hit.index;
        drag.grabbedSec = pressedSec - scene.cues[hit.index].sec;
        return drag;
    case Part::keyframe: return keyframeDrag(std::move(drag), scene, hit, pressedSec, marks);
    default: return std::nullopt;
    }
}

EditState Drag::at(const Pull& pull) const {
    EditState state = before;
    const auto edge = [&] {
        const double sec = pull.toSec - sceneStart(state.spec, place.scene);
        return pull.isSnapping ? snappedEdge(state, place.scene, pull.pps, sec) : sec;
    };
    switch (kind) {
    case Kind::moveLayers: moveLayers(state, *this, pull); break;
    case Kind::layerStart: LayerOperations::setLayerStart(state, place.scene, place.layer, edge()); break;
    case Kind::layerEnd: LayerOperations::setLayerEnd(state, place.scene, place.layer, edge()); break;
    case Kind::sceneEnd: pullSceneEnd(state, *this, pull); break;
    case Kind::transition: pullTransition(state, *this, pull); break;
    case Kind::keyframes: moveMarks(state, *this, pull); break;
    case Kind::cue: pullCue(state, *this, pull); break;
    }
    return state;
}

std::string Drag::stepName() const {
    switch (kind) {
    case Kind::moveLayers: return before.selection.others.empty() ? "Move Layer" : "Move Layers";
    case Kind::layerStart:
    case Kind::layerEnd: return "Trim Layer";
    case Kind::sceneEnd: return "Change Scene Length";
    case Kind::transition: return "Change Transition Length";
    case Kind::keyframes: return marksSec.size() > 1 ? "Move Keyframes" : "Move Keyframe";
    case Kind::cue: return "Move Sound";
    }
    return {};
}

void moveToScene(EditState& state, const LayerPlace& place, std::size_t scene, double toFromSec, int row) {
    CompositionLayer* const held = state.layer(place.scene, place.layer);
    CompositionScene* const into = state.scene(scene);
    if (!held || !into || scene == place.scene) return;
    CompositionLayer moved = std::move(*held);
    auto& from = state.scene(place.scene)->layers;
    from.erase(from.begin() + std::ptrdiff_t(place.layer));
    const bool isTaken = moved.id && std::ranges::any_of(into->layers,
                                         [&](const CompositionLayer& layer) { return layer.id == moved.id; });
    if (isTaken) moved.id.reset();
    if (moved.durationSec && *moved.durationSec >= into->durationSec) moved.durationSec.reset();
    const std::size_t at = indexOfRow(into->layers.size() + 1, row);
    into->layers.insert(into->layers.begin() + std::ptrdiff_t(at), std::move(moved));
    LayerOperations::moveLayer(state, scene, at, toFromSec);
    state.selection = {scene, at, {}};
}

double minimumSceneDurationSec(const CompositionSpec& spec, std::size_t scene) {
    if (scene >= spec.scenes.size()) return 0;
    double least = roomBesideTransitionSec;
    if (scene > 0 && spec.scenes[scene - 1].transition)
        least = std::max(least, spec.scenes[scene - 1].transition->durationSec + roomBesideTransitionSec);
    const CompositionScene& own = spec.scenes[scene];
    if (own.transition) least = std::max(least, own.transition->durationSec + roomBesideTransitionSec);
    for (const CompositionLayer& layer : own.layers)
        if (layer.durationSec)
            least = std::max(least, layer.fromSec + *layer.durationSec + roomBehindLayersSec);
    return least;
}

void setSceneDuration(EditState& state, std::size_t scene, double toSec) {
    if (CompositionScene* const changed = state.scene(scene)) {
        changed->durationSec = std::max(toSec, minimumSceneDurationSec(state.spec, scene));
        changed->durationBeats.reset();
    }
}

void setTransitionDuration(EditState& state, std::size_t scene, double toSec) {
    CompositionScene *const from = state.scene(scene), *const into = state.scene(scene + 1);
    if (!from || !into || !from->transition) return;
    const double most = std::min(from->durationSec, into->durationSec) - roomBesideTransitionSec;
    from->transition->durationSec = std::max(std::min(toSec, most), leastTransitionSec);
    from->transition->durationBeats.reset();
}

}   // namespace tavix::timeline
