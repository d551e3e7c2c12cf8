// Few transitions, far apart, no two alike, and only where a screen gives way to another.
#include "TavixCore/Support/Names.h"
#include "TavixReel/Lint/FlowLintReport.h"

#include <algorithm>

namespace tavix::FlowSpecLint {
namespace {

struct StyledStep {
    const Step& step;
    std::optional<TransitionStyle> style;
};

bool isInPlace(Interaction interaction) {
    return interaction == Interaction::textEntry || interaction == Interaction::scroll;
}

bool isOftenInPlace(Interaction interaction) {
    return interaction == Interaction::toggle || interaction == Interaction::longPress;
}

std::string styleWord(const StyledStep& styled) {
    return styled.style ? std::string(nameOf(*styled.style)) : styled.step.transition.value_or("");
}

void lintStep(const StyledStep& styled, Report& report) {
    const Step& step = styled.step;
    if (!styled.style) {
        std::string known;
        for (const std::string_view name : allNames<TransitionStyle>())
            known.append(known.empty() ? "" : ", ").append(name);
        report.error("steps[", step.index, "].transition \"", styleWord(styled), "\" is not a known style (",
            known, ").");
        return;
    }
    const std::string_view style = nameOf(*styled.style), interaction = nameOf(step.interaction);
    if (isInPlace(step.interaction))
        report.warning("steps[", step.index, "] has a ", style, " transition on a ", interaction,
            " — that interaction stays on one screen, so there is nothing to transition to.");
    if (isOftenInPlace(step.interaction))
        report.warning("steps[", step.index, "] ", style, " on a ", interaction,
            " — usually an in-place change; keep the transition only if the whole screen swaps.");
}

void lintCounts(const std::vector<StyledStep>& styled, Report& report) {
    constexpr std::size_t mostTransitions = 2;
    if (styled.size() > mostTransitions)
        report.warning(
            styled.size(), " transitions — a reel reads best with ≤2; extras compete for attention.");
    const auto flips = std::ranges::count(styled, TransitionStyle::flip, &StyledStep::style);
    if (flips >= 2)
        report.warning(flips,
            " flips — keep one per reel; the flip is the single biggest context change and repeats dilute it.");
    std::string accents;
    std::size_t accentCount = 0;
    for (const StyledStep& one : styled) {
        if (!one.style || !(isAccent(*one.style) || one.step.transitionTiming == "bouncy")) continue;
        accents.append(accentCount++ ? ", " : "").append(nameOf(*one.style));
    }
    if (accentCount > 1)
        report.warning(accentCount, " accent transitions (", accents,
            ") — one accent per reel; the rest should be flip/wipe/push/crossZoom on a gentle/snappy timing.");
}

}   // namespace

void lintTransitions(std::span<const Step> sortedSteps, Report& report) {
    std::vector<StyledStep> styled;
    for (const Step& step : sortedSteps)
        if (step.transition || step.flip.value_or(false))
            styled.push_back({step, step.resolvedTransitionStyle()});
    for (const StyledStep& one : styled) lintStep(one, report);
    lintCounts(styled, report);
    for (std::size_t i = 1; i < styled.size(); ++i) {
        const Step &a = styled[i - 1].step, &b = styled[i].step;
        if (b.index == a.index + 1)
            report.warning("transitions on adjacent steps ", a.index, " and ", b.index,
                " — space them out so they don't flicker into each other.");
    }
    for (std::size_t i = 1; i < styled.size(); ++i)
        if (styled[i].style && styled[i].style == styled[i - 1].style)
            report.warning("consecutive ", nameOf(*styled[i].style), " transitions (steps ",
                styled[i - 1].step.index, ", ", styled[i].step.index,
                ") — vary the style so the reel doesn't feel repetitive.");
}

}   // namespace tavix::FlowSpecLint
