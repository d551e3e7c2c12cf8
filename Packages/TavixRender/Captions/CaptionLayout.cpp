#include "TavixRender/Captions/CaptionLayout.h"

#include "TavixCore/Captions/CaptionStyle.h"
#include "TavixRender/Composition2D/CompositionAssets.h"

#include <algorithm>

namespace tavix {

CaptionLayout::ResolvedCaptionFont CaptionLayout::resolveFont(
    const CaptionStyle& style, double pointSize, const text::FontBook& fonts) {
    if (!style.fontName || style.fontName->empty()) return {fonts.interfaceFont(pointSize), std::nullopt};
    text::FoundFont found = fonts.named(*style.fontName, pointSize);
    std::optional<std::string> note;
    if (found.isStandIn)
        note = "The font \"" + *style.fontName + "\" is not on this machine; \"" + found.font.familyName() +
               "\" stands in for it. Bring its file in the bundle and name that as the font.";
    return {std::move(found.font), std::move(note)};
}

std::vector<text::TypesetLine> CaptionLayout::wrapLines(const text::StyledText& text, double maxWidth) {
    return text::wrappedLines(text, std::max(maxWidth, 1.0));
}

void CaptionOverlay::registerFontIfNeeded(const std::string& path, text::FontBook& fonts) {
    if (!path.empty()) fonts.addFile(CompositionAssets::tildeExpanded(path));
}

}   // namespace tavix
