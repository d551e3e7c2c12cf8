// Words that a command knows: telling which there are, and which of them someone may have meant.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tavix::engine {

// " Did you mean X?", or nothing where no known word is near. What begins like a known word is taken for it.
std::string suggestion(std::string_view word, std::span<const std::string_view> known);

// "a, b or c".
std::string listed(std::span<const std::string_view> words);

bool equalIgnoringCase(std::string_view a, std::string_view b);

}   // namespace tavix::engine
