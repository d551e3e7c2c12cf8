// From an editor's choice for each word to the spans of a document.
#pragma once

#include "TavixCore/Typography/EmphasisSpan.h"

#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

namespace tavix {

struct BrandKit;
struct CaptionStyle;

namespace EmphasisBaking {

// One span for each token in use, in the order of their first words. A token keeps the look that it has in
// `existing`; one that is new gets its own. Words that the text does not have are left out.
std::vector<EmphasisSpan> bake(const std::map<std::int64_t, EmphasisToken>& wordTokens,
    const std::vector<EmphasisSpan>& existing, std::string_view text, const CaptionStyle& style,
    const BrandKit* brand);

}   // namespace EmphasisBaking

}   // namespace tavix
