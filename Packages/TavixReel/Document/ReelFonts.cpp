#include "TavixReel/Document/ReelFonts.h"

#include "TavixReel/Document/EffectsSpec.h"

#include <algorithm>

namespace tavix::FontCatalog {

FontOption option(const CardText& text, const BrandKit* brand) {
    return option(text.fontName, text.fontPath, brand);
}

std::vector<FontOption> embeddedFonts(const EffectsSpec& spec) {
    const BrandKit* brand = spec.brand ? &*spec.brand : nullptr;
    std::vector<FontOption> fonts;
    const auto add = [&](const FontOption& font) {
        if (font.postScriptName && font.fontPath &&
            std::ranges::find(fonts, font.id, &FontOption::id) == fonts.end())
            fonts.push_back(font);
    };
    if (spec.narration) add(option(spec.narration->style, brand));
    for (const TitleCard& card : spec.titleCards) {
        add(option(card.headline, brand));
        if (card.subline) add(option(*card.subline, brand));
    }
    if (spec.narration)
        for (const Caption& caption : spec.narration->captions)
            add(option(spec.narration->styleOf(caption), brand));
    return fonts;
}

}   // namespace tavix::FontCatalog
