#include "TavixCore/Typography/ElementFrameState.h"
#include "TavixCore/Animation/CurveEvaluation.h"
#include "TavixCore/Typography/KineticNoise.h"
#include "TavixCore/Values/AffineTransform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace tavix::KineticMath {
namespace {

constexpr CanvasTiming canvas{.heightPx = 1000, .framesPerSec = 60};
constexpr KineticElement element{
    .schedule = {.inStart = 0.5, .outStart = 3, .inDur = 1, .outDur = 0.5}, .pivotXPx = 300, .pivotYPx = 200};

struct Position {
    double x, y;
};
Position applied(const AffineTransform& t, Position p) {
    return {t.a * p.x + t.c * p.y + t.tx, t.b * p.x + t.d * p.y + t.ty};
}
void expectNear(Position found, Position wanted) {
    EXPECT_NEAR(found.x, wanted.x, 1e-9);
    EXPECT_NEAR(found.y, wanted.y, 1e-9);
}

KineticStyle styleWith(const KineticPhase& inPhase) {
    KineticStyle style;
    style.inPhase = inPhase;
    return style;
}

TEST(AffineTransform, AppliesTheFirstStepFirst) {
    const auto turned = AffineTransform::translation(10, 0).concatenating(AffineTransform::rotation(90));
    expectNear(applied(turned, {1, 0}), {0, 11});
    const auto moved = AffineTransform::rotation(90).concatenating(AffineTransform::translation(10, 0));
    expectNear(applied(moved, {1, 0}), {10, 1});
    expectNear(applied(AffineTransform::skew(45, 0), {1, 2}), {3, 2});
    expectNear(applied(AffineTransform::skew(0, 45), {1, 2}), {1, 3});
    const auto a = AffineTransform::scaling(2, 3), b = AffineTransform::skew(10, 20);
    const auto left = a.concatenating(b).concatenating(turned),
               right = a.concatenating(b.concatenating(turned));
    expectNear(applied(left, {3, 4}), applied(right, {3, 4}));
    EXPECT_FALSE(AffineTransform::scaling(1, std::nan("")).isFinite());
}

TEST(ElementFrameState, RestsUntouched) {
    KineticPhase wild{.durationSec = 1,
        .curve = SpringCurve{},
        .opacity = 0,
        .offset = {1, 2},
        .scale = 3,
        .rotationDeg = {10, 20, 30},
        .skewXDeg = 4,
        .skewYDeg = 5,
        .trackingEm = 1,
        .blurRadiusFraction = 0.1,
        .motionBlur = 1,
        .color = RGBAColor{1, 0, 0, 1}};
    KineticStyle style{.inPhase = wild, .outPhase = wild};
    const ElementFrameState state = stateAt(2, element, style, canvas);
    EXPECT_TRUE(state.visible);
    EXPECT_EQ(state.progress, 1);
    EXPECT_EQ(state.alpha, 1);
    expectNear(applied(state.transform, {17, 23}), {17, 23});
    EXPECT_FALSE(state.hasPerspective());
    EXPECT_EQ(state.gaussianRadius, 0);
    EXPECT_FALSE(state.motionBlurRadius);
    EXPECT_EQ(state.color, element.restFill);
}

TEST(ElementFrameState, StandsAtTheFarEndsBeforeAndAfter) {
    const KineticPhase away{.opacity = 0.5,
        .offset = {0.1, 0.2},
        .scale = 2,
        .rotationDeg = {10, -20, 0},
        .blurRadiusFraction = 0.03,
        .clipToBounds = ClipMask::word,
        .color = RGBAColor{1, 0, 0, 1}};
    KineticStyle style{.inPhase = away, .outPhase = away};
    for (const double timeSec : {0.0, 0.5, 3.5, 99.0}) {
        SCOPED_TRACE(timeSec);
        const ElementFrameState state = stateAt(timeSec, element, style, canvas);
        EXPECT_EQ(state.alpha, 0.5);
        expectNear(applied(state.transform, {300, 200}), {400, 0});   // told downwards, drawn upwards
        expectNear(applied(state.transform, {310, 200}), {420, 0});   // twice the size about the pivot
        EXPECT_EQ(state.tiltXDeg, 10);
        EXPECT_EQ(state.tiltYDeg, -20);
        EXPECT_TRUE(state.hasPerspective());
        EXPECT_EQ(state.gaussianRadius, 30);
        EXPECT_EQ(state.clip, ClipMask::word);
        EXPECT_EQ(state.tintFrom, *away.color);
        EXPECT_EQ(state.color, *away.color);
    }
}

TEST(ElementFrameState, LeavesByTheWayItCame) {
    const KineticPhase away{.curve = BezierCurve{},
        .opacity = 0.2,
        .offset = {0.3, -0.1},
        .scale = 0.5,
        .rotationDeg = {0, 0, 90}};
    KineticStyle style{.inPhase = away, .outPhase = away};
    for (const double share : {0.1, 0.35, 0.8}) {
        const auto coming = stateAt(0.5 + (1 - share), element, style, canvas);
        const auto going = stateAt(3 + 0.5 * share, element, style, canvas);
        EXPECT_NEAR(coming.alpha, going.alpha, 1e-6);
        EXPECT_NEAR(coming.transform.a, going.transform.a, 1e-6);
        EXPECT_NEAR(coming.transform.ty, going.transform.ty, 1e-3);
    }
}

TEST(ElementFrameState, ScalesByAPowerAndTracksAcross) {
    const auto half = stateAt(1, element, styleWith({.scale = 4, .trackingEm = 0.5}), canvas);
    EXPECT_NEAR(half.transform.d, 2, 1e-12);
    EXPECT_NEAR(half.transform.a, 2 * 1.25, 1e-12);
    KineticElement emphasized = element;
    emphasized.emphasisScale = 1.5;
    EXPECT_NEAR(stateAt(1, emphasized, styleWith({.scale = 4}), canvas).transform.d, 3, 1e-12);
}

TEST(ElementFrameState, DrawsNothingThatCannotShow) {
    const struct {
        KineticPhase phase;
        double timeSec;
        bool visible;
    } cases[] = {
        {{.opacity = 0}, 0.4, false}, {{.opacity = 0.001}, 0.4, false}, {{.opacity = 0.003}, 0.4, true},
        {{.opacity = -1}, 0.9, false}, {{.opacity = -1}, 1.2, true},
        {{.curve = SpringCurve{0.3, 0.3}, .scale = 0}, 0.7, false},   // overshot: 0 to a negative power
        {{.scale = -2}, 1.2, false},                                  // no real number
    };
    for (const auto& c : cases)
        EXPECT_EQ(stateAt(c.timeSec, element, styleWith(c.phase), canvas).visible, c.visible)
            << c.phase.opacity << ", " << c.phase.scale;
    const auto overshooting =
        stateAt(0.7, element, styleWith({.curve = SpringCurve{0.3, 0.3}, .opacity = 0}), canvas);
    EXPECT_GT(overshooting.progress, 1);
    EXPECT_EQ(overshooting.alpha, 1) << "no brighter than full";
}

TEST(ElementFrameState, SmearsAlongItsOffset) {
    const KineticPhase phase{.offset = {-0.3, 0.4}, .motionBlur = 1};
    const auto moving = stateAt(1, element, styleWith(phase), canvas);   // 500 px a second, linearly
    ASSERT_TRUE(moving.motionBlurRadius);
    EXPECT_NEAR(*moving.motionBlurRadius, 500 * 0.5 / 60, 1e-9);
    EXPECT_NEAR(moving.motionBlurAngle, std::atan2(0.4, 0.3), 1e-9);
    const auto slow = stateAt(1, element, styleWith({.offset = {-0.05, 0}, .motionBlur = 1}), canvas);
    EXPECT_FALSE(slow.motionBlurRadius) << "less than 0.75 pixel";
    const auto quick = stateAt(1, element, styleWith({.offset = {-30, 0}, .motionBlur = 1}), canvas);
    EXPECT_EQ(*quick.motionBlurRadius, 80) << "at most 0.08 of the height";
}

TEST(ElementFrameState, IdlesOnlyWhileOnScreen) {
    KineticStyle style;
    KineticElement third = element;
    third.ordinal = 3;
    const auto idling = [&](IdlePhase::Target target, double timeSec) {
        style.idle = IdlePhase{.target = target, .amplitude = 0.25, .frequencyHz = 2, .seed = 11};
        return stateAt(timeSec, third, style, canvas);
    };
    constexpr double timeSec = 1.73;
    const double noise = 0.25 * lattice(11, 12, 2 * timeSec), across = 0.25 * lattice(11, 13, 2 * timeSec);
    ASSERT_GT(std::abs(noise), 0.01);
    expectNear(applied(idling(IdlePhase::Target::position, timeSec).transform, {0, 0}),
        {1000 * noise, -1000 * across});
    EXPECT_NEAR(idling(IdlePhase::Target::scale, timeSec).transform.a, std::exp(noise), 1e-12);
    EXPECT_NEAR(idling(IdlePhase::Target::rotation, timeSec).transform.b,
        std::sin(noise * std::numbers::pi / 180), 1e-12);
    EXPECT_NEAR(idling(IdlePhase::Target::opacity, timeSec).alpha, std::min(1 + noise, 1.0), 1e-12);
    for (const double offScreenSec : {0.2, 0.5, 3.5, 8.0})
        EXPECT_NEAR(idling(IdlePhase::Target::scale, offScreenSec).transform.a, 1, 1e-12);
}

TEST(ElementFrameState, AgreesAtSharedInstantsOfAnyFrameRate) {
    const KineticPhase away{.curve = SpringCurve{}, .opacity = 0, .offset = {0, 0.1}, .scale = 0.8};
    KineticStyle style{.inPhase = away, .idle = IdlePhase{}, .outPhase = away};
    for (int i = 0; i < 96; ++i) {
        const auto slow = stateAt(i / 24.0, element, style, {1000, 24});
        const auto fast = stateAt(i * 5 / 120.0, element, style, {1000, 120});
        EXPECT_NEAR(slow.alpha, fast.alpha, 1e-9);
        EXPECT_NEAR(slow.transform.ty, fast.transform.ty, 1e-6);
    }
}

}   // namespace
}   // namespace tavix::KineticMath
