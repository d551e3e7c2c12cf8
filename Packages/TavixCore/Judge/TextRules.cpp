#include "TavixBase/NearestWord.h"
#include "TavixBase/TextTrimming.h"
#include "TavixCore/Judge/CompositionLint.h"
#include "TavixCore/Judge/LintRules.h"
#include "TavixCore/Typography/KineticVocabulary.h"
#include "TavixCore/Values/TextWords.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

namespace tavix::CompositionLint {
namespace {

constexpr std::size_t quotedCharacters = 24;
constexpr std::size_t sentenceWords = 4;   // from here on a text is read, not recognised
// The eye needs a moment to find a text, and then a moment for each word.
constexpr double findingSec = 0.3, readingSecPerWord = 0.05;
constexpr double safeWidthFraction = 0.42, safeHeightFraction = 0.4;   // each way from the centre

bool isOneOf(std::string_view word, std::initializer_list<std::string_view> words) {
    return std::ranges::find(words, word) != words.end();
}

std::string excerpt(std::string_view text) {
    const std::vector<std::string_view> characters = KineticMath::characters(text);
    if (characters.size() <= quotedCharacters) return std::string(text);
    std::string cut;
    for (std::size_t i = 0; i < quotedCharacters; ++i) cut += characters[i];
    return cut + "…";
}

void presetIsKnown(const TextContent& text, const KeyPath& at, LintReport& report) {
    const auto* reference = std::get_if<KineticPresetRef>(&text.kinetic);
    const auto& known = KineticVocabulary::presetIDs;
    if (!reference || std::ranges::find(known, reference->preset) != known.end()) return;
    const KeyPath kineticAt(at, "kinetic");
    report.tell(Rule::animationUnknown, KeyPath(kineticAt, "preset"),
        worded("Unknown kinetic preset \"{}\" — must be one of {}.", {reference->preset, listed(known)}),
        didYouMean(reference->preset, known));
}

void alignmentIsKnown(const TextContent& text, const KeyPath& at, LintReport& report) {
    if (text.alignment && !isOneOf(*text.alignment, {"left", "center", "right"}))
        report.tell(Rule::alignmentUnknown, KeyPath(at, "alignment"), "alignment must be left|center|right.");
}

void canBeReadInItsTime(
    const LayerScope& scope, const TextContent& text, std::size_t wordCount, LintReport& report) {
    const auto words = static_cast<double>(wordCount);
    const double floorSec = findingSec + readingSecPerWord * words;
    const std::optional<double>& windowSec = scope.layer.durationSec;
    if (windowSec && *windowSec < floorSec)
        report.tell(Rule::textBrief, KeyPath(scope.at, "durationSec"),
            worded("\"{}\" shows for {}s — under the readability floor ({}s for {} word{}).",
                {excerpt(text.text), *windowSec, floorSec, words, wordCount == 1 ? "" : "s"}));
}

void isLargeEnough(const TextContent& text, std::size_t wordCount, const KeyPath& at, LintReport& report) {
    const KeyPath sizeAt(at, "sizeFraction");
    if (text.sizeFraction < labelSizeFloor)
        report.tell(Rule::textSmall, sizeAt,
            worded(
                "sizeFraction {} is below the label minimum {} (≈32px @1080w) — unreadable at video distance.",
                {text.sizeFraction, labelSizeFloor}));
    else if (text.sizeFraction < supportSizeFloor && wordCount >= sentenceWords)
        report.tell(Rule::textSmall, sizeAt,
            worded("sizeFraction {} is below the supporting-copy minimum {} (≈44px @1080w).",
                {text.sizeFraction, supportSizeFloor}));
}

void isInsideTheSafeArea(const LayerScope& scope, LintReport& report) {
    const auto widthPx = static_cast<double>(scope.in.spec.output.widthPx);
    const auto heightPx = static_cast<double>(scope.in.spec.output.heightPx);
    const double reachX = safeWidthFraction * widthPx, reachY = safeHeightFraction * heightPx;
    const PixelPoint& centre = scope.layer.position;
    if (std::abs(centre.x - widthPx / 2) <= reachX && std::abs(centre.y - heightPx / 2) <= reachY) return;
    const auto whole = [](double number) { return std::trunc(number); };
    report.tell(Rule::textPosition, KeyPath(scope.at, "position"),
        worded("Text center ({}, {})px is outside the safe area (within {}×{}px of center ({}, {})).",
            {whole(centre.x), whole(centre.y), whole(reachX), whole(reachY), whole(widthPx / 2),
                whole(heightPx / 2)}));
}

void fontIsAFontFile(
    const LayerScope& scope, const TextContent& text, const KeyPath& at, LintReport& report) {
    if (!text.font || scope.in.spec.fonts.contains(*text.font) || text.font->find('/') == std::string::npos)
        return;
    const std::string extension = lowered(std::filesystem::path(*text.font).extension().string());
    if (!isOneOf(extension, {".ttf", ".otf", ".ttc"}))
        report.tell(Rule::fontKind, KeyPath(at, "font"),
            worded("\"{}\" looks like a path but not a font file (.ttf/.otf/.ttc).", {*text.font}));
}

}   // namespace

void checkContent(const LayerScope& scope, const TextContent& text, LintReport& report) {
    const KeyPath at(scope.at, "text");
    const std::size_t wordCount = KineticMath::words(text.text).size();
    if (wordCount == 0) report.tell(Rule::textEmpty, at, "Text layer has empty copy.");
    presetIsKnown(text, at, report);
    alignmentIsKnown(text, at, report);
    canBeReadInItsTime(scope, text, wordCount, report);
    isLargeEnough(text, wordCount, at, report);
    isInsideTheSafeArea(scope, report);
    fontIsAFontFile(scope, text, at, report);
}

}   // namespace tavix::CompositionLint
