#include "TavixRender/Typesetting/CaptionLayout.h"

#include "TavixCore/Theme/CaptionStyle.h"
#include "TavixRender/Assets/CompositionAssets.h"
#include "TavixRender/Typesetting/CaptionFontFile.h"

#include <algorithm>

namespace tavix {

namespace {

std::string standInNote(const std::string& name, const std::string& standIn) {
    if (CaptionFontFile::looksLikePath(name))
        return "The font file \"" + name + "\" is missing or holds no font; \"" + standIn +
               "\" stands in for it. Check its path, which starts at the document's folder.";
    return "The font \"" + name + "\" is not on this machine; \"" + standIn +
           "\" stands in for it. Bring its file in the bundle and name that as the font.";
}

// The book in which a style's font is looked up: that of its own file, where it has one that can be read.
const text::FontBook& bookOf(const CaptionStyle& style, const text::FontBook& fonts) {
    if (!style.fontPath || style.fontPath->empty()) return fonts;
    const text::FontBook* book = fonts.withFile(CompositionAssets::tildeExpanded(*style.fontPath));
    return book ? *book : fonts;
}

}   // namespace

CaptionLayout::ResolvedCaptionFont CaptionLayout::resolveFont(
    const CaptionStyle& style, double pointSize, const text::FontBook& fonts) {
    const text::FontBook& book = bookOf(style, fonts);
    if (!style.fontName || style.fontName->empty()) return {book.interfaceFont(pointSize), std::nullopt};
    text::FoundFont found = book.named(*style.fontName, pointSize);
    std::optional<std::string> note;
    if (found.isStandIn) note = standInNote(*style.fontName, found.font.familyName());
    return {std::move(found.font), std::move(note)};
}

std::vector<text::TypesetLine> CaptionLayout::wrapLines(const text::StyledText& text, double maxWidth) {
    return text::wrappedLines(text, std::max(maxWidth, 1.0));
}

}   // namespace tavix
