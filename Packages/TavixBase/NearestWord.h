// What an author may have meant by a word that is not known.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tavix {

// Insertions, deletions and replacements of characters that lead from one to the other; more than the fewest
// only where thousands of characters differ.
std::size_t editDistance(std::string_view a, std::string_view b);

// The candidate nearest to the word, whatever the case of letters; nothing when none is near.
std::optional<std::string_view> nearestWord(
    std::string_view word, std::span<const std::string_view> candidates);

// "Did you mean ...?" with the candidate nearest to the word; nothing when none is near.
std::optional<std::string> didYouMean(std::string_view word, std::span<const std::string_view> candidates);

}   // namespace tavix
