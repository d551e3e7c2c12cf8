#include "TavixRender/KineticText/KineticTextLayout.h"

#include "TavixCore/Values/TextWords.h"
#include "TavixPlatform/Imaging/StopScope.h"
#include "TavixPlatform/Text/FontBook.h"
#include "TavixRender/Compositor/CanvasDrawing.h"
#include "TavixRender/Typesetting/CaptionLayout.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace tavix::KineticTextLayout {
namespace {

// One typeset line in its place.
struct LineGeom {
    text::TypesetLine line;
    double originX = 0, baselineY = 0, width = 0, boxBottomY = 0, boxTopY = 0;
    text::TextRange range;
};

// Margins around the text, in units of its size.
constexpr double padWidthEm = 1.2;    // of both sides together
constexpr double padHeightEm = 0.5;   // of each side
constexpr double minPointSize = 8;

// Byte ranges of what a reader sees as characters or words.
std::vector<text::TextRange> characterRanges(std::string_view text) {
    std::vector<text::TextRange> ranges;
    std::size_t at = 0;
    for (const std::string_view character : KineticMath::characters(text)) {
        ranges.push_back({at, at + character.size()});
        at += character.size();
    }
    return ranges;
}

std::vector<text::TextRange> wordRanges(std::string_view text) {
    const std::vector<text::TextRange> characters = characterRanges(text);
    std::vector<text::TextRange> ranges;
    for (const KineticMath::Word& word : KineticMath::words(text))
        ranges.push_back({characters[word.range.begin].begin, characters[word.range.end - 1].end});
    return ranges;
}

std::vector<text::TextRange> visibleCharacterRanges(std::string_view text) {
    std::vector<text::TextRange> ranges = characterRanges(text);
    std::erase_if(ranges, [&](const text::TextRange& range) {
        return KineticMath::isWhitespace(text.substr(range.begin, range.length()));
    });
    return ranges;
}

using EmphasisByWord = std::map<std::size_t, EmphasisStyle>;

EmphasisByWord emphasisByWord(const std::vector<EmphasisSpan>& spans) {
    EmphasisByWord styles;
    for (const EmphasisSpan& span : spans)
        for (const std::int64_t index : span.wordIndices)
            if (index >= 0) styles.insert_or_assign(static_cast<std::size_t>(index), span.style);
    return styles;
}

class Builder {
public:
    Builder(const Request& request, const text::FontBook& fonts)
        : request_(request), style_(request.style), words_(wordRanges(request.text)),
          emphasis_(emphasisByWord(request.emphasisSpans)),
          pointSize_(std::max(style_.fontSizeFraction * request.height, minPointSize)),
          resolved_(CaptionLayout::resolveFont(style_, pointSize_, fonts)) {
        if (style_.fontWeight) resolved_.font = applyWeight(resolved_.font, *style_.fontWeight);
    }

    Result result() {
        measure();
        Result result;
        result.pointSize = pointSize_;
        result.textColor = style_.textColor;
        result.shadow = style_.textShadow;
        result.canvasWidth = request_.width;
        result.canvasHeight = request_.height;
        result.note = resolved_.note;
        result.block = block_;
        result.roomWidth = roomWidth_;
        result.movedX = moved_.x;
        result.movedY = moved_.y;
        for (const LineGeom& line : lines_)
            result.lines.push_back({line.range, wholeLine(line).rect(), line.line.breaksWord()});
        result.scope = request_.scope;
        for (;;) {
            result.elements = decomposed(result.scope);
            if (result.elements.size() <= maxElements || result.scope == AnimationScope::block) break;
            result.scope = static_cast<AnimationScope>(static_cast<int>(result.scope) - 1);
        }
        result.emphasised = emphasised(result.scope);
        return result;
    }

private:
    text::StyledText styledText() const {
        const imaging::Color fill =
            request_.colorAnimated ? imaging::Color::white() : CanvasDrawing::colorOf(style_.textColor);
        text::StyledText styled{request_.text, resolved_.font, fill};
        styled.hasLigatures = request_.scope != AnimationScope::character;
        for (const auto& [word, look] : emphasis_) {
            if (word >= words_.size()) break;
            const bool hasColor = look.textColor && !request_.colorAnimated;
            if (!hasColor && !look.fontWeight) continue;
            styled.ranges.push_back({words_[word],
                look.fontWeight ? applyWeight(resolved_.font, *look.fontWeight) : resolved_.font,
                hasColor ? CanvasDrawing::colorOf(*look.textColor) : fill});
        }
        return styled;
    }

