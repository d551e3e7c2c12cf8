// What a background is made of, as data. Positions and lengths are fractions of the side of a square picture,
// x to the right and y down; a crop to 16:9 or 9:16 keeps the middle 56 percent of one direction. Angles are
// in degrees, clockwise on screen, 0 pointing right.
#pragma once

#include "Backgrounds/Oklab.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tavix::backgrounds {

// The ground: colours along a line through the middle, from one edge of the picture to the other.
struct Stop {
    float atFraction = 0;
    Oklab color;
};
struct Ground {
    float angleDeg = 90;
    std::vector<Stop> stops;   // rising
};

// Moves every position by slow noise before anything is looked up: straight things begin to flow.
struct Warp {
    float reachFraction = 0.1f;
    float cyclesAcross = 1.5f;
    std::uint32_t seed = 1;
};

// A pool of light (or shade): an ellipse of colour that fades out without an edge.
struct Pool {
    float x = 0.5f, y = 0.5f;
    float radiusX = 0.4f, radiusY = 0.4f;
    float turnDeg = 0;
    Oklab color;
    float strength = 1;
};

// Folds of silk: sheets one behind the other. Each is lit along its rim, the light fades down the sheet, and
// a shade gathers where the next rim lies over it. They are strongest at (x, y) and gone at the radius.
struct Folds {
    float angleDeg = 90;   // across the folds, from a rim down its sheet
    float cyclesAcross = 3;
    float bendCycles = 0.5f;    // how far the rims wander, in folds
    float bendsAcross = 1.2f;   // how often they do
    std::uint32_t seed = 1;
    Oklab lit, shade;
    float litStrength = 0.4f, shadeStrength = 0.3f;
    float rimFraction = 0.015f;   // how soft the step to the next rim is, in folds
    float x = 0.5f, y = 0.5f, radiusX = 1.1f, radiusY = 1.1f;
};

struct Recipe {
    std::string resourceName;
    Ground ground;
    std::vector<Warp> warps;
    std::vector<Pool> pools;    // laid over the ground in order
    std::vector<Folds> folds;   // then these
    float edgeShade = 0;        // lightness lost in the corners, as a fraction
};

}   // namespace tavix::backgrounds
