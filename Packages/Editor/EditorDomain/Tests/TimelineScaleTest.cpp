// The timeline's clock on paper: every expectation is a number that was worked out by hand.
#include "Editor/EditorDomain/Timeline/TimelineScale.h"
#include "Editor/EditorDomain/Inspector/Expression.h"
#include "Editor/EditorDomain/Inspector/ScrubMath.h"
#include "Editor/EditorDomain/Timeline/EasePreset.h"
#include "Editor/EditorDomain/Timeline/Waveform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace tavix::timeline {
namespace {

TEST(TimelineScale, TheFilmFillsTheViewAndZoomStretchesIt) {
    const struct {
        double totalSec, width, zoom, pps, contentWidth;
    } cases[] = {{10, 1020, 1, 100, 1020}, {10, 1020, 8, 800, 8020}, {10, 1020, 30, 800, 8020},
        {0, 1020, 1, 1e6, 1020}, {5000, 1020, 1, 1, 5020}};
    for (const auto& c : cases) {
        const Scale scale = Scale::of(c.totalSec, c.width, c.zoom);
        EXPECT_NEAR(scale.pps(), c.pps, c.pps * 1e-9);
        EXPECT_NEAR(scale.contentWidth(), c.contentWidth, 1e-6);
        EXPECT_NEAR(scale.secOf(scale.xOf(3.25)), 3.25, 1e-9);
    }
}

TEST(TimelineScale, TheMomentUnderThePointerStaysWhileZooming) {
    const Scale scale = Scale::of(10, 1020, 2);
    const double pointer = 300, scroll = 400, sec = scale.secOf(scroll + pointer);
    for (const double factor : {1.1, 2.0, 0.7}) {
        const View view = zoomedAt(scale, scroll, pointer, factor);
        EXPECT_NEAR(Scale::of(10, 1020, view.zoom).secOf(view.scrollX + pointer), sec, 1e-9) << factor;
    }
    EXPECT_EQ(zoomedAt(scale, scroll, pointer, 0.01), (View{1, 0}));   // all of it, from its start
    EXPECT_EQ(zoomedAt(Scale::of(10, 1020, 1), 0, 1020, 8).scrollX, 8020 - 1020);
}

TEST(TimelineScale, ScrollsNoFurtherThanIsNeeded) {
    const Scale scale = Scale::of(10, 1020, 4);   // 400 points a second, 4020 in all
    const struct {
        double scroll, sec, expected;
    } cases[] = {{1000, 3, 1000}, {1000, 1, 370}, {1000, 6, 1430}, {1000, 0, 0}, {1000, 10, 3000}};
    for (const auto& c : cases)
        EXPECT_NEAR(scrolledToShow(scale, c.scroll, c.sec, 40), c.expected, 1e-9) << c.sec;
}

TEST(Ruler, ItsStepGoesByTheLengthOfTheFilm) {
    const struct {
        double totalSec, step;
        std::size_t count;
        const char* last;
    } cases[] = {{4, 0.5, 9, "4"}, {4.9, 0.5, 10, "4.5"}, {5, 1, 6, "5"}, {15, 5, 4, "15"}, {40, 10, 5, "40"},
        {125, 10, 13, "120"}};
    for (const auto& c : cases) {
        const auto ticks = rulerTicks(c.totalSec);
        EXPECT_EQ(rulerStepSec(c.totalSec), c.step) << c.totalSec;
        ASSERT_EQ(ticks.size(), c.count) << c.totalSec;
        EXPECT_EQ(ticks.back().label, c.last);
    }
    EXPECT_EQ(rulerTicks(4)[1].label, "0.5");
}

TEST(BeatTicks, ThinOutWhereTheyHaveNoRoom) {
    const BeatGrid everySecond{60, 0};
    const struct {
        double pps;
        std::size_t weak, strong;
    } cases[] = {{1, 0, 0}, {2, 0, 3}, {5.9, 0, 3}, {6, 6, 3}};
    for (const auto& c : cases) {
        const Scale scale = Scale::of(100, 20 + 100 * c.pps, 1);
        std::size_t weak = 0, strong = 0;
        for (const BeatTick& tick : beatTicks(everySecond, scale, scale.xOf(0), scale.xOf(8)))
            ++(tick.isStrong ? strong : weak);
        EXPECT_EQ(weak, c.weak) << c.pps;
        EXPECT_EQ(strong, c.strong) << c.pps;
    }
    const Scale scale = Scale::of(10, 1020, 1);
    const auto ticks = beatTicks({120, 0.25}, scale, scale.xOf(0), scale.xOf(1));
    ASSERT_EQ(ticks.size(), 2u);
    EXPECT_EQ(ticks[0], (BeatTick{35, true}));
    EXPECT_EQ(ticks[1], (BeatTick{85, false}));
}

TEST(Timecode, TellsMinutesSecondsAndHundredths) {
    EXPECT_EQ(timecode(9.4), "00:09.40");
    EXPECT_EQ(timecode(59.996), "01:00.00");
    EXPECT_EQ(timecode(3725.05), "62:05.05");
    EXPECT_EQ(timecode(-1), "00:00.00");
}

TEST(Eases, TheMenuKnowsItsOwnCurvesAndNoOthers) {
    EXPECT_EQ(EasePreset::name(LinearCurve{}), "Linear");
    EXPECT_EQ(EasePreset::name(BezierCurve{0.34, 1.56, 0.64, 1}), "Overshoot");
    EXPECT_EQ(EasePreset::name(BezierCurve{0.34, 1.56, 0.64, 0.99}), std::nullopt);
    EXPECT_EQ(EasePreset::name(SpringCurve{}), std::nullopt);
}

TEST(Eases, HandlesStayWithinTheSegmentAndItsOvershoot) {
    const BezierCurve dragged = EaseEditing::dragged({}, EaseEditing::Handle::second, 1.4, 3);
    EXPECT_EQ(dragged, (BezierCurve{0.42, 0, 1, 1.7}));
    EXPECT_EQ(
        EaseEditing::dragged(dragged, EaseEditing::Handle::first, -2, -2), (BezierCurve{0, -0.6, 1, 1.7}));
    for (const EasePreset& preset : EasePreset::named()) {
        const auto points = EaseEditing::plotted(preset.curve, 33);
        EXPECT_EQ(points.front().y, 0);
        EXPECT_NEAR(points.back().y, 1, 1e-6);
    }
}

TEST(Waveform, EveryLevelTellsTheSameLoudestMoments) {
    constexpr int rate = 8000;
    std::vector<float> samples(rate * 4);
    for (std::size_t i = 0; i < samples.size(); ++i)   // loud in the second second alone
        samples[i] =
            float((i / rate == 1 ? 0.8 : 0.1) * std::sin(2 * std::numbers::pi * 200 * double(i) / rate));
    const Waveform wave(samples, rate);
    EXPECT_NEAR(wave.durationSec(), 4, 0.01);
    const auto loudness = [&](double from, double to) { return wave.between(from, to).high / 127.0; };
    EXPECT_NEAR(loudness(0, 4), 0.8, 0.01);
    EXPECT_NEAR(loudness(1.2, 1.21), 0.8, 0.01);
    EXPECT_NEAR(loudness(2.5, 3), 0.1, 0.01);
    EXPECT_NEAR(wave.between(1, 1.5).low / 127.0, -0.8, 0.01);
    EXPECT_EQ(wave.between(5, 6), Waveform::Peak{});
    EXPECT_EQ(Waveform().between(0, 1), Waveform::Peak{});
    // A span never misses what is in it, whatever the level that it is read from.
    for (double width = 0.004; width < 4; width *= 1.7)
        EXPECT_NEAR(loudness(1.5 - width / 2, 1.5 + width / 2), 0.8, 0.02);
}

TEST(Expressions, AreWorkedOut) {
    const struct {
        const char* text;
        double expected;
    } cases[] = {{"1080/3", 360}, {" 2 + 3*4 ", 14}, {"(2+0.5)*4", 10}, {"-3--4", 1}, {"0,5", 0.5},
        {"12 px", 12}, {"40%", 0.4}, {"90°", 90}, {"*2", 20}, {"/4", 2.5}, {"++5", 15}, {"--5", 5}, {"+5", 5},
        {"-5", -5}, {"1e3", 1000}, {"8 × 2", 16}, {"−2", -2}, {"2*(3+(4-1))/3", 4}};
    for (const auto& c : cases) EXPECT_EQ(evaluated(c.text, 10), c.expected) << c.text;
    for (const char* text : {"", "abc", "1/0", "(1", "1)", "2**3", "1 2 )", "--", "5+", "nan", "*", "((((("})
        EXPECT_EQ(evaluated(text, 10), std::nullopt) << text;
    EXPECT_EQ(evaluated(std::string(5000, '(') + "1" + std::string(5000, ')'), 0), std::nullopt);
}

TEST(ScrubRange, ADragRunsThroughTheRangeAndStopsAtItsEnds) {
    const ScrubRange unit{0, 1, 2};
    const struct {
        double start, delta;
        bool isFine;
        double expected;
    } cases[] = {{0, 170, false, 1}, {0, 170, true, 0.16}, {0, 85, false, 0.5}, {0.5, 1000, false, 1},
        {0.5, -1000, true, 0}, {0.25, 0, false, 0.25}};
    for (const auto& c : cases)
        EXPECT_NEAR(unit.dragged(c.start, c.delta, c.isFine), c.expected, 1e-12) << c.delta;
    EXPECT_EQ((ScrubRange{5, 5, 2}.stepPerPoint()), 0.01);
    EXPECT_EQ((ScrubRange{0, 340, 0}.dragged(3, 1, false)), 5);
    EXPECT_EQ((ScrubRange{-INFINITY, INFINITY, 1, 1.0}.dragged(540, -40, false)), 500);
    EXPECT_EQ((ScrubRange{-1, 1, 2}.text(-0.001)), "0.00");
    EXPECT_EQ((ScrubRange{0, 2000, 1, 1.0}.text(540)), "540");
    EXPECT_EQ((ScrubRange{0, 2000, 1, 1.0}.text(540.25)), "540.2");
}

TEST(ScrubRange, ReadsTheDecimalsOfAFormat) {
    EXPECT_EQ(ScrubRange::decimalsOf("%.2f"), 2);
    EXPECT_EQ(ScrubRange::decimalsOf("%.0f s"), 0);
    EXPECT_EQ(ScrubRange::decimalsOf("%d"), 0);
    EXPECT_EQ(decimalsOfStep(0.05), 2);
    EXPECT_EQ(decimalsOfStep(0.005), 3);
    EXPECT_EQ(decimalsOfStep(1), 0);
}

}   // namespace
}   // namespace tavix::timeline
