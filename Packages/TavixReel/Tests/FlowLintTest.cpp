#include "TavixReel/Lint/FlowSpecLint.h"

#include "TavixCore/Support/Names.h"
#include "TavixReel/Flow/FlowSpec.h"

#include <gmock/gmock.h>

#include <functional>

namespace tavix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Matcher;
using testing::StartsWith;

std::vector<std::string> linted(const FlowSpec& flow) {
    std::vector<std::string> lines;
    for (const auto& finding : FlowSpecLint::lint(flow))
        lines.push_back((finding.level == Finding::Level::error ? "E " : "W ") + finding.message);
    return lines;
}

FlowSpec flowOf(std::vector<Step> steps) {
    FlowSpec flow;
    flow.steps = std::move(steps);
    return flow;
}

Step styled(std::int64_t index, std::string style, std::optional<std::string> timing = {}) {
    Step step;
    step.index = index;
    step.transition = std::move(style);
    step.transitionTiming = std::move(timing);
    return step;
}

TEST(FlowLint, AnEmptyFlowIsFine) {
    EXPECT_THAT(linted({}), IsEmpty());
    EXPECT_FALSE(FlowSpecLint::summary({}));
    EXPECT_THAT(linted(flowOf({styled(9, "ripple"), styled(2, "flip", "gentle")})), IsEmpty());
}

TEST(FlowLint, KeepsTransitionsFewFarAndUnlike) {
    FlowSpec flow =
        flowOf({styled(4, "ripple"), styled(3, "flip", "bouncy"), styled(8, "ripple"), styled(6, "spin")});
    flow.steps.push_back({.index = 1, .flip = true});
    flow.steps.push_back({.index = 10, .flip = false});
    EXPECT_THAT(linted(flow),
        ElementsAre(
            "E steps[6].transition \"spin\" is not a known style (flip, wipe, push, crossZoom, dreamyZoom, crosswarp, ripple, fade).",
            "W 5 transitions — a reel reads best with ≤2; extras compete for attention.",
            "W 2 flips — keep one per reel; the flip is the single biggest context change and repeats dilute it.",
            "W 3 accent transitions (flip, ripple, ripple) — one accent per reel; the rest should be flip/wipe/push/crossZoom on a gentle/snappy timing.",
            "W transitions on adjacent steps 3 and 4 — space them out so they don't flicker into each other.",
            "W consecutive flip transitions (steps 1, 3) — vary the style so the reel doesn't feel repetitive."));

    FlowSpec inPlace = flowOf({styled(2, "wipe")});
    inPlace.steps[0].interaction = Interaction::scroll;
    EXPECT_THAT(linted(inPlace),
        ElementsAre(
            "W steps[2] has a wipe transition on a scroll — that interaction stays on one screen, so there is nothing to transition to."));
    inPlace.steps[0].interaction = Interaction::toggle;
    EXPECT_THAT(linted(inPlace),
        ElementsAre(
            "W steps[2] wipe on a toggle — usually an in-place change; keep the transition only if the whole screen swaps."));
}

// Each row changes one thing of a flow that is fine.
TEST(FlowLint, JudgesTheBlock) {
    const struct {
        std::function<void(FlowTypography&)> change;
        std::vector<std::string> findings;
    } cases[] = {
        {[](auto&) {}, {}},
        {[](auto& t) { t.style = "wave"; }, {"E typography.style: unknown value \"wave\" (use word-pop,"}},
        {[](auto& t) { t.speed = "fast"; },
            {"E typography.speed: unknown value \"fast\" (use snap, smooth, glacial)"}},
        {[](auto& t) { t.phoneChoreography = "wild"; },
            {"E typography.phoneChoreography: unknown value \"wild\" (use auto, off)"}},
        {[](auto& t) { t.bpm = 0; }, {"E typography.bpm 0 out of range (0 < bpm ≤ 300)."}},
        {[](auto& t) { t.bpm = 301; }, {"E typography.bpm 301 out of range (0 < bpm ≤ 300)."}},
        {[](auto& t) { t.bpm = 300; },
            {"W typography.bpm 300 outside 40–200 — the grid is ignored with a note."}},
        {[](auto& t) { t.bpm = 40; }, {}},
        {[](auto& t) { t.bpm = 200.5; },
            {"W typography.bpm 200.5 outside 40–200 — the grid is ignored with a note."}},
        {[](auto& t) { t.offsetSec = -1; },
            {"E typography.offsetSec must be ≥ 0.", "E typography.offsetSec present without a bpm."}},
        {[](auto& t) { t.cards.resize(4, t.cards[0]); },
            {"W typography.cards: 4 cards — extras beyond 3 are dropped at author time.",
                "W 4 cards on anchor \"start\" — check pacing."}},
        {[](auto& t) { t.cards[0].at = "middle"; },
            {"E cards[0].at: unknown value \"middle\" (use start, afterStep, end)"}},
        {[](auto& t) { t.cards[0].headline = " "; }, {"E cards[0] has an empty headline."}},
        {[](auto& t) { t.cards[0].showLogo = true; },
            {"W cards[0].showLogo requires a themed run (--theme-from-app / --brand-bundle)."}},
        {[](auto& t) { t.cards[0].at = "afterStep"; },
            {"E cards[0].at == afterStep but afterStep is missing."}},
        {[](auto& t) { t.cards[0].afterStep = 5; }, {"W cards[0].afterStep present but at != afterStep."}},
        {[](auto& t) { t.cards[0].at = "afterStep", t.cards[0].afterStep = 77; },
            {"E cards[0].afterStep 77 names no step index."}},
        {[](auto& t) { t.cards[0].at = "afterStep", t.cards[0].afterStep = 5; },
            {"W cards[0] anchors after a flip step (visual overload)."}},
        {[](auto& t) {
             t.cards[0].emphasis = {{{}, "loud"}, {{-1, 2}, "accent"}};
         },
            {"E cards[0].emphasis[0].token: unknown value \"loud\"",
                "E cards[0].emphasis[0] has an empty wordIndices array.",
                "E cards[0].emphasis[1] has a negative word index -1.",
                "E cards[0].emphasis[1] word index 2 is out of bounds (2 word(s))."}},
        {[](auto& t) { t.cards.clear(); },
            {"W typography block with zero captioned steps and zero cards is a no-op."}},
    };
    for (const auto& c : cases) {
        FlowSpec flow = flowOf({styled(5, "flip")});
        flow.typography = FlowTypography{.cards = {{.headline = "Two words"}}};
        c.change(*flow.typography);
        std::vector<Matcher<std::string>> expected;
        for (const std::string& finding : c.findings) expected.push_back(StartsWith(finding));
        EXPECT_THAT(linted(flow), testing::ElementsAreArray(expected));
    }
}

