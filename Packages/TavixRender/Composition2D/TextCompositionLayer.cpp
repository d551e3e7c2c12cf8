#include "TavixRender/Composition2D/TextCompositionLayer.h"

#include "TavixCore/Typography/EmphasisResolver.h"
#include "TavixCore/Typography/KineticPresetCatalog.h"
#include "TavixCore/Values/TextWords.h"
#include "TavixRender/Typesetting/CompositionFontResolver.h"

#include <algorithm>

namespace tavix {

namespace {

constexpr double leastTrackingEm = 0.05, wideTrackingEm = 0.35;
constexpr std::string_view enSpace = "\u2002", thinSpace = "\u2009";

CaptionStyle captionStyle(const TextContent& content, const ResolvedFont& font) {
    CaptionStyle style;
    style.fontName = font.name;
    style.fontPath = font.path;
    style.fontSizeFraction = content.sizeFraction;
    style.fontWeight = content.fontWeight;
    style.textColor = content.color;
    style.textShadow = content.shadow;
    style.safeInsetFraction = std::max((1 - content.maxWidthFraction) / 2, 0.0);
    style.maxBarWidthFraction = content.maxWidthFraction;
    style.barColor = {0, 0, 0, 0};
    style.cornerRadius = 0;
    style.fadeSec = 0;
    return style;
}

// A token without a style of its own gets the one that it stands for.
std::vector<EmphasisSpan> looked(std::vector<EmphasisSpan> spans, const CaptionStyle& style) {
    for (EmphasisSpan& span : spans)
        if (span.style == EmphasisStyle{})
            span.style =
                EmphasisResolver::resolve(span.token, style, nullptr, KineticIntensity::medium, std::nullopt);
    return spans;
}

}   // namespace

std::string TextCompositionLayer::tracked(std::string_view text, double em) {
    if (!(em > leastTrackingEm)) return std::string(text);
    const std::string_view separator = em > wideTrackingEm ? enSpace : thinSpace;
    std::string result;
    for (const std::string_view character : KineticMath::characters(text)) {
        if (character == " ") {
            result += enSpace;
            continue;
        }
        result += character;
        if (!KineticMath::isLineBreak(character)) result += separator;   // which would shift the next line
    }
    return result;
}

std::vector<EmphasisSpan> TextCompositionLayer::trackedEmphasis(
    const std::vector<EmphasisSpan>& spans, std::string_view text, double em) {
    if (!(em > leastTrackingEm)) return spans;
    std::vector<std::int64_t> firstLetters{0};   // of each word, and the count of all
    for (const KineticMath::Word& word : KineticMath::words(text))
        firstLetters.push_back(firstLetters.back() + std::int64_t(word.range.end - word.range.begin));
    const auto wordCount = std::int64_t(firstLetters.size()) - 1;
    std::vector<EmphasisSpan> result;
    for (const EmphasisSpan& span : spans) {
        EmphasisSpan letters{{}, span.token, span.style};
        for (const std::int64_t word : span.wordIndices)
            if (word >= 0 && word < wordCount)
                for (std::int64_t i = firstLetters[std::size_t(word)];
                     i < firstLetters[std::size_t(word) + 1]; ++i)
                    letters.wordIndices.push_back(i);
        result.push_back(std::move(letters));
    }
    return result;
}

KineticStyle TextCompositionLayer::styleOf(const TextContent& content, std::int64_t presetSeed) {
    if (const auto* style = std::get_if<KineticStyle>(&content.kinetic)) return *style;
    return KineticPresetCatalog::resolve(
        {std::get<KineticPresetRef>(content.kinetic), content.text, presetSeed, std::nullopt})
        .style;
}

std::optional<KineticTextLayout::Result> TextCompositionLayer::layout(const TextContent& content,
    const Setting& setting, const KineticStyle& style, const text::FontBook& book) {
    const ResolvedFont font =
        CompositionFontResolver::resolve(content.font, setting.fonts, setting.assetRoot, book);
    KineticTextLayout::Request request;
    request.text = tracked(content.text, content.trackingEm);
    request.style = captionStyle(content, font);
    request.emphasisSpans =
        trackedEmphasis(looked(content.emphasis, request.style), content.text, content.trackingEm);
    request.scope = style.scope;
    request.position = setting.position;
    request.colorAnimated = style.inPhase.color || style.outPhase.color;
    request.width = setting.bounds.width;
    request.height = setting.bounds.height;
    request.alignment = content.alignment;
    return KineticTextLayout::build(request, book);
}

TextCompositionLayer::TextCompositionLayer(const TextContent& content, const Setting& setting,
    std::int64_t presetSeed, const KineticElementGroup::Window& window, const LayerBuild& build) {
    const KineticStyle style = styleOf(content, presetSeed);
    const auto laidOut = layout(content, setting, style, build.fonts);
    if (!laidOut) return;
    if (laidOut->note) tell(build.log, Finding::warning(RenderCode::fontMissing, *laidOut->note));
    block_ = KineticTextBlock(*laidOut, style, window, build.evaluator);
    if (block_.group() && block_.group()->isCut())
        tell(build.log, Finding::warning(RenderCode::textCut,
                            "A text is too long to be drawn whole; split it into several layers."));
}

}   // namespace tavix
