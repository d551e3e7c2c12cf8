// Where the lines of a paragraph end. Inside the library only.
#pragma once

#include <cstddef>
#include <vector>

namespace tavix::text {

// What breaking has to know of a code point of a paragraph.
struct BreakPoint {
    double widthPx = 0;
    bool isWhite = false;          // hangs over the end of a line
    bool mayBreakBefore = false;   // by the rules of its script
    bool startsCharacter = true;   // a user-perceived one; nothing is ever broken inside one
};

// The end of each line, in code points; the last is the number of points. Each line is as long as fits, and
// holds at least one character. One pass.
std::vector<std::size_t> lineEnds(const std::vector<BreakPoint>& points, double maxWidthPx);

}   // namespace tavix::text
