// A text as typesetting wants it: paragraphs of valid UTF-8 without controls. Inside the library only.
#pragma once

#include "TavixPlatform/Text/TypesetLine.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::text {

// One paragraph. Characters that draw nothing and stand nowhere (controls, stray bytes of a surrogate) are
// left out, broken bytes have become U+FFFD.
struct Paragraph {
    TextRange source;   // without the line break that ends it
    std::string text;
    // For each code point of `text` where it stands in the source, and at last the end.
    std::vector<std::uint32_t> sourceOfPoint;
    std::vector<char32_t> points;
};

// Split at every line break: LF, CR, CR LF, VT, FF, U+0085, U+2028, U+2029. Never empty.
std::vector<Paragraph> paragraphsOf(std::string_view text);

}   // namespace tavix::text
