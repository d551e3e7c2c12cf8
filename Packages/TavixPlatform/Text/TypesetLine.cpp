#include "TavixPlatform/Text/LineData.h"

#include "TavixPlatform/Text/GlyphShape.h"

#include <algorithm>

namespace tavix::text {

TextRange intersection(const TextRange& a, const TextRange& b) {
    const TextRange common{std::max(a.begin, b.begin), std::min(a.end, b.end)};
    return common.isEmpty() ? TextRange{} : common;
}

TextRange TypesetLine::range() const { return data_->range; }
bool TypesetLine::breaksWord() const { return data_->breaksWord; }
double TypesetLine::widthPx() const { return data_->widthPx; }

double TypesetLine::offsetPx(std::size_t position) const {
    const auto& characters = data_->characters;
    if (characters.empty()) return 0;
    const auto after = std::ranges::upper_bound(characters, position, {},
        [](const LineCharacter& character) { return std::size_t{character.begin}; });
    const LineCharacter& at = after == characters.begin() ? *after : *std::prev(after);
    const bool isPast = position >= at.end;
    return isPast == at.isRightToLeft ? at.x0 : at.x1;
}

std::vector<LineSpan> TypesetLine::spans(const TextRange& range) const {
    std::vector<LineSpan> parts;
    const auto& characters = data_->characters;
    auto at = std::ranges::upper_bound(characters, range.begin, {},
        [](const LineCharacter& character) { return std::size_t{character.end}; });
    for (; at != characters.end() && at->begin < range.end; ++at)
        if (at->end > range.begin) parts.push_back({at->x0, at->x1});
    std::ranges::sort(parts, {}, &LineSpan::x0);
    // Neighbours that touch are one; positions are multiples of 1/1024.
    std::vector<LineSpan> joined;
    for (const LineSpan& part : parts) {
        if (!joined.empty() && part.x0 - joined.back().x1 < 1.0 / 512)
            joined.back().x1 = std::max(joined.back().x1, part.x1);
        else
            joined.push_back(part);
    }
    return joined;
}

imaging::Rect TypesetLine::inkBounds(const TextRange& range, const LineSpan& span) const {
    imaging::Rect bounds;
    for (const PlacedGlyph& glyph : data_->glyphs)
        if (belongs(glyph, range, span)) bounds = unionOf(bounds, inkBoundsOf(*data_, glyph));
    return bounds;
}

std::vector<std::string> TypesetLine::fontNames() const {
    std::vector<std::string> names;
    for (const auto& font : data_->fonts)
        if (std::ranges::find(names, font->name) == names.end()) names.push_back(font->name);
    return names;
}

}   // namespace tavix::text
