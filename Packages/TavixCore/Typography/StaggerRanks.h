// In which order the elements of a text start.
#pragma once

#include "TavixCore/Animation/AnimationEnums.h"

#include <cstdint>
#include <vector>

namespace tavix::KineticMath {

// The numbers 0 to count - 1, shuffled: Fisher and Yates over a SplitMix64 chain. Empty for a count below 1.
std::vector<int> permutation(int count, std::int64_t seed);

// For each element its place in the order, 0 for the first. Empty for a count below 1.
std::vector<int> ranks(StaggerOrder order, int count, std::int64_t seed);

}   // namespace tavix::KineticMath
