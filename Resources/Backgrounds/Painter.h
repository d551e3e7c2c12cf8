// Paints a recipe. Colour is worked out on a grid of every fourth pixel, where light this soft has no detail
// to lose, carried to full size by a cubic B-spline (smooth up to its curvature, so no mesh shows), and given
// a fine grain before it is cut to eight bits, so that no gradient breaks into bands.
#pragma once

#include "Backgrounds/Recipe.h"

#include <cstdint>
#include <vector>

namespace tavix::backgrounds {

// Red, green, blue; sRGB-encoded; the top row first, no padding.
struct Picture {
    int sidePx = 0;
    std::vector<std::uint8_t> bytes;
};

Oklab colorAt(const Recipe& recipe, float x, float y);

Picture paint(const Recipe& recipe, int sidePx);   // a multiple of 4

}   // namespace tavix::backgrounds
