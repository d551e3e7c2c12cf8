#include "TavixCore/Values/AffineTransform.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <numbers>

namespace tavix {
namespace {

constexpr double radiansPerDegree = std::numbers::pi / 180;

}   // namespace

AffineTransform AffineTransform::rotation(double angleDeg) {
    const double sine = std::sin(angleDeg * radiansPerDegree);
    const double cosine = std::cos(angleDeg * radiansPerDegree);
    return {cosine, sine, -sine, cosine, 0, 0};
}

AffineTransform AffineTransform::skew(double angleXDeg, double angleYDeg) {
    return {1, std::tan(angleYDeg * radiansPerDegree), std::tan(angleXDeg * radiansPerDegree), 1, 0, 0};
}

AffineTransform AffineTransform::concatenating(const AffineTransform& next) const {
    return {next.a * a + next.c * b, next.b * a + next.d * b, next.a * c + next.c * d,
        next.b * c + next.d * d, next.a * tx + next.c * ty + next.tx, next.b * tx + next.d * ty + next.ty};
}

bool AffineTransform::isFinite() const {
    const auto all = {a, b, c, d, tx, ty};
    return std::all_of(all.begin(), all.end(), [](double v) { return std::isfinite(v); });
}

}   // namespace tavix