    void measure() {
        const double inset = style_.safeInsetFraction * request_.height;
        const double maxW = std::min(request_.width - 2 * inset, style_.maxBarWidthFraction * request_.width);
        const double padW = padWidthEm * pointSize_, padV = padHeightEm * pointSize_;
        const double wrapW = std::max(maxW - padW, 1.0);
        roomWidth_ = wrapW;
        for (text::TypesetLine& line : CaptionLayout::wrapLines(styledText(), wrapW)) {
            const double width = std::min(line.widthPx(), wrapW);
            const text::TextRange range = line.range();
            lines_.push_back({std::move(line), 0, 0, width, 0, 0, range});
        }
        // The base font alone, so that a heavier word does not push lines apart.
        const text::FontMetrics metrics = resolved_.font.metrics();
        const double lineH = metrics.ascentPx + metrics.descentPx + metrics.leadingPx;
        const double widest = std::ranges::max_element(lines_, {}, &LineGeom::width)->width;
        const double blockW = std::min(padW + widest, maxW);
        const double blockH = 2 * padV + lineH * double(lines_.size());
        const imaging::Point corner = bottomLeft(blockW, blockH, inset);
        block_ = {corner.x, corner.y, blockW, blockH};
        for (std::size_t i = 0; i < lines_.size(); ++i) {
            LineGeom& line = lines_[i];
            line.originX = corner.x + startOf(line.width, widest, blockW);
            line.baselineY = corner.y + blockH - padV - metrics.ascentPx - lineH * double(i);
            line.boxBottomY = line.baselineY - metrics.descentPx;
            line.boxTopY = line.baselineY + metrics.ascentPx;
        }
    }

    // The widest line stays in the middle of the block, and the others are flush with it.
    double startOf(double width, double widest, double blockW) const {
        if (request_.alignment == "left") return (blockW - widest) / 2;
        if (request_.alignment == "right") return (widest + blockW) / 2 - width;
        return (blockW - width) / 2;
    }

    imaging::Point bottomLeft(double blockW, double blockH, double inset) {
        const double width = request_.width, height = request_.height;
        if (!request_.position) return {(width - blockW) / 2, inset};
        double x = request_.position->x * width, y = request_.position->y * height;
        const imaging::Point wished{x, y};
        if (width > 0 && height > 0) {
            x = std::clamp(x, blockW / 2, std::max(width - blockW / 2, blockW / 2));
            y = std::clamp(y, std::min(blockH / 2, height - blockH / 2), height - blockH / 2);
        }
        moved_ = {x - wished.x, y - wished.y};
        return {x - blockW / 2, height - y - blockH / 2};
    }

    // Stops once there are too many: such a scope is not used.
    std::vector<Element> decomposed(AnimationScope scope) const {
        std::vector<Element> elements;
        switch (scope) {
        case AnimationScope::block: {
            std::vector<Fragment> all;
            for (const LineGeom& line : lines_) all.push_back(wholeLine(line));
            add(elements, std::move(all), std::nullopt);
            break;
        }
        case AnimationScope::line:
            for (const LineGeom& line : lines_) {
                if (elements.size() > maxElements) break;
                add(elements, {wholeLine(line)}, std::nullopt);
            }
            break;
        case AnimationScope::word:
            for (std::size_t i = 0; i < words_.size() && elements.size() <= maxElements; ++i) {
                const auto look = emphasis_.find(i);
                add(elements, fragmentsOf(words_[i]),
                    look == emphasis_.end() ? std::nullopt : std::optional(look->second));
            }
            break;
        case AnimationScope::character:
            for (const text::TextRange& character : visibleCharacterRanges(request_.text)) {
                if (elements.size() > maxElements) break;
                add(elements, fragmentsOf(character), std::nullopt);
            }
            break;
        }
        return elements;
    }

