// What it looks like to emphasise a word.
#pragma once

#include "TavixCore/Typography/EmphasisSpan.h"
#include "TavixCore/Typography/KineticStyle.h"
#include "TavixCore/Values/RGBAColor.h"

#include <optional>

namespace tavix {

struct BrandKit;
struct CaptionStyle;

namespace EmphasisResolver {

inline constexpr RGBAColor defaultAccent{1, 0.84, 0.04, 1};

// The look of a token in a text of that style. The accent is the brand's, or the default for null, moved so
// that it stands off from the text and from a background of that luminance (0 to 1, where it is known).
EmphasisStyle resolve(EmphasisToken token, const CaptionStyle& style, const BrandKit* brand,
    KineticIntensity intensity, std::optional<double> backgroundLuminance);

}   // namespace EmphasisResolver

}   // namespace tavix
