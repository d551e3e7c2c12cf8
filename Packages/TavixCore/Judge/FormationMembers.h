// Which layers of a scene are devices of one formation. A layer that reading made of a formation knows it; in
// a document that was written after that, the layers still stand together in their order, under the ids that
// the formation gave them: "hero-fan-0", "hero-fan-1", ...
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
