// How hands and pages move: from 0 to 1, both at rest where they end.
#pragma once

#include <cmath>
#include <numbers>

namespace tavix::recorder::Easing {

// At rest at both ends: half a turn of a cosine.
inline double inOut(double t) { return (1 - std::cos(std::numbers::pi * t)) / 2; }
// Quick at first: a quarter of a turn of a sine.
inline double out(double t) { return std::sin(std::numbers::pi / 2 * t); }

}   // namespace tavix::recorder::Easing
