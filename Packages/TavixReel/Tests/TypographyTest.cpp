// How the text of a reel gets to move, and where its cards stand.
#include "TavixBase/Failure.h"
#include "TavixCore/Support/Names.h"
#include "TavixCore/Typography/KineticTiming.h"
#include "TavixCore/Values/SeededRandom.h"
#include "TavixReel/Captions/CaptionLaneLayout.h"
#include "TavixReel/Cards/TitleCardResolver.h"
#include "TavixReel/Cards/TypographyAuthor.h"
#include "TavixReel/Document/ReelCanvas.h"
#include "TavixReel/Flow/FlowSpec.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>

namespace tavix {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Mode = TypographyOverride::Mode;

TEST(TypographyOverride, IsOneWordOrTwo) {
    EXPECT_EQ(TypographyOverride::parse(" auto "), TypographyOverride{});
    EXPECT_EQ(TypographyOverride::parse("on"), (TypographyOverride{Mode::on, {}, {}}));
    EXPECT_EQ(TypographyOverride::parse("off"), (TypographyOverride{Mode::off, {}, {}}));
    EXPECT_EQ(TypographyOverride::parse("high"), (TypographyOverride{Mode::on, {}, KineticIntensity::high}));
    EXPECT_EQ(TypographyOverride::parse("slam"), (TypographyOverride{Mode::on, "slam", {}}));
    EXPECT_EQ(
        TypographyOverride::parse("slam:low"), (TypographyOverride{Mode::on, "slam", KineticIntensity::low}));
    const struct {
        const char *text, *message;
    } faults[] = {
        {"  ", "--typography is empty. Use auto | on | off | <intensity> | <preset>[:<intensity>]."},
        {"a:b:c", "--typography \"a:b:c\" has too many parts. Use <preset>[:<intensity>]."},
        {"wave", "--typography: unknown preset \"wave\" (use word-pop, line-rise, "},
        {"On", "none, or on/off/auto/<intensity>)."},
        {"fade-up:", "--typography: unknown intensity \"\" (use low, medium, high)."}};
    for (const auto& fault : faults) {
        try {
            TypographyOverride::parse(fault.text);
            ADD_FAILURE() << fault.text;
        } catch (const Failure& failure) {
            EXPECT_THAT(failure.message(), HasSubstr(fault.message));
        }
    }
}

FlowSpec flowWith(FlowTypography typography) {
    FlowSpec flow;
    flow.typography = std::move(typography);
    return flow;
}

TEST(TypographyResolver, StylesWhatIsAskedForAndNotStyledYet) {
    const FlowSpec plain, styled = flowWith({});
    const auto resolved = [](const FlowSpec* flow, Mode mode, bool existing) {
        return TypographyResolver::resolve(flow, {mode, {}, {}}, existing).has_value();
    };
    EXPECT_FALSE(resolved(&styled, Mode::off, false));
    EXPECT_TRUE(resolved(nullptr, Mode::on, true));
    EXPECT_TRUE(resolved(&styled, Mode::automatic, false));
    EXPECT_FALSE(resolved(&styled, Mode::automatic, true));
    EXPECT_FALSE(resolved(&plain, Mode::automatic, false));
    EXPECT_FALSE(resolved(nullptr, Mode::automatic, false));

    const auto usual = TypographyResolver::build(nullptr, {});
    EXPECT_EQ(usual.reelPreset, "fade-up");
    EXPECT_EQ(usual.speed, KineticSpeed::smooth);
    EXPECT_EQ(usual.intensity, KineticIntensity::medium);
    EXPECT_FALSE(usual.intensityForced || usual.beatGrid || usual.weight);
}

TEST(TypographyResolver, TakesTheFlowsWordsUnlessTheCommandLineHasSome) {
    FlowSpec flow = flowWith({.style = "slam", .speed = "snap", .weight = "heavy", .intensity = "low"});
    flow.steps = {{.index = 3, .typography = StepTypography{.preset = "a"}},
        {.index = 3, .typography = StepTypography{.preset = "b"}}};
    const auto own = TypographyResolver::build(&flow, {});
    EXPECT_EQ(own.reelPreset, "slam");
    EXPECT_EQ(own.speed, KineticSpeed::snap);
    EXPECT_FALSE(own.weight);   // no weight is called that
    EXPECT_EQ(own.intensity, KineticIntensity::low);
    EXPECT_EQ(own.perStep.at(3).preset, "b");
    const auto forced = TypographyResolver::build(&flow, TypographyOverride::parse("blur-in:high"));
    EXPECT_EQ(forced.reelPreset, "blur-in");
    EXPECT_EQ(forced.intensity, KineticIntensity::high);
    EXPECT_TRUE(forced.intensityForced);
    const struct {
        double bpm;
        bool hasGrid;
    } tempi[] = {{39.9, false}, {40, true}, {200, true}, {200.1, false}};
    for (const auto& tempo : tempi) {
        const FlowSpec timed = flowWith({.bpm = tempo.bpm});
        EXPECT_EQ(TypographyResolver::build(&timed, {}).beatGrid.has_value(), tempo.hasGrid);
    }
}

TEST(TitleCardResolver, MovesOffWhatItWouldBreak) {
    const std::map<std::int64_t, TitleCardResolver::StepTime> steps{{4, {10, 500, 700}}};
    const std::vector<Cut> cuts{{Cut::Kind::trim, {11.4, 12}}, {Cut::Kind::trim, {30, 31}}};
    const std::vector<RetimeSegment> retime{{{20, 24}, 3}, {{2, 4}, 1}};
    const auto at = [&](TitleCardAnchor anchor, std::vector<TimeRangeSec> captions, double duration) {
        return TitleCardResolver::insertionSec(anchor, steps, cuts, retime, captions, duration);
    };
    EXPECT_EQ(at(AtStart{}, {}, 40), 0);
    EXPECT_EQ(at(AtEnd{}, {}, 40), 40);
    EXPECT_EQ(at(AfterStep{9}, {}, 40), 0);
    EXPECT_EQ(at(AfterStep{4}, {}, 40), 11.4);   // 11.2, and a cut near by
    EXPECT_EQ(at(AtEnd{}, {}, 21.9), 20);
    EXPECT_EQ(at(AtEnd{}, {}, 22), 22) << "the end of the ramp is past the duration";
    EXPECT_EQ(at(AtEnd{}, {{2.5, 4}}, 3), 2.5);   // of speed 1: no ramp
    EXPECT_EQ(at(AfterStep{4}, {{11, 11.9}}, 40), 11);
    EXPECT_EQ(at(AfterStep{4}, {{11.2, 11.6}}, 40), 11.6);
    EXPECT_EQ(at(AtEnd{}, {}, -1), 0);
}

// A phone's recording with captions on a vertical canvas.
struct Reel {
    EffectsSpec spec;
    FlowSpec flow;
    Timeline timeline{{1000, 2000, 60}, {}};

