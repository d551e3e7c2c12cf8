// The eases of the menu, and the curve that a hand bends.
#pragma once

#include "TavixCore/Animation/TimingCurve.h"

#include <optional>
#include <string_view>
#include <vector>

namespace tavix {

struct EasePreset {
    std::string_view label;
    TimingCurve curve;

    static const std::vector<EasePreset>& named();   // in the order of the menu
    // That of an equal curve; nothing for one of its own.
    static std::optional<std::string_view> name(const TimingCurve& curve);
};

namespace EaseEditing {

// How far a handle of a curve may be dragged up and down; across it stays within the segment.
inline constexpr double leastHandleY = -0.6, mostHandleY = 1.7;
inline constexpr double leastResponseSec = 0.1, mostResponseSec = 1.2, leastDamping = 0.3, mostDamping = 1;

enum class Handle { first, second };
BezierCurve dragged(BezierCurve curve, Handle handle, double x, double y);

// What a hand goes on from: a curve with handles that runs as this one does, or nearly.
BezierCurve asBezier(const TimingCurve& curve);

struct Point {
    double x = 0, y = 0;
};
// The curve for drawing: `count` points, time and progress from 0 to 1. A spring runs for a second.
std::vector<Point> plotted(const TimingCurve& curve, int count);

}   // namespace EaseEditing

}   // namespace tavix
