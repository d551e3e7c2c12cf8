// The fonts that a reel brings along.
#pragma once

#include "TavixCore/Theme/FontCatalog.h"

#include <vector>

namespace tavix {

struct CardText;
struct EffectsSpec;

namespace FontCatalog {

FontOption option(const CardText& text, const BrandKit* brand);

// The options that have a font file: of the captions' common style, of the cards, of single captions; each
// once.
std::vector<FontOption> embeddedFonts(const EffectsSpec& spec);

}   // namespace FontCatalog

}   // namespace tavix
