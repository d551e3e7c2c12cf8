// What someone may have meant by a word that is not known.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tavix::engine {

// The known word with the fewest slips of the keyboard between them, or an empty one when none is near. Case
// does not count.
std::string_view nearestWord(std::string_view word, std::span<const std::string_view> known);

// " Did you mean X?", or nothing.
std::string suggestion(std::string_view word, std::span<const std::string_view> known);

// "a, b or c".
std::string listed(std::span<const std::string_view> words);

bool equalIgnoringCase(std::string_view a, std::string_view b);

}   // namespace tavix::engine
