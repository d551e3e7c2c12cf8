#include "TavixCore/Animation/CurveEvaluation.h"
#include "TavixCore/Animation/Easing.h"
#include "TavixCore/Support/Document.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace tavix {
namespace {

using KineticMath::evaluate;

std::vector<TimingCurve> everyKind() {
    return {LinearCurve{}, BezierCurve{}, BezierCurve{0.3, 0.7, 0.3, 1}, BezierCurve{0.34, 1.56, 0.64, 1},
        BezierCurve{0, 0, 1, 1}, BezierCurve{1, 0, 0, 1}, BezierCurve{0, 1, 0, 1}, BezierCurve{-2, -1, 3, 2},
        SpringCurve{}, SpringCurve{0.5, 0.2}, SpringCurve{0.5, 0.9989}, SpringCurve{0.5, 0.999},
        SpringCurve{0.01, 1}, SpringCurve{4, 0.5}};
}

TEST(CurveEvaluation, StartsAtZeroAndLandsExactlyAtOne) {
    for (const TimingCurve& curve : everyKind())
        for (const double durationSec : {0.01, 0.35, 1.0, 7.3}) {
            SCOPED_TRACE(encodedJson(curve) + std::to_string(durationSec));
            EXPECT_NEAR(evaluate(curve, 0, durationSec).value, 0, 1e-6);
            const double landing = evaluate(curve, durationSec, durationSec).value;
            EXPECT_NEAR(landing, 1, std::holds_alternative<SpringCurve>(curve) ? 0 : 1e-6);
            EXPECT_EQ(evaluate(curve, std::nextafter(durationSec, 9), durationSec).velocityPerSec, 0);
            EXPECT_EQ(evaluate(curve, -0.001, durationSec), (KineticMath::CurveState{0, 0}));
            EXPECT_EQ(evaluate(curve, -1, 0), (KineticMath::CurveState{1, 0}));
        }
}

TEST(CurveEvaluation, VelocityIsTheSlopeOfTheValue) {
    constexpr double durationSec = 0.8, stepSec = 1e-5, steepest = 30 / durationSec;
    for (const TimingCurve& curve : everyKind())
        for (double tSec = 0.013; tSec < durationSec; tSec += 0.037) {
            const double slope = (evaluate(curve, tSec + stepSec, durationSec).value -
                                     evaluate(curve, tSec - stepSec, durationSec).value) /
                                 (2 * stepSec);
            if (std::abs(slope) > steepest) continue;   // there a Bézier's velocity is held back
            EXPECT_NEAR(
                evaluate(curve, tSec, durationSec).velocityPerSec, slope, 0.02 + 0.01 * std::abs(slope))
                << encodedJson(curve) << " at " << tSec;
        }
}

// A Bézier curve solved to the last bit by plain bisection.
double slowBezier(const BezierCurve& c, double x) {
    const double x1 = std::clamp(c.x1, 0.0, 1.0), x2 = std::clamp(c.x2, 0.0, 1.0);
    const auto axis = [](double a, double b, double t) {
        return 3 * (1 - t) * (1 - t) * t * a + 3 * (1 - t) * t * t * b + t * t * t;
    };
    double low = 0, high = 1;
    for (int i = 0; i < 200; ++i) (axis(x1, x2, (low + high) / 2) < x ? low : high) = (low + high) / 2;
    return axis(c.y1, c.y2, low);
}

TEST(CurveEvaluation, SolvesBezierCurves) {
    for (const TimingCurve& curve : everyKind()) {
        const auto* bezier = std::get_if<BezierCurve>(&curve);
        if (!bezier) continue;
        for (int i = 0; i <= 100; ++i) {
            const double x = i / 100.0;
            // Where time stands still the progress is steep, and an error of 1e-6 in time shows.
            EXPECT_NEAR(evaluate(curve, x * 3, 3).value, slowBezier(*bezier, x), 0.02)
                << encodedJson(curve) << x;
        }
    }
    EXPECT_NEAR(evaluate(BezierCurve{}, 0.5, 1).value, 0.5, 1e-9);
    EXPECT_NEAR(
        evaluate(BezierCurve{0.25, 0.1, 0.25, 1}, 0.5, 1).value, 0.802403, 1e-6);   // the "ease" of CSS
    EXPECT_EQ(evaluate(BezierCurve{0.001, 1, 0.9, 1}, 0, 2).velocityPerSec, 16) << "held to 32 per duration";
}

TEST(CurveEvaluation, SamplesAgreeAtSharedInstants) {
    for (const TimingCurve& curve : everyKind())
        for (int second = 0; second < 3; ++second)
            for (int i = 0; i < 24; ++i) {
                const double slow = evaluate(curve, second + i / 24.0, 2.4).value;
                EXPECT_NEAR(evaluate(curve, second + (i * 5) / 120.0, 2.4).value, slow, 1e-9);
                if (i % 2 == 1) continue;   // an instant that 60 Hz does not have
                EXPECT_NEAR(evaluate(curve, second + (i / 2 * 5) / 60.0, 2.4).value, slow, 1e-9);
            }
}

TEST(CurveEvaluation, LimitsSpringsToWhatMoves) {
    const struct {
        SpringCurve written, counted;
    } cases[] = {
        {{0.01, 0.5}, {0.05, 0.5}}, {{0.5, 0}, {0.5, 0.2}}, {{0.5, 7}, {0.5, 1}}, {{0.5, 0.9995}, {0.5, 1}}};
    for (const auto& c : cases)
        for (double tSec = 0; tSec <= 1.2; tSec += 0.05)
            EXPECT_EQ(evaluate(c.written, tSec, 1), evaluate(c.counted, tSec, 1))
                << encodedJson(TimingCurve(c.written));
    EXPECT_GT(evaluate(SpringCurve{0.35, 0.4}, 0.2, 1).value, 1) << "a springy one overshoots";
    double previous = 0;
    for (double tSec = 0; tSec <= 1; tSec += 0.01) {
        const double value = evaluate(SpringCurve{0.35, 1}, tSec, 1).value;
        EXPECT_GE(value, previous) << "a critical one does not";
        previous = value;
    }
}

TEST(CurveEvaluation, StaysFiniteForHostileArguments) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN(),
                     inf = std::numeric_limits<double>::infinity();
    const std::vector<double> hostile{nan, inf, -inf, 1e308, -1e308, 5e-324, 1e-300, -1, 0, 0.5, 1};
    std::vector<TimingCurve> curves{LinearCurve{}, SpringCurve{}};
    for (const double a : hostile)
        for (const double b : hostile) {
            curves.emplace_back(BezierCurve{a, b, 0.5, 1});
            curves.emplace_back(BezierCurve{0.2, a, 0.1, b});
            curves.emplace_back(SpringCurve{a, b});
        }
    for (const TimingCurve& curve : curves)
        for (const double elapsedSec : hostile)
            for (const double durationSec : hostile) {
                const auto state = evaluate(curve, elapsedSec, durationSec);
                ASSERT_TRUE(std::isfinite(state.value) && std::isfinite(state.velocityPerSec))
                    << "case " << curve.index() << ", " << elapsedSec << " of " << durationSec;
            }
}

