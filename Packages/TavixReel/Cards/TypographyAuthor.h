// Rewrites a reel that has its camera and its captions: every caption moves, in a size that fits, for as long
// as that takes, in a place where the device is not; and cards stand between the footage.
#pragma once

#include "TavixCore/Timeline/Timeline.h"
#include "TavixReel/Cards/TypographyDirectives.h"
#include "TavixReel/Document/EffectsSpec.h"

#include <string>
#include <vector>

namespace tavix {

struct FlowSpec;

namespace TypographyAuthor {

struct Report {
    std::vector<std::string> notes;    // what was decided
    std::vector<std::string> errors;   // what in the flow was wrong; nothing stops for it
};

// `flow` may be null.
Report apply(EffectsSpec& spec, const TypographyDirectives& directives, const FlowSpec* flow,
    const Timeline& timeline);

// How light a background is in its middle, 0 to 1. A picture counts as dark.
double backgroundMidLuminance(const BackgroundFill& fill);

}   // namespace TypographyAuthor

}   // namespace tavix
