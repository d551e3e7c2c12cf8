// The four named eases of the reel camera.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <type_traits>

namespace tavix {

enum class Easing { linear, easeIn, easeOut, easeInOut };

// Progress 0 to 1 to eased progress 0 to 1; beyond either end the curve holds.
double apply(Easing easing, double progress);

const Names<Easing>& namesOf(std::type_identity<Easing>);

}   // namespace tavix