TEST(TimingCurve, ReadsAndWritesItsFlatForm) {
    const struct {
        const char* json;
        TimingCurve curve;
    } cases[] = {
        {R"({})", LinearCurve{}},
        {R"({"kind": "wobble", "x1": 0.1})", LinearCurve{}},
        {R"({"kind": "spring"})", SpringCurve{0.35, 0.8}},
        {R"({"kind": "spring", "damping": 0.5})", SpringCurve{0.35, 0.5}},
        {R"({"kind": "bezier"})", BezierCurve{0.42, 0, 0.58, 1}},
        {R"({"kind": "bezier", "y2": -3})", BezierCurve{0.42, 0, 0.58, -3}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.json);
        const auto curve = decodeJson<TimingCurve>(c.json);
        EXPECT_EQ(curve, c.curve);
        EXPECT_EQ(decodeJson<TimingCurve>(encodedJson(curve)), curve);
    }
    EXPECT_EQ(Codec<TimingCurve>::write(SpringCurve{1, 0.5}),
        Json(JsonObject{{"kind", "spring"}, {"response", 1}, {"damping", 0.5}}));
    EXPECT_EQ(Codec<TimingCurve>::write(LinearCurve{}), Json(JsonObject{{"kind", "linear"}}));
}

TEST(Easing, RisesFromZeroToOneAndHoldsBeyond) {
    for (const Easing easing : allCases<Easing>()) {
        SCOPED_TRACE(nameOf(easing));
        EXPECT_EQ(apply(easing, -1), 0);
        EXPECT_EQ(apply(easing, 2), 1);
        EXPECT_EQ(apply(easing, std::nan("")), 0);
        for (double t = 0; t < 1; t += 0.01) EXPECT_LT(apply(easing, t), apply(easing, t + 0.01));
    }
}

TEST(Easing, EasesTheEndThatItsNameSays) {
    for (double t = 0.05; t < 1; t += 0.1) {
        EXPECT_NEAR(apply(Easing::easeOut, t), 1 - apply(Easing::easeIn, 1 - t), 1e-12);
        EXPECT_NEAR(apply(Easing::easeInOut, t), 1 - apply(Easing::easeInOut, 1 - t), 1e-12);
        EXPECT_LT(apply(Easing::easeIn, t), t);
    }
    EXPECT_DOUBLE_EQ(apply(Easing::easeInOut, 0.25), 0.125);
    EXPECT_THROW(decodeJson<Easing>(R"("easeOutBack")"), DecodingError);
}

}   // namespace
}   // namespace tavix
