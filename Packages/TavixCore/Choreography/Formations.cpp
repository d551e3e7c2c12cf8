#include "TavixCore/Choreography/Formations.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string>

// In every formation `u` is the place in line, `i` the intensity, `d` the direction and `w` how long a device
// waits for its turn.
namespace tavix::Formations {
namespace {

using std::max, std::min;
using namespace FormationParts;

std::string suffix(const char* word, int k) { return word + std::to_string(k); }

CompositionLayer spatialLayer(const Formation& f, int k, const char* word, MotionScript script) {
    return deviceLayer(f, k, suffix(word, k), makeMotion(std::move(script), f.durationSec, f.referenceSec));
}

// A whole flight through the camera, and how much later the next device sets off.
struct Flight {
    double durationSec, gapSec;
};

Flight tunnelFlight(const Formation& f) {
    const double gapSec = f.durationSec / f.count;
    return {min(max(gapSec * 3.3, 1.4), f.durationSec), gapSec};
}

double tunnelDurationSec(const Formation& f) {
    const Flight flight = tunnelFlight(f);
    return flight.gapSec * (f.count - 1) + flight.durationSec;
}

}   // namespace

CompositionLayer fanDeck(const Formation& f, int k) {
    const double u = f.linePosition(k), i = f.intensity, d = f.sideways, w = f.staggerSecWithin(0.1) * k;
    const double inner = 1 - std::abs(u), x = f.spread * u * 0.4, y = -0.09 * i * inner;
    const double yaw = -48 * d * u, roll = 14 * d * u, scale = 0.34 + 0.11 * inner;
    const double deckYaw = d * (2 * k - 72);
    return spatialLayer(f, k, "fan-",
        {.motionBlur = 0.48,
            .poses = {{0, {13, deckYaw, -5 * d}}, {w + 0.28, {13, deckYaw, -5 * d}},
                {w + 0.72, {7, 0.55 * yaw, 0.55 * roll}}, {w + 1.18, {4, yaw, roll}}, {2.15, {4, yaw, roll}},
                {2.8, {8, 0.62 * yaw, 0.62 * roll}}},
            .depths = {{0, 0.24 + 0.025 * k}, {w + 1.18, 0.48 + 0.28 * inner}, {2.8, 0.42 + 0.18 * inner}},
            .places = {{0, -0.035 * d, 0.04, 0.31}, {w + 0.28, -0.035 * d, 0.04, 0.31},
                {w + 0.72, 0.42 * x, 0.35 * y, 0.78 * scale}, {w + 1.18, x, y, scale}, {2.15, x, y, scale},
                {2.8, 0.88 * x, 0.75 * y, 0.96 * scale}}});
}

CompositionLayer orbitCarousel(const Formation& f, int k) {
    MotionScript script{.motionBlur = 0.42};
    for (int quarter = 0; quarter <= 4; ++quarter) {
        const double turns = static_cast<double>(k) / f.count + f.sideways * quarter * 0.25;
        const double angleRad = 2 * std::numbers::pi * turns;
        const double s = std::sin(angleRad), c = std::cos(angleRad), front = (c + 1) / 2;
        const double t = quarter;
        script.poses.push_back({t, {5, -38 * s, -4 * s}});
        script.places.push_back(
            {t, 0.46 * s * f.spread, 0.1 * c * f.spread, 0.38 + 0.24 * front * f.intensity});
        script.depths.push_back({t, 0.3 + 0.52 * front});
    }
    return spatialLayer(f, k, "orbit-", std::move(script));
}

CompositionLayer colorwayDomino(const Formation& f, int k) {
    static constexpr std::array<RGBAColor, 5> colorways{
        {{0.96, 0.45, 0.18}, {0.18, 0.52, 0.95}, {0.91, 0.4, 0.66}, {0.19, 0.72, 0.65}, {0.74, 0.68, 0.58}}};
    const double u = f.linePosition(k), d = f.sideways, roll = 2 * u, x = 0.44 * f.spread * u;
    const double start = 0.55 + f.staggerSecWithin(1.6 / max(f.count - 1, 1)) * k;
    CompositionLayer layer = spatialLayer(f, k, "domino-",
        {.fovDegrees = 22,
            .motionBlur = std::clamp(0.65 + 0.3 * f.intensity, 0.0, 1.4),
            .poses = {{0, {5, -8 * d, roll}}, {start, {5, -8 * d, roll}}, {start + 0.28, {4, 172 * d, roll}},
                {start + 0.56, {5, 352 * d, roll}}, {3.2, {5, 352 * d, roll}}},
            .depths = {{0, 0.42}, {start + 0.28, 0.62}, {start + 0.56, 0.48}, {3.2, 0.48}},
            .places = {{0, x, 0.03 * std::abs(u), 0.4}, {3.2, x, 0, 0.44}}});
    layer.effects.push_back(TintEffect{colorways[static_cast<std::size_t>(k) % colorways.size()], 0.1});
    return layer;
}

CompositionLayer ecosystemHandoff(const Formation& f, int k) {
    static constexpr std::array<double, 4> sizes{0.52, 0.72, 0.58, 0.66};
    const double d = f.sideways, scale = sizes[static_cast<std::size_t>(k) % sizes.size()];
    const double run = max(f.referenceSec / f.count * 1.75, 1.2);   // of one device, in reference seconds
    const double gap = max((f.referenceSec - run) / max(f.count - 1, 1), 0.48);
    const double in = 0.38 * run, out = 0.68 * run, runSec = f.durationSec * run / f.referenceSec;
    DeviceMotion motion = makeMotion({.fovDegrees = 22,
                                         .motionBlur = 0.48,
                                         .poses = {{0, {7, 32 * d, 3 * d}}, {in, {4, -8 * d, 0}},
                                             {out, {4, -8 * d, 0}}, {run, {6, -34 * d, -3 * d}}},
                                         .depths = {{0, 0.32}, {in, 0.62}, {out, 0.62}, {run, 0.34}},
                                         .places = {{0, -0.72 * d, 0.05, 0.7 * scale}, {in, 0, 0, scale},
                                             {out, 0, 0, scale}, {run, 0.72 * d, -0.04, 0.75 * scale}}},
        runSec, run);
    motion.tracks = {
        track(AnimProperty::opacity, {{0, 0}, {0.12 * run, 1}, {0.86 * run, 1}, {run, 0}}, runSec, run)};
    CompositionLayer layer = deviceLayer(f, k, suffix("handoff-", k), motion);
    layer.fromSec += f.durationSec * (gap * k / f.referenceSec);
    return layer;
}

// Its times are seconds of the document already: a flight must not be stretched into a crawl.
CompositionLayer infiniteTunnel(const Formation& f, int k) {
    const Flight flight = tunnelFlight(f);
    const double end = flight.durationSec, middle = 0.55 * end;
    const double side = (k % 2 ? 0.035 : -0.035) * f.spread, yaw = f.sideways * (18 + 5 * (k % 3));
    DeviceMotion motion =
        makeMotion({.fovDegrees = 20,
                       .motionBlur = 0.7,
                       .poses = {{0, {2, yaw, 0}}, {middle, {0, 4 * f.sideways, 0}}, {end, {0, 0, 0}}},
                       .depths = {{0, 0.05}, {middle, 0.62}, {end, min(1 + 0.16 * f.intensity, 1.3)}},
                       .places = {{0, side, 0, 0.08}, {middle, -0.4 * side, 0, 0.82},
                           {end, 0, 0, 3.2 + 0.45 * f.intensity}}},
            end, end);
    motion.tracks = {
        track(AnimProperty::opacity, {{0, 0}, {0.08 * end, 1}, {0.78 * end, 1}, {end, 0}}, end, end)};
    CompositionLayer layer = deviceLayer(f, k, suffix("tunnel-", k), motion);
    layer.fromSec += flight.gapSec * k;
    return layer;
}

CompositionLayer screenCascade(const Formation& f, int k) {
    const double u = f.linePosition(k), d = f.sideways;
    const double w = f.staggerSecWithin(min(0.16, 1.0 / max(f.count - 1, 1))) * k;
    const double x = 0.14 * d * u * f.spread, y = 0.12 * u * f.spread, hero = k == f.count / 2 ? 1 : 0;
    const double scale = 0.46 + 0.12 * hero;
    DeviceMotion motion =
        makeFlatMotion({{0, 0.08 * d, 0.72, 0.34}, {w + 0.42, 0.08 * d, 0.72, 0.34}, {w + 1.12, x, y, scale},
                           {2.15, x, y, scale}, {2.8, 0.82 * x, y - 0.035, 0.44 + 0.16 * hero}},
            {0.46, 0.88}, f);
    motion.tracks = {track(AnimProperty::opacity, {{0, 0}, {w + 0.36, 0}, {w + 0.72, 1}, {2.8, 1}},
        f.durationSec, f.referenceSec)};
    return deviceLayer(f, k, suffix("cascade-", k), motion);
}

CompositionLayer splitFocus(const Formation& f, int k) {
    const double u = f.linePosition(k), w = f.staggerSecWithin(0.12) * k;
    const double inner = 1 - min(std::abs(u), 1.0);
    const double x = 0.32 * f.spread * f.sideways * u, y = 0.035 * f.spread * std::abs(u);
    const double scale = 0.45 + 0.17 * inner;
    DeviceMotion motion =
        makeFlatMotion({{0, 0, 0, 0.52}, {0.42, 0, 0, 0.52}, {1.18, x, y, scale}, {1.82, x, y, scale},
                           {2.6, 1.04 * x, y, 0.42 + 0.3 * f.intensity * inner}},
            {0.5, 0.92}, f);
    motion.tracks = {track(AnimProperty::opacity, {{0, 0}, {w + 0.18, 0}, {w + 0.58, 1}, {2.6, 1}},
        f.durationSec, f.referenceSec)};
    return deviceLayer(f, k, suffix("split-", k), motion);
}

CompositionLayer depthWave(const Formation& f, int k) {
    const double u = f.linePosition(k), i = f.intensity, e = f.sideways * u, x = 0.25 * f.spread * u;
    const double crest = 0.62 + f.staggerSecWithin(0.28) * k, after = crest + 0.72;
    const double low = 0.015 * std::abs(u);
    return spatialLayer(f, k, "wave-",
        {.motionBlur = 0.24,
            .poses = {{0, {5, -20 * e, 2 * e}}, {crest, {2, -8 * e, 0}}, {after, {5, -18 * e, e}},
                {3.6, {5, -18 * e, e}}},
            .depths = {{0, 0.38}, {crest, min(0.58 + 0.18 * i, 0.94)}, {after, 0.44}, {3.6, 0.44}},
            .places = {{0, x, 0.025 * std::abs(u), 0.27},
                {crest, 0.23 * f.spread * u, -0.025, 0.36 + 0.04 * i}, {after, x, low, 0.3},
                {3.6, x, low, 0.3}}});
}

const Arrangement& arrangement(DeviceChoreographyPreset preset) {
    static constexpr std::array<Arrangement, 9> table{{{fanDeck}, {uiBurst, 1}, {orbitCarousel},
        {colorwayDomino}, {ecosystemHandoff}, {infiniteTunnel, 0, tunnelDurationSec}, {screenCascade},
        {splitFocus}, {depthWave}}};   // in the order of the cases
    return table.at(static_cast<std::size_t>(preset));
}

}   // namespace tavix::Formations
