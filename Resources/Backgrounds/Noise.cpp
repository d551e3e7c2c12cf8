#include "Backgrounds/Noise.h"

#include <array>
#include <cmath>

namespace tavix::backgrounds {

namespace {

// The finaliser of MurmurHash3 over the three words: every bit of the input moves half the bits of the
// result.
std::uint32_t hashed(std::uint32_t x, std::uint32_t y, std::uint32_t seed) {
    std::uint32_t h = x * 0x9e3779b1u ^ y * 0x85ebca77u ^ seed * 0xc2b2ae3du;
    h = (h ^ h >> 16) * 0x85ebca6bu;
    h = (h ^ h >> 13) * 0xc2b2ae35u;
    return h ^ h >> 16;
}

// Sixteen directions round the circle; eight leave a visible preference for the axes.
constexpr int directionCount = 16;
using Directions = std::array<std::array<float, 2>, directionCount>;

Directions roundTheCircle() {
    Directions directions{};
    for (int i = 0; i < directionCount; ++i) {
        const double angleRad = 2 * 3.14159265358979 * i / directionCount;
        directions[static_cast<std::size_t>(i)] = {
            static_cast<float>(std::cos(angleRad)), static_cast<float>(std::sin(angleRad))};
    }
    return directions;
}

float cornerSlope(int cellX, int cellY, float dx, float dy, std::uint32_t seed) {
    static const Directions directions = roundTheCircle();
    const auto& direction =
        directions[hashed(static_cast<std::uint32_t>(cellX), static_cast<std::uint32_t>(cellY), seed) %
                   directionCount];
    return direction[0] * dx + direction[1] * dy;
}

float quintic(float t) { return t * t * t * (t * (t * 6 - 15) + 10); }

}   // namespace

float whiteNoise(std::uint32_t x, std::uint32_t y, std::uint32_t seed) {
    return static_cast<float>(hashed(x, y, seed) >> 8) * 0x1p-24f;
}

float smoothNoise(float x, float y, std::uint32_t seed) {
    const float floorX = std::floor(x), floorY = std::floor(y);
    const int cellX = static_cast<int>(floorX), cellY = static_cast<int>(floorY);
    const float dx = x - floorX, dy = y - floorY;
    const float top = std::lerp(cornerSlope(cellX, cellY, dx, dy, seed),
        cornerSlope(cellX + 1, cellY, dx - 1, dy, seed), quintic(dx));
    const float bottom = std::lerp(cornerSlope(cellX, cellY + 1, dx, dy - 1, seed),
        cornerSlope(cellX + 1, cellY + 1, dx - 1, dy - 1, seed), quintic(dx));
    return std::lerp(top, bottom, quintic(dy));
}

}   // namespace tavix::backgrounds
