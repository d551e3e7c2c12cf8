// Which layers of a scene are devices of one formation. A formation leaves no name behind when it is read,
// but its layers stand together and bear ids that it gave them: "hero-fan-0", "hero-fan-1", ...
#pragma once

#include "TavixCore/Document/CompositionScene.h"

#include <cstddef>
#include <limits>
#include <vector>

namespace tavix {

inline constexpr std::size_t noFormation = std::numeric_limits<std::size_t>::max();

// For each layer the index of the first layer of its formation, or `noFormation`.
std::vector<std::size_t> formationOfEachLayer(const CompositionScene& scene);

}   // namespace tavix
