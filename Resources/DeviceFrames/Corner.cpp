#include "DeviceFrames/Corner.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tavix::deviceframes {

namespace {

constexpr double exponent = Corner::exponent;

// How far the curve of that reach has left the edge, at a row counted from the top of the square.
double departurePx(double reach, double row) {
    const double v = std::clamp((reach - row) / reach, 0.0, 1.0);
    return reach * (1 - std::pow(1 - std::pow(v, exponent), 1 / exponent));
}

// A pixel next to the edge counts as open while less than 16 of 255 of it is covered.
constexpr double openDeparturePx = 1 + 16.0 / 255;

double reachFor(double measuredRadiusPx) {
    double low = measuredRadiusPx, high = 2 * measuredRadiusPx;
    for (int i = 0; i < 60; ++i) {
        const double middle = (low + high) / 2;
        (departurePx(middle, measuredRadiusPx) < openDeparturePx ? low : high) = middle;
    }
    return low;
}

}   // namespace

Corner::Corner(double measuredRadiusPx) : reach_(reachFor(measuredRadiusPx)) {
    for (std::size_t i = 0; i < pointCount; ++i) {
        const double turn = std::numbers::pi / 2 * static_cast<double>(i) / (pointCount - 1);
        const auto along = [&](double value) {
            return static_cast<float>(reach_ * std::pow(std::max(value, 0.0), 2 / exponent));
        };
        curve_[i] = {along(std::cos(turn)), along(std::sin(turn))};
    }
    curve_.back().x = 0;
}

Offset Corner::offsetAt(float u, float v) const {
    // The nearest point lies where the way there is square to the curve; ahead of it the way leads onward.
    const auto leadsOn = [&](std::size_t i) {
        const Point from = curve_[i], to = curve_[i + 1];
        return (u - from.x) * (to.x - from.x) + (v - from.y) * (to.y - from.y) > 0;
    };
    std::size_t low = 0, high = pointCount - 1;
    while (high - low > 1) {
        const std::size_t middle = (low + high) / 2;
        (leadsOn(middle) ? low : high) = middle;
    }
    const Point from = curve_[low], to = curve_[low + 1];
    const float dx = to.x - from.x, dy = to.y - from.y;
    const float along = std::clamp(((u - from.x) * dx + (v - from.y) * dy) / (dx * dx + dy * dy), 0.0f, 1.0f);
    const float x = from.x + along * dx, y = from.y + along * dy;
    const auto power = static_cast<float>(exponent - 1);
    const float gx = std::pow(x, power), gy = std::pow(y, power);
    const float length = std::sqrt(gx * gx + gy * gy);
    const float outX = gx / length, outY = gy / length;
    return {(u - x) * outX + (v - y) * outY, outX, outY};
}

}   // namespace tavix::deviceframes
