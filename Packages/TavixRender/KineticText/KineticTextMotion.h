// How the pieces of a laid out text move: what drawing them and measuring them have in common.
#pragma once

#include "TavixCore/Typography/ElementFrameState.h"
#include "TavixRender/KineticText/KineticTextLayout.h"

#include <vector>

namespace tavix::KineticTextMotion {

// A moving piece may be cut off at its own box, which is that much larger than its lines; in text sizes.
inline constexpr double maskOutsetEm = 0.08;

struct Timing {
    double windowSec = 0;
    double cardDelaySec = 0;   // holds back the first element
};

// One for each element of the layout, in its order.
std::vector<KineticMath::KineticElement> motionsOf(
    const KineticTextLayout::Result& layout, const KineticStyle& style, const Timing& timing);

}   // namespace tavix::KineticTextMotion
