// Which elements of two lists are the same one: by identity first, then by likeness.
#pragma once

#include "TavixCore/Support/Json.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace tavix {

// For each element of `after` the index of the element of `before` that it was, or nothing for a new one. An
// element that names itself by an "id" is the one of the same id, wherever it stands; then equal ones are
// matched, in order; then objects that are alike, the likest first, unless their ids tell them apart; and
// what is left, where it stands between the same neighbours.
std::vector<std::optional<std::size_t>> matched(const JsonArray& before, const JsonArray& after);

// How much of two values is the same: 0 nothing, 1 all.
double likeness(const Json& a, const Json& b);

// Of a sequence of distinct numbers, the positions of a longest rising part.
std::vector<std::size_t> longestRising(const std::vector<std::size_t>& sequence);

}   // namespace tavix
