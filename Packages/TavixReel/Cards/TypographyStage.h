// What the authoring of captions and that of cards share: a reel's canvas, its clock and its colours.
#pragma once

#include "TavixCore/Typography/EmphasisResolver.h"
#include "TavixReel/Cards/TypographyAuthor.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::TypographyAuthor {

// Text on a background of that luminance.
RGBAColor toneOn(double luminance);

struct TypographyStage {
    const EffectsSpec& spec;
    const TypographyDirectives& directives;
    const FlowSpec* flow;
    std::optional<RGBAColor> accent;           // the brand's
    std::map<std::int64_t, double> eventSec;   // when each step starts
    double mediaEndSec;

    const BrandKit* brand() const { return spec.brand ? &*spec.brand : nullptr; }
    // The scene's backdrop where the device is a model in space and has one.
    const BackgroundFill* backdrop() const;
};

// A text and its look, for which the words that stand out are resolved.
struct EmphasisRequest {
    std::string_view text;
    CaptionStyle style;
    KineticIntensity intensity;
    double backgroundLuminance;
};
// Indices that name no word are dropped, and `whose` text a note names.
std::vector<EmphasisSpan> resolveEmphasis(const std::vector<EmphasisSpanSpec>& asked,
    const EmphasisRequest& request, const BrandKit* brand, const std::string& whose, Report& report);

// The two halves of `apply`.
void authorCaptions(Narration& narration, const TypographyStage& stage, Report& report);
std::vector<TitleCard> authorCards(const TypographyStage& stage, Report& report);

}   // namespace tavix::TypographyAuthor