TEST(FlowLint, JudgesSteps) {
    const struct {
        std::function<void(Step&)> change;
        std::vector<std::string> findings;
    } cases[] = {
        {[](auto&) {}, {}},
        {[](auto& s) { s.typography->preset = "wave"; },
            {"E steps[5].typography.preset: unknown value \"wave\""}},
        {[](auto& s) { s.typography->zone = "left"; },
            {"W steps[5] zone left parks only in 3D or wide formats — see the format→zones table."}},
        {[](auto& s) { s.typography->phone = "park-left"; },
            {"W steps[5].typography.phone requires deviceScene: true at run time."}},
        {[](auto& s) { s.caption.reset(); }, {"W steps[5].typography on a caption-less step is a no-op."}},
        {[](auto& s) {
             s.caption.reset(), s.typography->emphasis = {{{0}, "accent"}};
         },
            {"E steps[5].emphasis[0] word index 0 is out of bounds (0 word(s)).",
                "W steps[5].typography on a caption-less step is a no-op.",
                "W steps[5] has emphasis but no caption copy."}},
        {[](auto& s) { s.caption = "1 2 3 4 5 6 7 8 9"; }, {}},
        {[](auto& s) { s.caption = "1 2 3 4 5 6 7 8 9 10"; },
            {"W steps[5] caption is 10 words — long for a kinetic preset."}},
        {[](auto& s) { s.typography->preset = "char-cascade", s.caption = "fifteen letters"; },
            {"W steps[5] char-cascade on 15 chars downgrades to word scope."}},
        {[](auto& s) { s.typography->preset = "char-cascade", s.caption = "fourteen lette"; }, {}},
        {[](auto& s) { s.typography->preset = "word-pop", s.caption = "a b c d e f"; },
            {"W steps[5] word-pop on 6 words downgrades to line scope."}},
        {[](auto& s) { s.typography->preset = "karaoke-fill", s.caption = "One"; },
            {"W steps[5] karaoke-fill on 1 word has nothing to sweep."}},
    };
    for (const auto& c : cases) {
        Step step;
        step.index = 5;
        step.caption = "Two words";
        step.typography.emplace();
        c.change(step);
        FlowSpec flow = flowOf({step});
        flow.output.aspect = OutputConfig::Aspect::vertical;
        std::vector<Matcher<std::string>> expected;
        for (const std::string& finding : c.findings) expected.push_back(StartsWith(finding));
        EXPECT_THAT(linted(flow), testing::ElementsAreArray(expected));
    }
    // The preset of the whole flow counts where a step has none.
    FlowSpec flow = flowOf({{.index = 5, .caption = "One", .typography = StepTypography{}}});
    flow.typography = FlowTypography{.style = "karaoke-fill"};
    EXPECT_THAT(linted(flow), ElementsAre("W steps[5] karaoke-fill on 1 word has nothing to sweep."));
}

TEST(FlowLint, SumsUpInALine) {
    FlowSpec flow = flowOf({{.typography = StepTypography{}}, {}});
    EXPECT_EQ(FlowSpecLint::summary(flow), "Typography: 1 kinetic step(s).");
    flow.typography = FlowTypography{.bpm = 119.7, .cards = {{}, {}}};
    EXPECT_EQ(FlowSpecLint::summary(flow),
        "Typography: style fade-up (medium), 1 kinetic step(s), 2 card(s). 120 bpm grid.");
}

}   // namespace
}   // namespace tavix
