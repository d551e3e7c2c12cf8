// The characters of a text as a reader sees them: extended grapheme clusters (Unicode Standard Annex 29), as
// a letter with its accents, a family emoji, a flag.
#pragma once

#include <string_view>
#include <vector>

namespace tavix {

// The characters of a UTF-8 text, in order; joined they give the text back. A byte that is no valid UTF-8
// counts as a character of its own.
std::vector<std::string_view> characters(std::string_view text);

}   // namespace tavix
