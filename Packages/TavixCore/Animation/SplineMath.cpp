#include "TavixCore/Animation/SplineMath.h"

#include <algorithm>
#include <cassert>

namespace tavix::SplineMath {

std::vector<double> tangents(std::span<const double> timesSec, std::span<const double> values) {
    assert(timesSec.size() == values.size());
    constexpr double shortestSpanSec = 1e-6;
    std::vector<double> result(values.size(), 0.0);
    for (std::size_t i = 1; i + 1 < values.size(); ++i) {
        if (values[i] == values[i - 1] || values[i] == values[i + 1]) continue;
        result[i] =
            (values[i + 1] - values[i - 1]) / std::max(timesSec[i + 1] - timesSec[i - 1], shortestSpanSec);
    }
    return result;
}

double hermite(const HermiteSegment& s, double u) {
    const double u2 = u * u, u3 = u2 * u;
    return (2 * u3 - 3 * u2 + 1) * s.fromValue + (u3 - 2 * u2 + u) * s.lengthSec * s.fromTangent +
           (3 * u2 - 2 * u3) * s.toValue + (u3 - u2) * s.lengthSec * s.toTangent;
}

}   // namespace tavix::SplineMath
