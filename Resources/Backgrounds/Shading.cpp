#include "Backgrounds/Noise.h"
#include "Backgrounds/Painter.h"

#include <algorithm>
#include <cmath>

namespace tavix::backgrounds {

namespace {

struct Position {
    float x, y;
};

constexpr float radiansPerDegree = 3.14159265f / 180;

// Noise whose lattice the eye cannot find: a second, finer layer turned against the first.
float slowNoise(float x, float y, std::uint32_t seed) {
    return smoothNoise(x, y, seed) +
           0.35f * smoothNoise(1.7f * x - 1.1f * y, 1.1f * x + 1.7f * y, seed + 101);
}

Position warped(Position p, const Warp& warp) {
    const float x = p.x * warp.cyclesAcross, y = p.y * warp.cyclesAcross;
    return {p.x + warp.reachFraction * slowNoise(x, y, warp.seed),
        p.y + warp.reachFraction * slowNoise(x + 5.2f, y + 1.3f, warp.seed + 57)};
}

Oklab groundAt(const Ground& ground, Position p) {
    const float angleRad = ground.angleDeg * radiansPerDegree;
    const float along = 0.5f + (p.x - 0.5f) * std::cos(angleRad) + (p.y - 0.5f) * std::sin(angleRad);
    const auto next = std::find_if(
        ground.stops.begin(), ground.stops.end(), [&](const Stop& stop) { return stop.atFraction > along; });
    if (next == ground.stops.begin()) return next->color;
    if (next == ground.stops.end()) return ground.stops.back().color;
    const Stop& from = *std::prev(next);
    const float t = (along - from.atFraction) / (next->atFraction - from.atFraction);
    return mixed(from.color, next->color, t * t * (3 - 2 * t));
}

// 1 in the middle, 0 from the rim on: (1 - d²)³, whose slope and curvature are zero at the rim.
float lightAt(float squaredDistance) {
    const float left = std::max(1 - squaredDistance, 0.0f);
    return left * left * left;
}

float poolLight(const Pool& pool, Position p) {
    const float turnRad = pool.turnDeg * radiansPerDegree;
    const float c = std::cos(turnRad), s = std::sin(turnRad);
    const float dx = p.x - pool.x, dy = p.y - pool.y;
    const float u = (c * dx + s * dy) / pool.radiusX, v = (c * dy - s * dx) / pool.radiusY;
    return pool.strength * lightAt(u * u + v * v);
}

float smoothStep(float t) {
    t = std::clamp(t, 0.0f, 1.0f);
    return t * t * (3 - 2 * t);
}

Oklab folded(const Oklab& color, const Folds& folds, Position p) {
    const float dx = (p.x - folds.x) / folds.radiusX, dy = (p.y - folds.y) / folds.radiusY;
    const float presence = lightAt(dx * dx + dy * dy);
    if (presence <= 0) return color;
    const float angleRad = folds.angleDeg * radiansPerDegree;
    const float across = p.x * std::cos(angleRad) + p.y * std::sin(angleRad);
    const float bend = slowNoise(p.x * folds.bendsAcross, p.y * folds.bendsAcross, folds.seed);
    const float phase = across * folds.cyclesAcross + folds.bendCycles * bend;
    const float sheet = phase - std::floor(phase);
    const float nextRim = smoothStep((sheet - (1 - folds.rimFraction)) / folds.rimFraction);
    const float light = std::lerp((1 - sheet) * (1 - sheet), 1.0f, nextRim);
    const float shade = std::lerp(std::pow(sheet, 5.0f), 0.0f, nextRim);
    const Oklab shaded = mixed(color, folds.shade, presence * folds.shadeStrength * shade);
    return mixed(shaded, folds.lit, presence * folds.litStrength * light);
}

}   // namespace

Oklab colorAt(const Recipe& recipe, float x, float y) {
    Position p{x, y};
    for (const Warp& warp : recipe.warps) p = warped(p, warp);
    Oklab color = groundAt(recipe.ground, p);
    for (const Pool& pool : recipe.pools) color = mixed(color, pool.color, poolLight(pool, p));
    for (const Folds& folds : recipe.folds) color = folded(color, folds, p);
    const float dx = x - 0.5f, dy = y - 0.5f;
    const float kept = 1 - recipe.edgeShade * smoothStep(2 * (dx * dx + dy * dy));
    return {color.lightness * kept, color.a * kept, color.b * kept};
}

}   // namespace tavix::backgrounds
