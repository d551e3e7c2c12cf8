// A composition whose symbolic times have been turned into seconds, and what had to be said about it.
#pragma once

#include "TavixCore/Composition/CompositionFinding.h"
#include "TavixCore/Composition/CompositionSpec.h"

#include <span>
#include <string>
#include <vector>

namespace tavix {

struct CompositionResolution {
    CompositionSpec spec;
    std::vector<CompositionLint::Finding> findings;
    bool operator==(const CompositionResolution&) const = default;
};

bool hasErrors(std::span<const CompositionLint::Finding> findings);

// A number with so many digits after the point.
std::string decimals(double number, int digits);
// As messages about times show it: "2.50".
inline std::string twoDecimals(double number) { return decimals(number, 2); }

}   // namespace tavix
