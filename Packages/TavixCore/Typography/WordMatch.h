// Finds the words of a text that a person or an agent has typed.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::WordMatch {

// Lower case, without what is neither a letter nor a number at both ends: "don't!" gives "don't".
std::string normalize(std::string_view word);

struct Result {
    std::vector<std::int64_t> indices;    // of words, ascending
    std::vector<std::string> unmatched;   // the phrases that the text does not have
};

// A phrase is one word or several neighbours; all of its occurrences count, overlapping ones too. A phrase
// without a letter or a number is passed over.
Result indices(std::span<const std::string> phrases, std::string_view text);

}   // namespace tavix::WordMatch
