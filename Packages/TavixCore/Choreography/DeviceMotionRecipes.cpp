#include "TavixCore/Choreography/DeviceMotionRecipes.h"

#include "TavixCore/Device/ChoreographyAuthor.h"
#include "TavixCore/Support/Names.h"

#include <algorithm>
#include <utility>

namespace tavix::DeviceMotionRecipes {
namespace {

using std::max, std::min;

MotionScript reveal(double i, double d) {
    const double lift = 0.22 * i, near = min(0.5 + 0.3 * i, 1.0);
    KineticPhase fromBelow = KineticPhase::identity;
    fromBelow.durationSec = 1;
    fromBelow.offset = {0, 0.95};
    return {.naturalSec = 2.4,
        .motionBlur = 0.18,
        .poses = {{0, {0, 105 * d, 0}}, {1, {0, 230 * d, 0}}, {1.5, {0, 230 * d, 0}}, {2.1, {0, 360 * d, 0}},
            {2.4, {0, 360 * d, 0}}},
        .depths = {{0, 0.5}, {1.7, 0.5}, {2.1, near}, {2.4, near}},
        .places = {{0, 0, 0, 0.62}, {1.7, 0, 0, 0.62}, {2.1, 0, lift, 0.62}, {2.4, 0, lift, 0.62}},
        .enter = fromBelow};
}

MotionScript heroRise(double i, double d) {
    return {.naturalSec = 2.9,
        .poses = {{0, {78, 0, 0}}, {0.5, {78, 0, 0}}, {0.88, {43.6, 0, 0}}, {2.6, {0, 360 * d, 0}},
            {2.9, {0, 360 * d, 0}}},
        .depths = {{0, 0.5 + 0.5 * i}, {2, 0.5}, {2.9, 0.5}},
        .places = {{0, 0, 0.28, 0.57}, {1, 0, 0, 0.62}, {2.9, 0, 0, 0.9}}};
}

MotionScript dollyHero(double i, double d) {
    const double near = min(0.6 + 0.25 * i, 1.0);
    return {.naturalSec = 2.5,
        .fovDegrees = 34,
        .poses = {{0, {8, -22 * d, 0}}, {2.2, {6, -12 * d, 0}}, {2.5, {6, -12 * d, 0}}},
        .depths = {{0, 0.42}, {2.2, near}, {2.5, near}},
        .places = {{0, 0, 0, 0.66}, {2.5, 0, 0, 0.66}}};
}

// Comes from the same corner both ways round.
MotionScript spinIn(double, double d) {
    return {.naturalSec = 1.5,
        .poses = {{0, {0, -337 * d, 0}}, {0.773, {0, -337 * d, 0}}, {1.5, {0, 0, 0}}},
        .depths = {{0, 0.4}, {0.773, 0.427}, {1.5, 0.55}},
        .places = {{0, 0.597, 0.378, 1.406}, {0.773, 0.161, 0.146, 1.164}, {1.5, 0, 0, 0.62}}};
}

MotionScript beautyTurn(double i, double d) {
    const double near = min(0.48 + 0.16 * i, 0.82);
    return {.naturalSec = 2.6,
        .fovDegrees = 20,
        .motionBlur = 0.22,
        .poseSpring = {0.48, 0.86},
        .placeSpring = {0.5, 0.88},
        .poses = {{0, {7, 168 * d, -3 * d}}, {0.55, {7, 154 * d, -3 * d}}, {1.15, {6, 94 * d, -2 * d}},
            {1.75, {5, 34 * d, -d}}, {2.25, {4, -8 * d, 0}}, {2.6, {4, -8 * d, 0}}},
        .depths = {{0, 0.42}, {2.25, near}, {2.6, near}},
        .places = {{0, 0.07 * d, 0.01, 0.5}, {1.15, -0.03 * d, 0, 0.52}, {2.6, 0, 0, 0.56}}};
}

MotionScript whipSwap(double i, double d) {
    const double near = min(0.66 + 0.16 * i, 1.05), sway = 0.035 * i * d;
    return {.naturalSec = 1.15,
        .fovDegrees = 22,
        .motionBlur = min(0.75 + 0.35 * i, 1.5),
        .poseSpring = {0.24, 0.82},
        .placeSpring = {0.25, 0.9},
        .poses = {{0, {5, -18 * d, 0}}, {0.22, {5, -25 * d, -2 * d}}, {0.48, {3, 82 * d, 3 * d}},
            {0.68, {2, 210 * d, 4 * d}}, {0.92, {4, 342 * d, -d}}, {1.15, {5, 360 * d, 0}}},
        .depths = {{0, 0.56}, {0.58, near}, {1.15, 0.56}},
        .places = {{0, 0, 0, 0.72}, {0.48, -sway, 0, 0.74}, {0.68, sway, 0, 0.74}, {1.15, 0, 0, 0.72}}};
}

MotionScript portalDive(double i, double d) {
    return {.naturalSec = 2.2,
        .fovDegrees = 20,
        .motionBlur = 0.3,
        .poseSpring = {0.42, 0.92},
        .placeSpring = {0.55, 0.96},
        .poses = {{0, {15, -54 * d, -6 * d}}, {0.62, {7, 16 * d, 2 * d}}, {1.05, {0, 0, 0}},
            {1.35, {0, 0, 0}}, {2.2, {0, 0, 0}}},
        .depths = {{0, 0.3}, {1.2, 0.62}, {2.2, min(0.92 + 0.18 * i, 1.28)}},
        .places = {{0, 0.15 * d, 0.035, 0.54}, {0.62, -0.055 * d, -0.01, 0.68}, {1.2, 0, 0, 0.78},
            {2.2, 0, 0, 2.5 + 0.85 * i}}};
}

MotionScript macroOrbit(double i, double d) {
    const double swing = 0.16 * i * d;
    return {.naturalSec = 3.4,
        .fovDegrees = 22,
        .motionBlur = 0.12,
        .poseSpring = {0.62, 0.9},
        .placeSpring = {0.7, 0.9},
        .lightIntensity = 1.25,
        .keyLightDegrees = {-28, 42 * d, 0},
        .poses = {{0, {14, -66 * d, -7 * d}}, {0.75, {9, -42 * d, -4 * d}}, {1.55, {2, -8 * d, d}},
            {2.35, {-5, 34 * d, 5 * d}}, {3.05, {7, 52 * d, 3 * d}}, {3.4, {10, 28 * d, d}}},
        .depths = {{0, 0.54}, {1.55, min(0.78 + 0.12 * i, 1.02)}, {2.35, min(0.84 + 0.12 * i, 1.08)},
            {3.4, 0.64}},
        .places = {{0, swing, 0.025, 0.61}, {1.55, -0.055 * d, -0.02, 0.66}, {2.35, -swing, 0.015, 0.64},
            {3.4, -0.04 * d, 0, 0.62}}};
}

MotionScript edgeReveal(double i, double d) {
    const double near = min(0.58 + 0.18 * i, 0.9);
    return {.naturalSec = 1.8,
        .fovDegrees = 22,
        .motionBlur = 0.28,
        .poseSpring = {0.42, 0.9},
        .placeSpring = {0.46, 0.9},
        .poses = {{0, {7, 88 * d, 5 * d}}, {0.48, {6, 74 * d, 4 * d}}, {1.18, {4, 12 * d, d}},
            {1.55, {4, -6 * d, 0}}, {1.8, {4, -6 * d, 0}}},
        .depths = {{0, 0.3}, {1.55, near}, {1.8, near}},
        .places = {{0, 0.18 * i * d, 0.035, 0.47}, {0.48, 0.1296 * i * d, 0.02, 0.5}, {1.55, 0, 0, 0.66},
            {1.8, 0, 0, 0.66}}};
}

// Two close looks at the screen, from the top down or from the bottom up, then the whole phone.
MotionScript closeUpScan(double i, double d) {
    using ChoreographyAuthor::PhoneMove;
    const double scale = 1.15 + 0.35 * i;
    const double y = scale / 1.5 * 0.25 * d;
    std::string first(nameOf(PhoneMove::scanTop)), second(nameOf(PhoneMove::scanBottom));
    if (d < 0) std::swap(first, second);
    return {.naturalSec = 4.6,
        .tiltDegrees = {0, 0, 0},
        .places = {{0, 0, y, scale, first}, {1.1, 0, y, scale, first}, {2.6, 0, -y, scale, second},
            {3.4, 0, -y, scale, second}, {4.3, 0, 0, 0.62}, {4.6, 0, 0, 0.62}}};
}

MotionScript gimbalArc(double i, double d) {
    const double swing = 0.08 * i * d;
    return {.naturalSec = 2.8,
        .motionBlur = 0.2,
        .poseSpring = {0.58, 0.92},
        .placeSpring = {0.66, 0.92},
        .poses = {{0, {4, -8 * d, 0}}, {0.78, {-12 * i, 42 * i * d, 5 * d}},
            {1.72, {9 * i, -34 * i * d, -4 * d}}, {2.48, {5, -10 * d, 0}}, {2.8, {5, -10 * d, 0}}},
        .depths = {{0, 0.54}, {0.78, min(0.56 + 0.14 * i, 0.9)}, {1.72, 0.62}, {2.8, 0.56}},
        .places = {
            {0, 0, 0, 0.66}, {0.78, -swing, -0.025, 0.68}, {1.72, swing, 0.02, 0.65}, {2.8, 0, 0, 0.66}}};
}

MotionScript tiltShowcase(double i, double d) {
    const double pitch = -min(34 + 20 * i, 64.0), near = min(0.62 + 0.12 * i, 0.9);
    return {.naturalSec = 2.6,
        .motionBlur = 0.18,
        .poseSpring = {0.54, 0.9},
        .placeSpring = {0.58, 0.92},
        .poses = {{0, {3, -8 * d, 0}}, {0.68, {pitch, -5 * d, 2 * d}}, {1.62, {pitch, -5 * d, 2 * d}},
            {2.35, {4, -8 * d, 0}}, {2.6, {4, -8 * d, 0}}},
        .depths = {{0, 0.5}, {0.68, near}, {1.62, near}, {2.6, 0.52}},
        .places = {{0, 0, 0, 0.65}, {0.68, 0, 0.055, 0.72}, {1.62, 0, 0.055, 0.72}, {2.6, 0, 0, 0.65}}};
}

MotionScript stepBackPresent(double i, double d) {
    const double yaw = -min(12 + 8 * i, 28.0) * d, near = min(0.68 + 0.14 * i, 0.95), aside = 0.3 * i * d;
    return {.naturalSec = 2.2,
        .motionBlur = 0.14,
        .poseSpring = {0.58, 0.94},
        .placeSpring = {0.64, 0.96},
        .poses = {{0, {1, 0, 0}}, {0.42, {1, 0, 0}}, {1.75, {6, yaw, -2 * d}}, {2.2, {6, yaw, -2 * d}}},
        .depths = {{0, near}, {0.42, near}, {1.75, 0.44}, {2.2, 0.44}},
        .places = {{0, 0, 0.05, 1.12}, {0.42, 0, 0.05, 1.12}, {1.75, aside, 0, 0.58}, {2.2, aside, 0, 0.58}}};
}

constexpr std::pair<std::string_view, Recipe> recipes[] = {{"reveal", reveal}, {"heroRise", heroRise},
    {"dollyHero", dollyHero}, {"spinIn", spinIn}, {"beautyTurn", beautyTurn}, {"whipSwap", whipSwap},
    {"portalDive", portalDive}, {"macroOrbit", macroOrbit}, {"edgeReveal", edgeReveal},
    {"closeUpScan", closeUpScan}, {"gimbalArc", gimbalArc}, {"tiltShowcase", tiltShowcase},
    {"stepBackPresent", stepBackPresent}};

}   // namespace

Recipe recipe(std::string_view name) {
    for (const auto& [known, made] : recipes)
        if (known == name) return made;
    return nullptr;
}

}   // namespace tavix::DeviceMotionRecipes
