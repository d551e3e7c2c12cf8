// The phone's measures, in millimetres. Its width runs along x, its height along y, its back looks to +z.
#pragma once

#include "Phone/Vector.h"

namespace tavix::phone {

constexpr double widthMm = 71.6, heightMm = 149.6;
constexpr double halfDepthMm = 4.1;       // to the glass, without the cameras
constexpr double cornerExtentMm = 19.5;   // how far along a side its corner begins
constexpr int cornerSteps = 36;

// A border of equal width on all sides makes the screen as slim as the flat frames' screens: 0.46.
constexpr double screenAspect = 0.46;
constexpr double screenInsetMm = (widthMm - screenAspect * heightMm) / (2 * (1 - screenAspect));

// The section, as (inset from the outline, height): where glass ends, where the frame begins.
constexpr Vec2 glassEdgeMm{-1.08, 3.95}, frameEdgeMm{-0.94, 3.86};

// Antenna lines cross the frame on its long sides, this far above and below the middle.
constexpr double antennaFromMm = 51.6, antennaToMm = 52.8;

// The camera plate: its middle, seen from the front, its side and how high it stands.
constexpr Vec2 plateCentreMm{-13.6, 53.1};
constexpr double plateSideMm = 38.5, plateCornerExtentMm = 16;
constexpr double plateTopMm = 5.75;

// The body's plane, with the middle of the phone as its origin.
inline Placement bodyPlace() { return {{0, heightMm / 2, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}}; }

}   // namespace tavix::phone