    Reel() {
        spec.output = outputOf(ReelFormat::vertical, 0, 0, 60);
        spec.narration.emplace();
    }
    Caption& add(double tSec, std::string text) {
        const auto index = std::int64_t(timeline.events.size());
        timeline.events.push_back({.index = index, .type = "tap", .tSec = tSec});
        flow.steps.push_back({.index = index});
        Caption& caption = spec.narration->captions.emplace_back();
        caption.stepIndex = index;
        caption.text = std::move(text);
        caption.window = {tSec + 0.4, tSec + 2};
        return caption;
    }
    TypographyAuthor::Report apply(const TypographyOverride& override = {}) {
        const auto directives = TypographyResolver::build(&flow, override);
        return TypographyAuthor::apply(spec, directives, &flow, timeline);
    }
    const Caption& caption(std::size_t i) const { return spec.narration->captions.at(i); }
};

TEST(TypographyAuthor, MakesCaptionsMoveInASizeThatFits) {
    Reel reel;
    reel.add(2, "Save");
    reel.add(8, "All in one place");
    reel.add(14, "All of your work in one place for all to see");
    EXPECT_THAT(reel.apply().notes, ElementsAre());
    const double sizes[] = {
        0.054, 0.038, 0.026};   // steps of 0.004 from 0.03; a step more would be too wide; as it is
    for (std::size_t i = 0; i < 3; ++i) {
        const Caption& caption = reel.caption(i);
        ASSERT_TRUE(caption.kinetic && caption.style);
        EXPECT_EQ(caption.kinetic->presetID, "fade-up");
        EXPECT_NEAR(*caption.style->fontSizeFraction, sizes[i], 1e-9);
        EXPECT_EQ(caption.style->textColor, RGBAColor::white);
        EXPECT_EQ(caption.style->textShadow, TextShadow::standard);
        EXPECT_FALSE(caption.position);
    }
    EXPECT_EQ(reel.spec.narration->kineticDefaults->presetID, "fade-up");
}

TEST(TypographyAuthor, LooksForRoomAroundTheDevice) {
    Reel reel;
    for (const char* zone : {"left", "upper", "center", "lower"}) {
        reel.add(2 + 6.0 * double(reel.flow.steps.size()), "Save");
        reel.flow.steps.back().typography = StepTypography{.zone = zone};
    }
    reel.spec.background.padding = 300;
    const auto report = reel.apply();
    // On a vertical canvas the device fills the width, so that nothing stands beside it.
    EXPECT_THAT(report.notes, ElementsAre("caption[0] zone left→lower (didn't fit)."));
    const PixelRect frame = CanvasGeometry::deviceFrameRect(reel.spec);
    EXPECT_FALSE(reel.caption(0).position);
    EXPECT_NEAR(reel.caption(1).position->y, (0.04 * 1920 + frame.y) / (2 * 1920), 1e-12);
    EXPECT_EQ(reel.caption(2).position, (NormalizedPoint{0.5, 0.5}));
    EXPECT_FALSE(reel.caption(3).position);

    Reel wide;
    wide.spec.output = outputOf(ReelFormat::horizontal, 0, 0, 60);
    wide.add(2, "Save").style = CaptionStyleOverride{.barColor = RGBAColor::black};
    wide.flow.steps.back().typography = StepTypography{.zone = "right"};
    EXPECT_TRUE(wide.apply().notes.empty());
    EXPECT_GT(wide.caption(0).position->x, 0.6);
    EXPECT_EQ(wide.caption(0).style->barColor, RGBAColor::black);
}

TEST(TypographyAuthor, LeavesACaptionOnACutAsItWas) {
    Reel reel;
    reel.add(2, "Save the day");
    reel.flow.steps[0].typography = StepTypography{.emphasis = {{{1, 7}, "highlight"}}};
    reel.spec.cuts = {{Cut::Kind::trim, {3, 3.5}}};
    const Caption before = reel.caption(0);
    EXPECT_THAT(reel.apply().notes, ElementsAre("caption[0] dropped out-of-range emphasis indices.",
                                        "caption[0] intersects a cut/ramp → legacy bar."));
    Caption expected = before;
    expected.emphasis = reel.caption(0).emphasis;
    EXPECT_EQ(reel.caption(0), expected);
    ASSERT_EQ(expected.emphasis.size(), 1u);
    EXPECT_EQ(expected.emphasis[0].wordIndices, std::vector<std::int64_t>{1});
    EXPECT_EQ(expected.emphasis[0].token, EmphasisToken::highlight);
}

TEST(TypographyAuthor, AStepsIntensityCountsUnlessItIsForced) {
    Reel reel;
    reel.add(2, "Save");
    reel.flow.steps[0].typography = StepTypography{.preset = "slam", .intensity = "low"};
    reel.apply();
    EXPECT_EQ(reel.caption(0).kinetic->presetID, "slam");
    EXPECT_EQ(reel.caption(0).kinetic->intensity, KineticIntensity::low);
    reel.apply(TypographyOverride::parse("high"));
    EXPECT_EQ(reel.caption(0).kinetic->intensity, KineticIntensity::high);
}

TEST(TypographyAuthor, WritesInAToneThatTheBackgroundBears) {
    const BackgroundFill light = RGBAColor{1, 1, 0.9, 1};
    EXPECT_NEAR(TypographyAuthor::backgroundMidLuminance(light), 0.2126 + 0.7152 + 0.0722 * 0.9, 1e-12);
    EXPECT_EQ(TypographyAuthor::backgroundMidLuminance(BackgroundImage{}), 0.2);
    EXPECT_EQ(TypographyAuthor::backgroundMidLuminance(LinearGradient{}), 0.2);
    const BackgroundFill gradient =
        LinearGradient{{{RGBAColor::white, 1}, {RGBAColor{0.5, 0.5, 0.5, 1}, 0.5}, {RGBAColor::black, 0}}, 0};
    EXPECT_NEAR(TypographyAuthor::backgroundMidLuminance(gradient), 0.5, 1e-12);

    Reel reel;
    reel.add(2, "one two three");
    reel.spec.background.fill = light;
    reel.apply(TypographyOverride::parse("karaoke-fill"));
    EXPECT_EQ(reel.caption(0).style->textColor, (RGBAColor{0.06, 0.06, 0.08, 1}));
    EXPECT_EQ(reel.caption(0).kinetic->inPhase.color, (RGBAColor{0.06, 0.06, 0.08, 0.42}));
    reel.spec.deviceScene.emplace().enabled = true;
    reel.spec.deviceScene->backdrop = RGBAColor::black;
    reel.apply();
    EXPECT_EQ(reel.caption(0).style->textColor, RGBAColor::white);
}

TEST(TypographyAuthor, CaptionsHaveTimeToMoveAndNeverCrowdTheScreen) {
    SeededRandom dice("typography");
    for (int i = 0; i < 150; ++i) {
        Reel reel;
        double t = 0;
        for (int k = 0; k < 7; ++k) {
            std::string text = "word";
            for (auto n = dice.next() % 7; n > 0; --n) text += " more";
            reel.add(t += dice.next(0, 2.5), text);
        }
        if (dice.nextBool()) reel.flow.typography = FlowTypography{.bpm = dice.next(40, 200)};
        reel.apply(TypographyOverride::parse(dice.nextBool() ? "char-cascade:high" : "karaoke-fill"));
        std::vector<TimeRangeSec> windows;
        for (std::size_t k = 0; k < 7; ++k) {
            const Caption& caption = reel.caption(k);
            ASSERT_TRUE(caption.kinetic);
            ASSERT_GE(caption.window.startSec, reel.timeline.events[k].tSec - 1e-9);
            windows.push_back({caption.window.startSec, caption.window.endSec - 1e-9});
            const double need = KineticTiming::minWindowSec(*caption.kinetic, caption.text);
            const double lastEnd = reel.timeline.events.back().tSec + 2;
            if (reel.timeline.events[k].tSec + need < lastEnd) {
                ASSERT_GE(caption.window.endSec - caption.window.startSec, need - 1e-9);
            }
        }
        std::ranges::sort(windows, {}, &TimeRangeSec::startSec);
        ASSERT_LE(CaptionLaneLayout::maxConcurrent(windows), 3u);
    }
}

TEST(TypographyAuthor, AThirdCaptionWaitsForTheFirstToEnd) {
    Reel reel;
    for (int k = 0; k < 3; ++k) reel.add(2, "Save").window = {2, 5};
    reel.apply();
    EXPECT_EQ(reel.caption(1).window.startSec, 2);
    EXPECT_EQ(reel.caption(2).window, (TimeRangeSec{5, 8}));
}

TEST(TypographyAuthor, StartsOnABeatNearBy) {
    Reel reel;
    reel.add(2.1, "Save");
    reel.add(20, "Later");
    reel.flow.typography = FlowTypography{.bpm = 60};
    reel.apply();
    EXPECT_EQ(reel.caption(0).window.startSec, 3);   // the nearest to 2.5 at or after it
    EXPECT_EQ(reel.spec.narration->beatGrid, (BeatGrid{60, 0}));
}

CardSpec cardSpec(std::string at, std::string headline, std::optional<std::int64_t> after = {}) {
    return {.at = std::move(at), .afterStep = after, .headline = std::move(headline)};
}

TEST(TypographyAuthor, WritesThreeCardsAtMostInTheirOrder) {
    Reel reel;
    reel.add(5, "Save");
    reel.flow.steps[0].dwellAfterMs = 100;
    reel.flow.typography = FlowTypography{.cards = {cardSpec("end", "Bye"), cardSpec("afterStep", "Then", 0),
                                              cardSpec("afterStep", "Where"), cardSpec("start", "  ")}};
    reel.flow.typography->cards[3].showLogo = true;
    const auto report = reel.apply();
    EXPECT_THAT(report.notes, ElementsAre("cards: dropped 1 beyond the 3-card cap.",
                                  "card 0: showLogo requested but logo export is not available yet."));
    EXPECT_THAT(
        report.errors, ElementsAre("card 0 has an empty headline.", "card afterStep missing an index."));
    ASSERT_EQ(reel.spec.titleCards.size(), 3u);
    EXPECT_EQ(reel.spec.titleCards[0].anchor, TitleCardAnchor(AtStart{}));
    EXPECT_FALSE(reel.spec.titleCards[0].showLogo);
    EXPECT_EQ(reel.spec.titleCards[1].anchor, TitleCardAnchor(AfterStep{0}));
    EXPECT_EQ(reel.spec.titleCards[2].anchor, TitleCardAnchor(CustomAnchor{}));
    // 5.1 lies before the caption, which starts at 5.4.
    EXPECT_NEAR(reel.spec.titleCards[1].insertionSec, 5.1, 1e-12);
    EXPECT_EQ(reel.spec.titleCards[2].headline.kinetic.presetID, "line-rise");
}

TEST(TypographyAuthor, GivesCardsTheirSizeLengthAndColours) {
    Reel reel;
    reel.spec.narration.reset();
    reel.spec.brand = BrandKit{.accent = {1, 0.5, 0, 1}};
    reel.flow.typography =
        FlowTypography{.intensity = "high", .bpm = 120, .cards = {cardSpec("start", "A new day for all")}};
    reel.flow.typography->cards[0].subline = "and more";
    reel.flow.typography->cards[0].length = "short";
    reel.flow.typography->cards[0].emphasis = {{{1}, "accent"}};
    reel.apply();
    const TitleCard& card = reel.spec.titleCards.at(0);
    EXPECT_TRUE(reel.spec.narration);   // for the beats
    EXPECT_NEAR(card.headline.sizeFraction, 0.058 * 1.12, 1e-12);
    EXPECT_NEAR(card.subline->sizeFraction, 0.058 * 1.12 / 2, 1e-12);
    EXPECT_EQ(card.headline.fontWeight, FontWeight::bold);
    EXPECT_EQ(card.headline.emphasis.size(), 1u);
    EXPECT_GT(card.subline->delaySec, card.headline.delaySec);
    const auto& gradient = std::get<LinearGradient>(*card.background);
    EXPECT_EQ(gradient.angleDegrees, 30);
    EXPECT_NEAR(gradient.stops[0].color.r, 0.45, 1e-12);
    EXPECT_NEAR(gradient.stops[1].color.g, 0.09, 1e-12);
    EXPECT_EQ(card.headline.color, RGBAColor::white);
    const double beats = card.durationSec / 0.5;
    EXPECT_NEAR(beats, std::round(beats), 1e-9);
    EXPECT_GE(card.durationSec, 1.6);
    reel.spec.brand.reset();
    reel.apply();
    EXPECT_EQ(*reel.spec.titleCards.at(0).background, BackgroundFill(LinearGradient::standard()));
    reel.spec.deviceScene.emplace().enabled = true;
    reel.apply();
    EXPECT_EQ(*reel.spec.titleCards.at(0).background, reel.spec.background.fill);
}

}   // namespace
}   // namespace tavix
