// Where a device sits on the canvas, in time.
#pragma once

#include "TavixCore/Animation/MarkRef.h"
#include "TavixCore/Values/NormalizedVec2.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tavix {

constexpr double leastPlacementScale = 0.05;

struct DevicePlacementKeyframe {
    double tSec = 0;
    NormalizedVec2 offset;             // fractions of the canvas height, x to the right, y down
    double scale = 1;                  // at least `leastPlacementScale`
    std::optional<std::string> move;   // a named move; without one the keyframe was set by hand
    std::optional<MarkRef> atMark;
    bool operator==(const DevicePlacementKeyframe&) const = default;
};

struct DevicePlacementSpec {
    std::vector<DevicePlacementKeyframe> track;
    double responseSec = 0.9;   // of the spring that chases the track
    double damping = 0.85;

    // The track as it is drawn: named moves in their places for this output size, times through `timeRemap`.
    std::vector<DevicePlacementKeyframe> resolvedTrack(
        double outputWidthPx, double outputHeightPx, const std::function<double(double)>& timeRemap) const;
    bool operator==(const DevicePlacementSpec&) const = default;
};

const Fields<DevicePlacementKeyframe>& fieldsOf(std::type_identity<DevicePlacementKeyframe>);
const Fields<DevicePlacementSpec>& fieldsOf(std::type_identity<DevicePlacementSpec>);

}   // namespace tavix
