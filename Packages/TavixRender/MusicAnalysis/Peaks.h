// The place of a peak between samples.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

namespace tavix {

// How far the top of the parabola through three neighbouring values lies from the middle one: -0.5 to 0.5.
inline double parabolicOffset(double before, double peak, double after) {
    const double bend = before - 2 * peak + after;
    if (!(std::abs(bend) > std::numeric_limits<double>::epsilon())) return 0;
    return std::clamp((before - after) * 0.5 / bend, -0.5, 0.5);
}

}   // namespace tavix
