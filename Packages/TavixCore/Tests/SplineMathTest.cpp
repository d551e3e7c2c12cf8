#include "TavixCore/Animation/SplineMath.h"

#include <gtest/gtest.h>

#include <vector>

namespace tavix::SplineMath {
namespace {

TEST(SplineMath, KeepsEndsAndPlateausFlat) {
    const struct {
        std::vector<double> timesSec, values, tangents;
    } cases[] = {
        {{}, {}, {}}, {{0, 1}, {0, 5}, {0, 0}}, {{0, 1, 2}, {0, 0, 1}, {0, 0, 0}},
        {{0, 1, 2}, {0, 1, 2}, {0, 1, 0}}, {{0, 1, 3, 4}, {0, 2, 3, 3}, {0, 1, 0, 0}},
        {{0, 0, 0}, {0, 1, 2}, {0, 2e6, 0}},   // at one instant: no division by zero
    };
    for (const auto& c : cases) EXPECT_EQ(tangents(c.timesSec, c.values), c.tangents);
}

TEST(SplineMath, PassesThroughItsEndsWithItsTangents) {
    const HermiteSegment segment{2, 5, -1, 3, 0.5};
    constexpr double step = 1e-6;
    EXPECT_EQ(hermite(segment, 0), 2);
    EXPECT_EQ(hermite(segment, 1), 5);
    EXPECT_NEAR((hermite(segment, step) - 2) / (step * segment.lengthSec), -1, 1e-3);
    EXPECT_NEAR((5 - hermite(segment, 1 - step)) / (step * segment.lengthSec), 3, 1e-3);
}

TEST(SplineMath, IsStraightWhenItsTangentsAre) {
    for (double u = 0; u <= 1; u += 0.125) EXPECT_NEAR(hermite({1, 4, 1.5, 1.5, 2}, u), 1 + 3 * u, 1e-12);
    for (double u = 0; u <= 1; u += 0.125) EXPECT_EQ(hermite({7, 7, 0, 0, 2}, u), 7);
}

}   // namespace
}   // namespace tavix::SplineMath
