// The colours that a document has, to choose from.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"

#include <vector>

namespace tavix {

// Each once, the most frequent first.
std::vector<RGBAColor> colorsInUse(const CompositionSpec& spec);

}   // namespace tavix
