#include "Backgrounds/Recipes.h"

#include <algorithm>
#include <vector>

namespace tavix::backgrounds {

namespace {

// Dusk in a calm blue: a cool light high on the right, a warm one low on the left.
Recipe defaultBackground() {
    return {.resourceName = "default-background",
        .ground = {70, {{0.0f, oklab(0x1b2068)}, {0.5f, oklab(0x3d40c4)}, {1.0f, oklab(0x7d4fe0)}}},
        .warps = {{.reachFraction = 0.22f, .cyclesAcross = 1.1f, .seed = 3}},
        .pools = {{.x = 0.80f,
                      .y = 0.16f,
                      .radiusX = 0.66f,
                      .radiusY = 0.52f,
                      .turnDeg = -25,
                      .color = oklab(0x46b0ff),
                      .strength = 0.95f},
            {.x = 0.22f,
                .y = 0.20f,
                .radiusX = 0.5f,
                .radiusY = 0.42f,
                .color = oklab(0x191a62),
                .strength = 0.7f},
            {.x = 0.24f,
                .y = 0.84f,
                .radiusX = 0.70f,
                .radiusY = 0.46f,
                .turnDeg = -20,
                .color = oklab(0xff6fb0),
                .strength = 0.95f},
            {.x = 0.10f,
                .y = 1.0f,
                .radiusX = 0.55f,
                .radiusY = 0.34f,
                .turnDeg = -15,
                .color = oklab(0xffb98a),
                .strength = 0.95f}},
        .folds = {{.angleDeg = 118,
            .cyclesAcross = 2.1f,
            .bendCycles = 0.75f,
            .bendsAcross = 1.0f,
            .seed = 21,
            .lit = oklab(0x9a8cff),
            .shade = oklab(0x2a10a0),
            .litStrength = 0.30f,
            .shadeStrength = 0.40f}},
        .edgeShade = 0.08f};
}

// Curtains of green and violet light over a night sky.
Recipe aurora() {
    return {.resourceName = "bg-aurora",
        .ground = {90, {{0.0f, oklab(0x070b26)}, {0.55f, oklab(0x0b2244)}, {1.0f, oklab(0x07303c)}}},
        .warps = {{.reachFraction = 0.20f, .cyclesAcross = 1.3f, .seed = 8}},
        .pools = {{.x = 0.24f,
                      .y = 0.30f,
                      .radiusX = 0.50f,
                      .radiusY = 0.40f,
                      .turnDeg = 30,
                      .color = oklab(0x7f4cff),
                      .strength = 0.85f},
            {.x = 0.90f,
                .y = 0.16f,
                .radiusX = 0.45f,
                .radiusY = 0.32f,
                .color = oklab(0x2a86f0),
                .strength = 0.7f},
            {.x = 0.62f,
                .y = 0.54f,
                .radiusX = 0.80f,
                .radiusY = 0.32f,
                .turnDeg = -26,
                .color = oklab(0x17dba2),
                .strength = 0.95f},
            {.x = 0.70f,
                .y = 0.46f,
                .radiusX = 0.36f,
                .radiusY = 0.16f,
                .turnDeg = -26,
                .color = oklab(0xa6ffcf),
                .strength = 0.55f}},
        .folds = {{.angleDeg = 190,
                      .cyclesAcross = 4.2f,
                      .bendCycles = 1.4f,
                      .bendsAcross = 1.1f,
                      .seed = 5,
                      .lit = oklab(0x9dffe0),
                      .shade = oklab(0x050a22),
                      .litStrength = 0.20f,
                      .shadeStrength = 0.62f,
                      .rimFraction = 0.05f,
                      .x = 0.52f,
                      .y = 0.42f,
                      .radiusX = 0.95f,
                      .radiusY = 0.72f},
            {.angleDeg = 184,
                .cyclesAcross = 10,
                .bendCycles = 2.6f,
                .bendsAcross = 1.4f,
                .seed = 9,
                .lit = oklab(0xb6ffe6),
                .shade = oklab(0x06122e),
                .litStrength = 0.14f,
                .shadeStrength = 0.22f,
                .rimFraction = 0.3f,
                .x = 0.6f,
                .y = 0.44f,
                .radiusX = 0.6f,
                .radiusY = 0.34f}},
        .edgeShade = 0.18f};
}

// Waves from a bright surface down to deep water.
Recipe ocean() {
    return {.resourceName = "bg-ocean",
        .ground = {96, {{0.0f, oklab(0x8ceaf2)}, {0.38f, oklab(0x1fa6dc)}, {0.72f, oklab(0x0c62ba)},
                           {1.0f, oklab(0x08307a)}}},
        .warps = {{.reachFraction = 0.14f, .cyclesAcross = 1.2f, .seed = 14}},
        .pools = {{.x = 0.30f,
                      .y = 0.05f,
                      .radiusX = 0.60f,
                      .radiusY = 0.35f,
                      .color = oklab(0xdcfcff),
                      .strength = 0.75f},
            {.x = 0.85f,
                .y = 0.60f,
                .radiusX = 0.55f,
                .radiusY = 0.42f,
                .turnDeg = -20,
                .color = oklab(0x12c4c8),
                .strength = 0.75f}},
        .folds = {{.angleDeg = 98,
            .cyclesAcross = 3.2f,
            .bendCycles = 0.9f,
            .bendsAcross = 1.1f,
            .seed = 31,
            .lit = oklab(0xb6f4ff),
            .shade = oklab(0x0a3f94),
            .litStrength = 0.26f,
            .shadeStrength = 0.34f}},
        .edgeShade = 0.05f};
}

// Dark neutral sheets under a soft studio light.
Recipe graphite() {
    return {.resourceName = "bg-graphite",
        .ground = {110, {{0.0f, oklab(0x44474f)}, {0.5f, oklab(0x292b31)}, {1.0f, oklab(0x16171b)}}},
        .warps = {{.reachFraction = 0.15f, .cyclesAcross = 1.0f, .seed = 19}},
        .pools = {{.x = 0.68f,
                      .y = 0.14f,
                      .radiusX = 0.62f,
                      .radiusY = 0.46f,
                      .turnDeg = 20,
                      .color = oklab(0x7b818c),
                      .strength = 0.8f},
            {.x = 0.25f,
                .y = 0.72f,
                .radiusX = 0.6f,
                .radiusY = 0.42f,
                .color = oklab(0x3b4048),
                .strength = 0.7f}},
        .folds = {{.angleDeg = 125,
            .cyclesAcross = 2.8f,
            .bendCycles = 0.7f,
            .bendsAcross = 0.9f,
            .seed = 40,
            .lit = oklab(0xc4cad4),
            .shade = oklab(0x08090b),
            .litStrength = 0.16f,
            .shadeStrength = 0.55f,
            .rimFraction = 0.010f}},
        .edgeShade = 0.18f};
}

// The last light over dunes, violet above and gold below.
Recipe sunset() {
    return {.resourceName = "bg-sunset",
        .ground = {90, {{0.0f, oklab(0x34207a)}, {0.34f, oklab(0x9a3199)}, {0.62f, oklab(0xf55f7c)},
                           {0.82f, oklab(0xff9a58)}, {1.0f, oklab(0xffbe62)}}},
        .warps = {{.reachFraction = 0.15f, .cyclesAcross = 1.1f, .seed = 23}},
        .pools = {{.x = 0.12f,
                      .y = 0.26f,
                      .radiusX = 0.45f,
                      .radiusY = 0.40f,
                      .color = oklab(0x5f2cc0),
                      .strength = 0.6f},
            {.x = 0.66f,
                .y = 0.66f,
                .radiusX = 0.46f,
                .radiusY = 0.36f,
                .color = oklab(0xffd592),
                .strength = 0.95f}},
        .folds = {{.angleDeg = 86,
            .cyclesAcross = 2.9f,
            .bendCycles = 0.75f,
            .bendsAcross = 1.0f,
            .seed = 54,
            .lit = oklab(0xff9a9a),
            .shade = oklab(0xc41f6e),
            .litStrength = 0.24f,
            .shadeStrength = 0.46f}}};
}

// Warm and light: peach, coral, rose.
Recipe coral() {
    return {.resourceName = "bg-coral",
        .ground = {60, {{0.0f, oklab(0xffe6d6)}, {0.5f, oklab(0xff9d86)}, {1.0f, oklab(0xf4517c)}}},
        .warps = {{.reachFraction = 0.22f, .cyclesAcross = 1.0f, .seed = 35}},
        .pools = {{.x = 0.78f,
                      .y = 0.20f,
                      .radiusX = 0.5f,
                      .radiusY = 0.42f,
                      .color = oklab(0xffc592),
                      .strength = 0.9f},
            {.x = 0.25f,
                .y = 0.75f,
                .radiusX = 0.5f,
                .radiusY = 0.4f,
                .color = oklab(0xff7d92),
                .strength = 0.75f}},
        .folds = {{.angleDeg = 132,
            .cyclesAcross = 2.3f,
            .bendCycles = 0.8f,
            .bendsAcross = 1.0f,
            .seed = 61,
            .lit = oklab(0xfff1e4),
            .shade = oklab(0xe0416c),
            .litStrength = 0.40f,
            .shadeStrength = 0.34f}}};
}

// Fresh and light: white, mint, aqua.
Recipe mint() {
    return {.resourceName = "bg-mint",
        .ground = {75, {{0.0f, oklab(0xf0fff7)}, {0.5f, oklab(0xabf2d6)}, {1.0f, oklab(0x4fd2bd)}}},
        .warps = {{.reachFraction = 0.20f, .cyclesAcross = 1.0f, .seed = 44}},
        .pools = {{.x = 0.20f,
                      .y = 0.22f,
                      .radiusX = 0.5f,
                      .radiusY = 0.42f,
                      .color = oklab(0xe2fff0),
                      .strength = 0.9f},
            {.x = 0.85f,
                .y = 0.72f,
                .radiusX = 0.6f,
                .radiusY = 0.48f,
                .color = oklab(0x45c6e0),
                .strength = 0.8f}},
        .folds = {{.angleDeg = 122,
            .cyclesAcross = 2.3f,
            .bendCycles = 0.8f,
            .bendsAcross = 1.0f,
            .seed = 77,
            .lit = oklab(0xfbfffd),
            .shade = oklab(0x2bb0a0),
            .litStrength = 0.46f,
            .shadeStrength = 0.32f}}};
}

}   // namespace

std::span<const Recipe> recipes() {
    static const std::vector<Recipe> all{
        defaultBackground(), aurora(), ocean(), graphite(), sunset(), coral(), mint()};
    return all;
}

const Recipe* recipeNamed(std::string_view resourceName) {
    const auto all = recipes();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const Recipe& r) { return r.resourceName == resourceName; });
    return found == all.end() ? nullptr : &*found;
}

}   // namespace tavix::backgrounds
