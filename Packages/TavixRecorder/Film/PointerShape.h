// The outline of the arrow that stands for a mouse.
#pragma once

namespace tavix::recorder::PointerShape {

inline constexpr double heightPt = 21;

// How far a point lies outside the arrow whose tip is the origin, in points, y down; negative within it.
double distance(double x, double y);

}   // namespace tavix::recorder::PointerShape
