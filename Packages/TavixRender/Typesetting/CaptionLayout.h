// How every block of text finds its font and breaks into lines.
#pragma once

#include "TavixPlatform/Text/FontBook.h"
#include "TavixPlatform/Text/TypesetLine.h"

#include <optional>
#include <string>
#include <vector>

namespace tavix {

struct CaptionStyle;

namespace CaptionLayout {

struct ResolvedCaptionFont {
    text::Font font;
    std::optional<std::string> note;   // a finished sentence where another font had to stand in
};

// The font of a style, by name, or else that of user interfaces; a name is sought in the style's own file
// first. Its weight is left to the caller.
ResolvedCaptionFont resolveFont(const CaptionStyle& style, double pointSize, const text::FontBook& fonts);

// Lines of at most that width in pixels: broken at each newline, and where the script of the text suggests
// it. Each takes at least one character; an empty paragraph gives a line that holds one space.
std::vector<text::TypesetLine> wrapLines(const text::StyledText& text, double maxWidth);

}   // namespace CaptionLayout

}   // namespace tavix
