#include "TavixCore/Animation/CompositionMath.h"

#include <gtest/gtest.h>

#include <vector>

namespace tavix::CompositionMath {
namespace {

using Keyframes = std::vector<CompositionKeyframe>;

TEST(CompositionMath, HoldsBothEndsAndNeverExtrapolates) {
    const Keyframes track{{.t = 1, .value = 3}, {.t = 2, .value = 5}};
    const struct { double tSec, value; } cases[] = {{-9, 3}, {1, 3}, {1.5, 4}, {2, 5}, {99, 5}};
    for (const auto& c : cases) EXPECT_EQ(sample(track, c.tSec, Mixing::linear), c.value) << c.tSec;
    EXPECT_EQ(sample(Keyframes{}, 0, Mixing::linear), std::nullopt);
    for (const double tSec : {-1.0, 4.0, 9.0})
        EXPECT_EQ(sample(Keyframes{{.t = 4, .value = 7}}, tSec, Mixing::linear), 7);
}

TEST(CompositionMath, MixesZoomsEvenly) {
    const struct {
        AnimProperty property;
        double from, to, middle;
    } cases[] = {{AnimProperty::scale, 1, 4, 2}, {AnimProperty::scaleX, 1, 4, 2},
        {AnimProperty::scaleY, 4, 1, 2}, {AnimProperty::opacity, 1, 4, 2.5}, {AnimProperty::scale, 0, 4, 2},
        {AnimProperty::scale, -1, 1, 0}};
    for (const auto& c : cases) {
        const std::vector<PropertyTrack> tracks{{AnimProperty::x, {{.t = 0, .value = 9}}},
            {c.property, {{.t = 0, .value = c.from}, {.t = 2, .value = c.to}}},
            {c.property, {{.t = 0, .value = 77}}}};
        EXPECT_NEAR(sample(tracks, c.property, 1).value(), c.middle, 1e-12);
        EXPECT_EQ(sample(tracks, AnimProperty::blur, 1), std::nullopt);
    }
}

TEST(CompositionMath, ShapesASegmentByTheEaseItArrivesAt) {
    const BezierCurve late{1, 0, 1, 0};
    const Keyframes track{
        {.t = 0, .value = 0, .ease = late}, {.t = 1, .value = 1}, {.t = 2, .value = 2, .ease = late}};
    EXPECT_DOUBLE_EQ(sample(track, 0.5, Mixing::linear).value(), 0.5);
    EXPECT_LT(sample(track, 1.5, Mixing::linear).value(), 1.2);
    const Keyframes springy{{.t = 0, .value = 0}, {.t = 1, .value = 1, .ease = SpringCurve{0.3, 0.3}}};
    EXPECT_GT(sample(springy, 0.16, Mixing::linear).value(), 1.2) << "a spring overshoots";
}

TEST(CompositionMath, JumpsBetweenKeyframesOfOneInstant) {
    const Keyframes track{
        {.t = 0, .value = 0}, {.t = 1, .value = 1}, {.t = 1, .value = 5}, {.t = 2, .value = 5}};
    EXPECT_EQ(sample(track, 1, Mixing::linear), 1);
    EXPECT_EQ(sample(track, 1.0001, Mixing::linear), 5);
    const Keyframes both{{.t = 1, .value = 1}, {.t = 1, .value = 5}};
    EXPECT_EQ(sample(both, 0.9, Mixing::linear), 1);
    EXPECT_EQ(sample(both, 1.1, Mixing::linear), 5);
}

}   // namespace
}   // namespace tavix::CompositionMath
