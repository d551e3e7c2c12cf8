#include "Editor/EditorDomain/Inspector/KeyframeRows.h"

#include "Editor/EditorDomain/Timeline/TimelineScene.h"
#include "TavixCore/Animation/CompositionMath.h"
#include "TavixCore/Support/Names.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixLive/Operations/DeviceKeyframes.h"
#include "TavixLive/Operations/LayerOperations.h"
#include "TavixLive/Operations/TrackOperations.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

namespace tavix {

namespace {

using Control = InspectorRow::Control;
using DeviceKeyframes::UnifiedState;

constexpr double sameSec = 0.02, endless = std::numeric_limits<double>::infinity();
constexpr std::array always{AnimProperty::x, AnimProperty::y, AnimProperty::scale, AnimProperty::rotationDeg,
    AnimProperty::opacity, AnimProperty::blur};
constexpr std::array whenAnimated{
    AnimProperty::scaleX, AnimProperty::scaleY, AnimProperty::skewXDeg, AnimProperty::skewYDeg};

double startOf(const CompositionSpec& spec, const LayerPlace& place) {
    return CompositionTimeline(spec).startSec[place.scene] +
           spec.scenes[place.scene].layers[place.layer].fromSec;
}

// On the layer's clock, held within the time in which it is shown.
double localSec(const CompositionSpec& spec, const LayerPlace& place, double atSec) {
    const double window = LayerOperations::layerWindowLength(spec, place.scene, place.layer);
    return std::clamp(atSec - startOf(spec, place), 0.0, window);
}

std::optional<std::size_t> trackOf(const CompositionLayer& layer, AnimProperty property) {
    const auto found = std::ranges::find(layer.tracks, property, &PropertyTrack::property);
    return found == layer.tracks.end() ? std::nullopt
                                       : std::optional(std::size_t(found - layer.tracks.begin()));
}

std::optional<std::size_t> keyframeAt(const PropertyTrack& track, double sec) {
    for (std::size_t i = 0; i < track.keyframes.size(); ++i)
        if (std::abs(track.keyframes[i].t - sec) < sameSec) return i;
    return std::nullopt;
}

bool isConstant(const PropertyTrack& track) {
    return std::ranges::all_of(track.keyframes,
        [&](const CompositionKeyframe& keyframe) { return keyframe.value == track.keyframes[0].value; });
}

// Where among keyframes a time lies.
InspectorRow::Keyed placed(const std::vector<double>& timesSec, double startSec, double sec) {
    InspectorRow::Keyed keyed;
    for (const double time : timesSec) {
        if (std::abs(time - sec) < sameSec)
            keyed.isHere = true;
        else if (time < sec)
            keyed.beforeSec = startSec + time;
        else if (!keyed.nextSec)
            keyed.nextSec = startSec + time;
    }
    return keyed;
}

InspectorRow rowNamed(const std::string& key, std::string label, std::string help) {
    InspectorRow row;
    row.path = JsonPointer() / "keyframes" / key;
    row.label = std::move(label);
    row.help = std::move(help);
    row.control = Control::number;
    return row;
}

void measure(InspectorRow& row, AnimProperty property, const CompositionOutput& output) {
    const TrackOperations::ValueRange range = TrackOperations::trackValueRange(property);
    row.range = {range.least, range.most, 2, {}};
    row.step = 0.05;
    switch (property) {
    case AnimProperty::x:
    case AnimProperty::y: {
        const double side = double(property == AnimProperty::x ? output.widthPx : output.heightPx);
        row.shownTimes = side;
        row.unit = Unit::pixels;
        row.range = {range.least * side, range.most * side, 1, 1};
        row.step = 1;
        break;
    }
    case AnimProperty::rotationDeg:
    case AnimProperty::skewXDeg:
    case AnimProperty::skewYDeg:
        row.unit = Unit::degrees;
        row.range.decimals = 1;
        row.range.pointStep = 1;
        row.step = 1;
        break;
    case AnimProperty::scale:
    case AnimProperty::scaleX:
    case AnimProperty::scaleY: row.unit = Unit::times; break;
    case AnimProperty::blur:
        row.range.decimals = 3;
        row.step = 0.005;
        break;
    case AnimProperty::opacity: break;
    }
}

double valueOf(const CompositionLayer& layer, AnimProperty property, double sec) {
    return CompositionMath::sample(layer.tracks, property, sec)
        .value_or(TrackOperations::trackValueRange(property).rest);
}

std::optional<InspectorRow> propertyRow(
    const EditState& state, const std::vector<LayerPlace>& places, AnimProperty property, double atSec) {
    const auto layerAt = [&](const LayerPlace& place) -> const CompositionLayer& {
        return state.spec.scenes[place.scene].layers[place.layer];
    };
    for (const LayerPlace& place : places)
        if (!trackOf(layerAt(place), property) &&
            !TrackOperations::canAddTrack(state.spec, place.scene, place.layer, property))
            return std::nullopt;
    const LayerPlace& first = places[0];
    const auto track = trackOf(layerAt(first), property);
    const double sec = localSec(state.spec, first, atSec);
    InspectorRow row = rowNamed(std::string(nameOf(property)), timeline::propertyLabel(property),
        "What holds at the playhead; a change sets a keyframe there.");
    measure(row, property, state.spec.output);
    std::vector<double> times;
    if (track)
        for (const CompositionKeyframe& keyframe : layerAt(first).tracks[*track].keyframes)
            times.push_back(keyframe.t);
    row.keyed = placed(times, startOf(state.spec, first), sec);
    row.keyed->property = property;
    row.keyed->isAnimated = track && !isConstant(layerAt(first).tracks[*track]);
    const double value = valueOf(layerAt(first), property, sec);
    row.value = Json(value);
    row.isMixed = std::ranges::any_of(places, [&](const LayerPlace& place) {
        return valueOf(layerAt(place), property, localSec(state.spec, place, atSec)) != value;
    });
    row.rest = Json(TrackOperations::trackValueRange(property).rest);
    row.isAtRest = !row.isMixed && !row.keyed->isAnimated && row.value == row.rest;
    return row;
}

Json numbers(std::initializer_list<std::pair<const char*, double>> parts) {
    JsonObject made;
    for (const auto& [key, value] : parts) made.set(key, Json(value));
    return Json(std::move(made));
}

// Of one device: how it is turned and where it stands, in one row of keyframes.
void addDeviceRows(InspectorSection& section, const EditState& state, const LayerPlace& place, double atSec) {
    const auto* device =
        std::get_if<DeviceContent>(&state.spec.scenes[place.scene].layers[place.layer].content);
    if (device == nullptr) return;
    const double sec = localSec(state.spec, place, atSec);
    const UnifiedState now = DeviceKeyframes::unifiedState(*device, state.spec.output, sec);
    const std::vector<double> times = DeviceKeyframes::unifiedKeyframeTimes(*device);
    const auto add = [&](InspectorRow row) {
        row.keyed = placed(times, startOf(state.spec, place), sec);
        row.keyed->isAnimated = times.size() > 1;
        section.rows.push_back(std::move(row));
    };
    if (device->scene3D) {
        InspectorRow tilt = rowNamed("tilt", "Tilt", "How the device is turned at the playhead, in degrees.");
        tilt.control = Control::numbers;
        tilt.parts = {"x", "y", "z"};
        tilt.unit = Unit::degrees;
        tilt.range = {-endless, endless, 1, 1};
        tilt.step = 1;
        tilt.value = numbers({{"x", now.tiltDegrees.x}, {"y", now.tiltDegrees.y}, {"z", now.tiltDegrees.z}});
        add(std::move(tilt));
        InspectorRow depth =
            rowNamed("depth", "Depth", "How near the device is at the playhead; 0.5 is usual.");
        depth.range = {-1, 1.3, 2, {}};
        depth.step = 0.05;
        depth.value = Json(now.depth);
        add(std::move(depth));
    }
    InspectorRow offset = rowNamed(
        "offset", "Offset", "Where the device stands at the playhead, from the middle, in canvas heights.");
    offset.control = Control::numbers;
    offset.parts = {"x", "y"};
    offset.unit = Unit::canvasHeights;
    offset.range = {-endless, endless, 3, 0.002};
    offset.step = 0.01;
    offset.value = numbers({{"x", now.offset.x}, {"y", now.offset.y}});
    add(std::move(offset));
    InspectorRow size = rowNamed("size", "Size", "How large the device is at the playhead.");
    size.range = {leastPlacementScale, 5, 2, 0.01};
    size.unit = Unit::times;
    size.step = 0.05;
    size.value = Json(now.scale);
    add(std::move(size));
}

void setProperty(
    EditState& state, const LayerPlace& place, AnimProperty property, double value, double atSec) {
    CompositionLayer& layer = *state.layer(place.scene, place.layer);
    const double sec = localSec(state.spec, place, atSec);
    if (!trackOf(layer, property)) TrackOperations::addTrack(state, place.scene, place.layer, property);
    const auto track = trackOf(layer, property);
    if (!track) return;
    const TrackOperations::Place at{place.scene, place.layer, *track};
    PropertyTrack& changed = layer.tracks[*track];
    if (const auto here = keyframeAt(changed, sec);
        here && !(isConstant(changed) && changed.keyframes.size() < 3))
        return TrackOperations::setKeyframeValue(state, at, *here, value);
    if (isConstant(changed)) {
        for (std::size_t i = 0; i < changed.keyframes.size(); ++i)
            TrackOperations::setKeyframeValue(state, at, i, value);
        return;
    }
    TrackOperations::addKeyframe(state, at, sec);
    if (const auto added = keyframeAt(changed, sec))
        TrackOperations::setKeyframeValue(state, at, *added, value);
}

double& memberOf(UnifiedState& state, const std::string& key, const std::string& part) {
    if (key == "depth") return state.depth;
    if (key == "size") return state.scale;
    if (key == "offset") return part == "x" ? state.offset.x : state.offset.y;
    return part == "x" ? state.tiltDegrees.x : part == "y" ? state.tiltDegrees.y : state.tiltDegrees.z;
}

void setDevice(EditState& state, const LayerPlace& place, const std::string& key, const std::string& part,
    double value, double atSec) {
    auto* const device = state.content<DeviceContent>(place.scene, place.layer);
    if (device == nullptr) return;
    const std::vector<double> times = DeviceKeyframes::unifiedKeyframeTimes(*device);
    // One keyframe is a value for all the time.
    const double sec = times.size() == 1 ? times[0] : localSec(state.spec, place, atSec);
    UnifiedState changed = DeviceKeyframes::unifiedState(*device, state.spec.output, sec);
    memberOf(changed, key, part) = value;
    DeviceKeyframes::upsertUnifiedKeyframe(*device, sec, changed);
}

void toggleProperty(EditState& state, const LayerPlace& place, AnimProperty property, double atSec) {
    CompositionLayer& layer = *state.layer(place.scene, place.layer);
    const double sec = localSec(state.spec, place, atSec);
    const bool isNew = !trackOf(layer, property);
    if (isNew) TrackOperations::addTrack(state, place.scene, place.layer, property);
    const auto track = trackOf(layer, property);
    if (!track) return;
    const TrackOperations::Place at{place.scene, place.layer, *track};
    const auto here = keyframeAt(layer.tracks[*track], sec);
    if (!here) return TrackOperations::addKeyframe(state, at, sec);
    if (isNew) return;
    TrackOperations::removeKeyframe(state, at, *here);
    if (layer.tracks[*track].keyframes.empty()) TrackOperations::removeTrack(state, at);
}

void toggleDevice(EditState& state, const LayerPlace& place, double atSec) {
    auto* const device = state.content<DeviceContent>(place.scene, place.layer);
    if (device == nullptr) return;
    const double sec = localSec(state.spec, place, atSec);
    for (const double time : DeviceKeyframes::unifiedKeyframeTimes(*device))
        if (std::abs(time - sec) < sameSec) return DeviceKeyframes::removeUnifiedKeyframe(*device, time);
    DeviceKeyframes::upsertUnifiedKeyframe(
        *device, sec, DeviceKeyframes::unifiedState(*device, state.spec.output, sec));
}

std::vector<LayerPlace> selectedPlaces(EditState& state) {
    std::vector<LayerPlace> places = state.selection.layers();
    std::erase_if(places, [&](const LayerPlace& place) { return !state.layer(place.scene, place.layer); });
    return places;
}

}   // namespace

InspectorSection keyframeRows(const EditState& state, const std::vector<LayerPlace>& places, double atSec) {
    InspectorSection section{"Transform", {}};
    if (places.size() == 1) addDeviceRows(section, state, places[0], atSec);
    const CompositionLayer& first = state.spec.scenes[places[0].scene].layers[places[0].layer];
    const auto add = [&](AnimProperty property) {
        if (auto row = propertyRow(state, places, property, atSec)) section.rows.push_back(std::move(*row));
    };
    for (const AnimProperty property : always) add(property);
    for (const AnimProperty property : whenAnimated)
        if (trackOf(first, property)) add(property);
    return section;
}

namespace KeyframeEdit {

void set(EditState& state, const InspectorRow& row, const std::string& part, double value, double atSec) {
    for (const LayerPlace& place : selectedPlaces(state)) {
        if (row.keyed->property)
            setProperty(state, place, *row.keyed->property, value, atSec);
        else
            setDevice(state, place, row.path.tokens().back(), part, value, atSec);
    }
}

void toggle(EditState& state, const InspectorRow& row, double atSec) {
    for (const LayerPlace& place : selectedPlaces(state)) {
        if (row.keyed->property)
            toggleProperty(state, place, *row.keyed->property, atSec);
        else
            toggleDevice(state, place, atSec);
    }
}

}   // namespace KeyframeEdit

}   // namespace tavix
