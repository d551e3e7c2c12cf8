#include "TavixCore/Device/DevicePlacement.h"

#include "TavixCore/Device/ChoreographyAuthor.h"
#include "TavixCore/Support/FieldTables.h"

#include <algorithm>

namespace tavix {
namespace {

using Track = std::vector<DevicePlacementKeyframe>;

double withLeastScale(double scale) { return std::max(scale, leastPlacementScale); }

void placeNamedMoves(Track& track, const ChoreographyAuthor::CanvasSize& output) {
    for (DevicePlacementKeyframe& keyframe : track) {
        const auto move = keyframe.move ? named<ChoreographyAuthor::PhoneMove>(*keyframe.move) : std::nullopt;
        if (!move) continue;
        const auto placed = ChoreographyAuthor::resolvePlacement(*move, output);
        keyframe.offset = {placed.offsetX, placed.offsetY};
        keyframe.scale = withLeastScale(placed.scale);
    }
}

// A device that rises and is parked at once rises where it is going to be parked.
void riseIntoOpeningPark(Track& track) {
    constexpr double atOnceSec = 0.3;
    const auto rise = std::find_if(
        track.begin(), track.end(), [](const DevicePlacementKeyframe& k) { return k.move == "hero-rise"; });
    if (rise == track.end()) return;
    const auto park = std::find_if(
        rise + 1, track.end(), [](const DevicePlacementKeyframe& k) { return k.move.has_value(); });
    if (park == track.end() || (park->move != "park-left" && park->move != "park-right")) return;
    const DevicePlacementKeyframe& last = *(park - 1);
    if (!(park->tSec - last.tSec <= atOnceSec)) return;
    const double shift = park->offset.x - last.offset.x;
    const double growth = park->scale / withLeastScale(last.scale);
    std::for_each(rise, park, [&](DevicePlacementKeyframe& keyframe) {
        keyframe.offset.x += shift;
        keyframe.scale = withLeastScale(keyframe.scale * growth);
    });
}

}   // namespace

Track DevicePlacementSpec::resolvedTrack(
    double outputWidthPx, double outputHeightPx, const std::function<double(double)>& timeRemap) const {
    Track resolved = track;
    placeNamedMoves(resolved, {outputWidthPx, outputHeightPx});
    riseIntoOpeningPark(resolved);
    for (DevicePlacementKeyframe& keyframe : resolved) {
        keyframe.tSec = timeRemap(keyframe.tSec);
        keyframe.scale = withLeastScale(keyframe.scale);
    }
    return resolved;
}

const Fields<DevicePlacementKeyframe>& fieldsOf(std::type_identity<DevicePlacementKeyframe>) {
    using K = DevicePlacementKeyframe;
    static const Fields<K> table{"DevicePlacementKeyframe",
        {field<&K::tSec>("tSec", "When, from the layer's start.").measuredIn(Unit::seconds),
            field<&K::offset>("offset",
                "From the middle of the canvas: x to the right, y downwards, both in shares of the canvas height.")
                .measuredIn(Unit::canvasHeights),
            field<&K::scale>("scale", "Size; 1 is the device's own.")
                .measuredIn(Unit::times)
                .atLeast(leastPlacementScale),
            field<&K::move>("move",
                "A named place: center, park-left, park-right, hero-zoom, offscreen-bottom, scan-top or scan-bottom. It wins over offset and scale."),
            field<&K::atMark>("atMark", "The mark of the recording that gives the time.")
                .as(Role::markMoment, "tSec")}};
    return table;
}

const Fields<DevicePlacementSpec>& fieldsOf(std::type_identity<DevicePlacementSpec>) {
    using S = DevicePlacementSpec;
    static const Fields<S> table{"DevicePlacementSpec",
        {field<&S::track>("track", "Where the device is, in time."),
            field<&S::responseSec>("responseSec", "How long the device takes to follow.")
                .measuredIn(Unit::seconds)
                .atLeast(0.001),
            field<&S::damping>(
                "damping", "How springy: from 0.2, which swings long, to 1, which does not swing.")
                .measuredIn(Unit::fraction)}};
    return table;
}

}   // namespace tavix
