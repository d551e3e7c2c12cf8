// Words that exist, emphasis on words that are there, and texts that will move well.
#include "TavixBase/TextTrimming.h"
#include "TavixCore/Typography/KineticVocabulary.h"
#include "TavixCore/Values/TextWords.h"
#include "TavixReel/Lint/FlowLintReport.h"

#include <algorithm>
#include <map>

namespace tavix::FlowSpecLint {
namespace {

namespace Words = KineticVocabulary;

void lintTempo(const FlowTypography& typography, Report& report) {
    constexpr double mostBpm = 300, leastUsedBpm = 40, mostUsedBpm = 200;
    if (typography.bpm) {
        const double bpm = *typography.bpm;
        if (!(bpm > 0 && bpm <= mostBpm))
            report.error("typography.bpm ", bpm, " out of range (0 < bpm ≤ 300).");
        else if (bpm < leastUsedBpm || bpm > mostUsedBpm)
            report.warning("typography.bpm ", bpm, " outside 40–200 — the grid is ignored with a note.");
    }
    if (typography.offsetSec && *typography.offsetSec < 0) report.error("typography.offsetSec must be ≥ 0.");
    if (typography.offsetSec && !typography.bpm) report.error("typography.offsetSec present without a bpm.");
}

const Step* stepWith(std::int64_t index, std::span<const Step> steps) {
    const auto found = std::ranges::find(steps, index, &Step::index);
    return found == steps.end() ? nullptr : &*found;
}

void lintAnchor(const CardSpec& card, const std::string& path, std::span<const Step> steps, Report& report) {
    const bool isAfterStep = card.at == "afterStep";
    if (isAfterStep && !card.afterStep) report.error(path, ".at == afterStep but afterStep is missing.");
    if (!isAfterStep && card.afterStep) report.warning(path, ".afterStep present but at != afterStep.");
    if (!isAfterStep || !card.afterStep) return;
    const Step* step = stepWith(*card.afterStep, steps);
    if (!step) report.error(path, ".afterStep ", *card.afterStep, " names no step index.");
    if (step && step->resolvedTransitionStyle() == TransitionStyle::flip)
        report.warning(path, " anchors after a flip step (visual overload).");
}

void lintCard(const CardSpec& card, std::size_t index, std::span<const Step> steps, Report& report) {
    const std::string path = "cards[" + std::to_string(index) + "]";
    report.checkWord(card.at, Words::cardAnchors, path + ".at");
    report.checkWord(card.preset, Words::presetIDs, path + ".preset");
    report.checkWord(card.length, Words::cardLengths, path + ".length");
    if (trimmed(card.headline).empty()) report.error(path, " has an empty headline.");
    if (card.showLogo)
        report.warning(path, ".showLogo requires a themed run (--theme-from-app / --brand-bundle).");
    lintAnchor(card, path, steps, report);
    report.checkEmphasis(card.emphasis, card.headline, path + ".emphasis");
    report.checkEmphasis(card.sublineEmphasis, card.subline.value_or(""), path + ".sublineEmphasis");
}

// As in "afterStep 3": steps are anchors of their own.
std::string anchorOf(const CardSpec& card) {
    return card.at == "afterStep" && card.afterStep ? card.at + " " + std::to_string(*card.afterStep)
                                                    : card.at;
}

void lintSharedAnchors(const std::vector<CardSpec>& cards, Report& report) {
    std::map<std::string, std::size_t> counts;
    for (const CardSpec& card : cards) ++counts[anchorOf(card)];
    for (const auto& [anchor, count] : counts)
        if (count > 1) report.warning(count, " cards on anchor \"", anchor, "\" — check pacing.");
}

void lintBlock(const FlowTypography& typography, std::span<const Step> steps, Report& report) {
    constexpr std::size_t mostCards = 3;
    report.checkWord(typography.style, Words::presetIDs, "typography.style");
    report.checkWord(typography.speed, Words::speeds(), "typography.speed");
    report.checkWord(typography.weight, Words::weights(), "typography.weight");
    report.checkWord(typography.intensity, Words::intensities(), "typography.intensity");
    report.checkWord(
        typography.phoneChoreography, Words::phoneChoreographyModes, "typography.phoneChoreography");
    lintTempo(typography, report);
    const std::vector<CardSpec>& cards = typography.cards;
    if (cards.size() > mostCards)
        report.warning(
            "typography.cards: ", cards.size(), " cards — extras beyond 3 are dropped at author time.");
    for (std::size_t i = 0; i < cards.size(); ++i) lintCard(cards[i], i, steps, report);
    lintSharedAnchors(cards, report);
    const bool hasText =
        std::ranges::any_of(steps, [](const Step& step) { return step.caption && step.typography; });
    if (!hasText && cards.empty())
        report.warning("typography block with zero captioned steps and zero cards is a no-op.");
}

// What will not move as asked.
void lintPreset(std::string_view preset, std::string_view caption, const std::string& path, Report& report) {
    constexpr std::size_t mostCascading = 14, mostMoving = 5;
    const std::size_t words = KineticMath::words(caption).size();
    const std::size_t characters = KineticMath::characters(caption).size();
    if (preset == "char-cascade" && characters > mostCascading)
        report.warning(path, " char-cascade on ", characters, " chars downgrades to word scope.");
    if ((preset == "word-pop" || preset == "karaoke-fill") && words > mostMoving)
        report.warning(path, " ", preset, " on ", words, " words downgrades to line scope.");
    if (preset == "karaoke-fill" && words == 1)
        report.warning(path, " karaoke-fill on 1 word has nothing to sweep.");
}

void lintStep(const Step& step, const FlowSpec& flow, Report& report) {
    constexpr std::size_t manyWords = 10;
    const StepTypography& typography = *step.typography;
    const std::string path = "steps[" + std::to_string(step.index) + "]", block = path + ".typography";
    report.checkWord(typography.preset, Words::presetIDs, block + ".preset");
    report.checkWord(typography.speed, Words::speeds(), block + ".speed");
    report.checkWord(typography.weight, Words::weights(), block + ".weight");
    report.checkWord(typography.intensity, Words::intensities(), block + ".intensity");
    report.checkWord(typography.zone, Words::zones, block + ".zone");
    report.checkWord(typography.phone, Words::phoneMoves, block + ".phone");
    report.checkEmphasis(typography.emphasis, step.caption.value_or(""), path + ".emphasis");
    if (!step.caption) report.warning(block, " on a caption-less step is a no-op.");
    if (!step.caption && !typography.emphasis.empty())
        report.warning(path, " has emphasis but no caption copy.");
    if (typography.phone) report.warning(block, ".phone requires deviceScene: true at run time.");
    const std::string caption = step.caption.value_or("");
    const std::size_t words = KineticMath::words(caption).size();
    if (words >= manyWords)
        report.warning(path, " caption is ", words, " words — long for a kinetic preset.");
    if ((typography.zone == "left" || typography.zone == "right") &&
        flow.output.aspect == OutputConfig::Aspect::vertical)
        report.warning(path, " zone ", *typography.zone,
            " parks only in 3D or wide formats — see the format→zones table.");
    const std::optional<std::string> reelStyle = flow.typography ? flow.typography->style : std::nullopt;
    lintPreset(typography.preset.value_or(reelStyle.value_or(std::string(Words::defaultPreset))), caption,
        path, report);
}

}   // namespace

void lintTypography(const FlowSpec& flow, std::span<const Step> sortedSteps, Report& report) {
    if (flow.typography) lintBlock(*flow.typography, sortedSteps, report);
    for (const Step& step : sortedSteps)
        if (step.typography) lintStep(step, flow, report);
}

}   // namespace tavix::FlowSpecLint
