#include "Editor/EditorDomain/Inspector/ScrubMath.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace tavix {

namespace {

constexpr double travelPoints = 170, fineShare = 0.16;
constexpr int mostDecimals = 6;

}   // namespace

double ScrubRange::stepPerPoint() const {
    if (pointStep) return *pointStep;
    if (upper > lower && std::isfinite(upper - lower)) return (upper - lower) / travelPoints;
    return std::pow(10, -decimals);
}

double ScrubRange::dragged(double start, double deltaPoints, bool isFine) const {
    return rounded(start + (isFine ? fineShare : 1) * stepPerPoint() * deltaPoints);
}

double ScrubRange::rounded(double value) const {
    const double unit = std::pow(10, decimals);
    return clamped(std::round(value * unit) / unit);
}

double ScrubRange::clamped(double value) const { return std::clamp(value, lower, std::max(lower, upper)); }

std::string ScrubRange::text(double value) const {
    char shown[64];
    // Where whole steps are taken a fraction is shown only when there is one.
    const bool isWhole =
        pointStep && *pointStep >= 1 && std::abs(value - std::round(value)) < 0.5 * std::pow(10, -decimals);
    std::snprintf(shown, sizeof shown, "%.*f", isWhole ? 0 : decimals, value);
    const bool isZero = std::string_view(shown).find_first_not_of("-0.") == std::string_view::npos;
    return isZero && shown[0] == '-' ? shown + 1 : shown;
}

int ScrubRange::decimalsOf(std::string_view format) {
    const auto dot = format.find('.');
    if (dot == std::string_view::npos) return format.find('d') == std::string_view::npos ? mostDecimals : 0;
    int decimals = 0;
    for (std::size_t i = dot + 1; i < format.size() && format[i] >= '0' && format[i] <= '9'; ++i)
        decimals = std::min(decimals * 10 + (format[i] - '0'), 15);
    return decimals;
}

int decimalsOfStep(double step) {
    int decimals = 0;
    while (decimals < mostDecimals &&
           std::abs(step * std::pow(10, decimals) - std::round(step * std::pow(10, decimals))) > 1e-9)
        ++decimals;
    return decimals;
}

}   // namespace tavix
