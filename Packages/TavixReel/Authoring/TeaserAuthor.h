// Makes the document of a reel of title cards alone from a teaser.
#pragma once

#include "TavixReel/Authoring/TeaserSpec.h"
#include "TavixReel/Document/EffectsSpec.h"

#include <string_view>

namespace tavix::TeaserAuthor {

// Of the recording that such a reel is made over. Nothing of it is seen.
inline constexpr double sourceSeconds = 0.3;
inline constexpr std::string_view defaultPreset = "fade-up";

// A card for each beat, in their order. Cannot fail: an unknown preset becomes the usual one, and an unknown
// font stays a plain name.
EffectsSpec author(const TeaserSpec& spec);

}   // namespace tavix::TeaserAuthor
