// Cubic Hermite splines through keyframes, with flat ends and flat plateaus, so that a path neither
// overshoots a rest nor drifts while it should hold.
#pragma once

#include <span>
#include <vector>

namespace tavix::SplineMath {

// One tangent per point, in value per second; `timesSec` and `values` are equally long.
std::vector<double> tangents(std::span<const double> timesSec, std::span<const double> values);

struct HermiteSegment {
    double fromValue, toValue;
    double fromTangent, toTangent;   // value per second
    double lengthSec;
};
double hermite(const HermiteSegment& segment, double progress);   // progress 0 to 1

}   // namespace tavix::SplineMath
