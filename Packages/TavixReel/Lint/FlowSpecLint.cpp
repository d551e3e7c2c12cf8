#include "TavixReel/Lint/FlowSpecLint.h"

#include "TavixCore/Support/JsonWriter.h"
#include "TavixCore/Support/Names.h"
#include "TavixCore/Typography/KineticVocabulary.h"
#include "TavixCore/Values/TextWords.h"
#include "TavixReel/Lint/FlowLintReport.h"

#include <algorithm>
#include <cmath>

namespace tavix::FlowSpecLint {

std::string worded(double number) { return std::isfinite(number) ? writeJson(Json(number)) : "a number"; }

void Report::checkWord(const std::optional<std::string>& word, std::span<const std::string_view> allowed,
    const std::string& field) {
    if (!word) return;
    if (const auto problem = KineticVocabulary::problem(*word, allowed, field)) error(*problem);
}

void Report::checkEmphasis(
    const std::vector<EmphasisSpanSpec>& spans, std::string_view text, const std::string& field) {
    const auto count = static_cast<std::int64_t>(KineticMath::words(text).size());
    for (std::size_t i = 0; i < spans.size(); ++i) {
        const std::string path = field + "[" + std::to_string(i) + "]";
        checkWord(spans[i].token, KineticVocabulary::emphasisTokens(), path + ".token");
        if (spans[i].wordIndices.empty()) error(path, " has an empty wordIndices array.");
        for (const std::int64_t index : spans[i].wordIndices) {
            if (index < 0) error(path, " has a negative word index ", index, ".");
            if (index >= count)
                error(path, " word index ", index, " is out of bounds (", count, " word(s)).");
        }
    }
}

std::vector<Finding> lint(const FlowSpec& flow) {
    std::vector<Step> sorted = flow.steps;
    std::ranges::stable_sort(sorted, {}, &Step::index);
    Report report;
    lintTransitions(sorted, report);
    lintTypography(flow, sorted, report);
    return std::move(report.findings);
}

std::optional<std::string> summary(const FlowSpec& flow) {
    const auto steps =
        std::ranges::count_if(flow.steps, [](const Step& step) { return step.typography.has_value(); });
    const auto& typography = flow.typography;
    if (!typography)
        return steps ? std::optional("Typography: " + worded(steps) + " kinetic step(s).") : std::nullopt;
    std::string line =
        "Typography: style " + typography->style.value_or(std::string(KineticVocabulary::defaultPreset)) +
        " (" + typography->intensity.value_or(std::string(KineticVocabulary::defaultIntensity)) + "), " +
        worded(steps) + " kinetic step(s), " + worded(typography->cards.size()) + " card(s).";
    if (typography->bpm) line += " " + worded(std::round(*typography->bpm)) + " bpm grid.";
    return line;
}

}   // namespace tavix::FlowSpecLint
