// The questions about time that an author asks of a text animation.
#pragma once

#include "TavixCore/Animation/AnimationEnums.h"

#include <string_view>

namespace tavix {
struct KineticStyle;
}

namespace tavix::KineticTiming {

// How many pieces of a text move on their own; at least 1. Lines are those that the text itself breaks: how
// it wraps is not known here.
int elementCount(AnimationScope scope, std::string_view text);

// When the last piece has come in.
double inCompletionSec(const KineticStyle& style, std::string_view text);

// The shortest time on screen in which a text comes in, stands for a moment and goes out.
double minWindowSec(const KineticStyle& style, std::string_view text);

}   // namespace tavix::KineticTiming
