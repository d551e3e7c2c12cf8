// A composition whose symbolic times have been turned into seconds, and what had to be said about it.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Findings/CompositionFinding.h"

#include <span>
#include <vector>

namespace tavix {

struct CompositionResolution {
    CompositionSpec spec;
    std::vector<CompositionLint::Finding> findings;
    bool operator==(const CompositionResolution&) const = default;
};

bool hasErrors(std::span<const CompositionLint::Finding> findings);

}   // namespace tavix