    void add(std::vector<Element>& elements, std::vector<Fragment> fragments,
        const std::optional<EmphasisStyle>& emphasis) const {
        imaging::checkStop();
        if (fragments.empty()) return;
        Element element;
        element.logicalIndex = elements.size();
        element.restFill = emphasis ? emphasis->textColor.value_or(style_.textColor) : style_.textColor;
        element.emphasis = emphasis;
        imaging::Rect rect = fragments.front().rect();
        for (const Fragment& fragment : fragments) rect = enclosing(rect, fragment.rect());
        element.restRect = rect;
        element.pivot = rect.center();
        element.fragments = std::move(fragments);
        elements.push_back(std::move(element));
    }

    // Markers are drawn for words that are elements. Letters that are tinted as they move rest in the colour
    // of their element.
    std::vector<EmphasisedInk> emphasised(AnimationScope scope) const {
        const bool areElements = scope == AnimationScope::word;
        std::vector<EmphasisedInk> inks;
        for (const auto& [word, look] : emphasis_) {
            if (word >= words_.size()) break;
            const bool isColored = look.textColor && (areElements || !request_.colorAnimated);
            const RGBAColor color = isColored ? *look.textColor : style_.textColor;
            const auto marker = areElements ? look.highlightColor : std::nullopt;
            if (color == style_.textColor && !marker) continue;
            auto ink = std::ranges::find_if(inks,
                [&](const EmphasisedInk& other) { return other.color == color && other.marker == marker; });
            if (ink == inks.end()) ink = inks.insert(ink, {color, marker, {}});
            for (const Fragment& fragment : fragmentsOf(words_[word])) ink->boxes.push_back(fragment.rect());
        }
        return inks;
    }

    // Unlike a union of areas, one that counts fragments without width too.
    static imaging::Rect enclosing(const imaging::Rect& a, const imaging::Rect& b) {
        return imaging::Rect::fromEdges(std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.maxX(), b.maxX()),
            std::max(a.maxY(), b.maxY()));
    }

    static Fragment wholeLine(const LineGeom& line) {
        return {line.line, line.originX, line.baselineY, line.originX, line.originX + line.width,
            line.boxBottomY, line.boxTopY, line.range};
    }

    std::vector<Fragment> fragmentsOf(const text::TextRange& range) const {
        std::vector<Fragment> fragments;
        auto line = std::ranges::upper_bound(
            lines_, range.begin, {}, [](const LineGeom& geom) { return geom.range.end; });
        for (; line != lines_.end() && line->range.begin < range.end; ++line)
            for (const text::LineSpan& span : line->line.spans(range))
                fragments.push_back({line->line, line->originX, line->baselineY, line->originX + span.x0,
                    line->originX + span.x1, line->boxBottomY, line->boxTopY,
                    text::intersection(range, line->range)});
        return fragments;
    }

    const Request& request_;
    const CaptionStyle& style_;
    std::vector<text::TextRange> words_;
    EmphasisByWord emphasis_;
    double pointSize_;
    CaptionLayout::ResolvedCaptionFont resolved_;
    std::vector<LineGeom> lines_;
    imaging::Rect block_;
    double roomWidth_ = 0;
    imaging::Point moved_;   // y down
};

}   // namespace

imaging::Rect Fragment::rect() const {
    return {spanX0, boxBottomY, std::max(spanX1 - spanX0, 0.0), std::max(boxTopY - boxBottomY, 0.0)};
}

text::LinePart Fragment::part() const {
    if (range == line.range()) return {range, {0, line.widthPx()}};
    return {range, {spanX0 - lineOriginX, spanX1 - lineOriginX}};
}

std::optional<Result> build(const Request& request, const text::FontBook& fonts) {
    if (request.text.empty()) return std::nullopt;
    return Builder(request, fonts).result();
}

text::Font applyWeight(const text::Font& font, FontWeight weight) {
    // The scale of CSS and of the axis: light is 300, and each case weighs 100 more.
    const double axisValue = 300 + 100 * static_cast<double>(weight);
    if (const auto varied = font.withVariation(text::weightAxis, axisValue)) return *varied;
    constexpr double tolerance = 0.12;
    const double wanted = coreTextWeight(weight);
    const text::Font nearest = font.withWeightTrait(wanted);
    if (std::abs(nearest.weightTrait() - wanted) <= tolerance) return nearest;
    if (weight < FontWeight::semibold) return font;
    const text::Font bold = font.withWeightTrait(coreTextWeight(FontWeight::bold));
    return bold.weightTrait() >= coreTextWeight(FontWeight::semibold) ? bold : font;
}

}   // namespace tavix::KineticTextLayout
