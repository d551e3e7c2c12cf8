// Which families fill in for characters that a font lacks, and in what order. Inside the library only.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tavix::text {

// Of all families of a book, those that fill in: the interface font, then the families of Noto without
// serifs, the colour emoji, and then all others, each in the order of its name.
std::vector<std::string> fallbackFamilies(std::vector<std::string> families);

// The same for a language ("ja", "zh-cn"): of the four shapes of Han characters its own comes first. Text
// that is emoji starts with the emoji.
std::vector<std::string> orderedFor(
    const std::vector<std::string>& families, std::string_view language, bool isEmoji);

}   // namespace tavix::text
