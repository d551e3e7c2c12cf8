// Words of a text as a reader sees them, and what its characters are.
#pragma once

#include "TavixBase/Characters.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::KineticMath {

using tavix::characters;

// Whether a character's first code point has the Unicode property White_Space.
bool isWhitespace(std::string_view character);
// Whether it begins with a mandatory line break: U+000A to U+000D, U+0085, U+2028 or U+2029.
bool isLineBreak(std::string_view character);
// Whether its first code point is of the general categories L (letters) or N (numbers).
bool isLetterOrNumber(std::string_view character);
// Whether it is of the category Lu (capitals), and of Ll or N (small letters, numbers).
bool isUppercase(std::string_view character);
bool isLowercaseOrNumber(std::string_view character);
// With its first code point in upper case.
std::string capitalized(std::string_view text);

// Positions in characters, half open.
struct CharacterRange {
    std::size_t begin = 0, end = 0;
    bool operator==(const CharacterRange&) const = default;
};

struct Word {
    std::string text;
    CharacterRange range;
    bool operator==(const Word&) const = default;
};

// The runs between white space; punctuation stays with its word.
std::vector<Word> words(std::string_view text);

}   // namespace tavix::KineticMath
