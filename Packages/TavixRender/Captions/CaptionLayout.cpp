#include "TavixRender/Captions/CaptionLayout.h"

#include "TavixCore/Theme/CaptionStyle.h"
#include "TavixRender/Composition2D/CompositionAssets.h"
#include "TavixRender/KineticText/CaptionFontFile.h"

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

}   // namespace

CaptionLayout::ResolvedCaptionFont CaptionLayout::resolveFont(
    const CaptionStyle& style, double pointSize, const text::FontBook& fonts) {
    if (!style.fontName || style.fontName->empty()) return {fonts.interfaceFont(pointSize), std::nullopt};
    text::FoundFont found = fonts.named(*style.fontName, pointSize);
    std::optional<std::string> note;
    if (found.isStandIn) note = standInNote(*style.fontName, found.font.familyName());
    return {std::move(found.font), std::move(note)};
}

std::vector<text::TypesetLine> CaptionLayout::wrapLines(const text::StyledText& text, double maxWidth) {
    return text::wrappedLines(text, std::max(maxWidth, 1.0));
}

void CaptionOverlay::registerFontIfNeeded(const std::string& path, text::FontBook& fonts) {
    if (!path.empty()) fonts.addFile(CompositionAssets::tildeExpanded(path));
}

}   // namespace tavix
