// Text set into lines: where each character stands, and what draws it.
#pragma once

#include "TavixPlatform/Imaging/Image.h"
#include "TavixPlatform/Text/Font.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace tavix::text {

// Positions in the bytes of a UTF-8 text, half open.
struct TextRange {
    std::size_t begin = 0, end = 0;

    std::size_t length() const { return end > begin ? end - begin : 0; }
    bool isEmpty() const { return end <= begin; }
    bool operator==(const TextRange&) const = default;
};

TextRange intersection(const TextRange& a, const TextRange& b);

// What differs from the text's own font and colour within a range.
struct StyledRange {
    TextRange range;
    Font font;
    imaging::Color color;
};

struct StyledText {
    std::string text;   // UTF-8; a byte that is none reads as U+FFFD
    Font font;
    imaging::Color color = imaging::Color::white();
    std::vector<StyledRange> ranges = {};   // in order and apart
    bool hasLigatures = true;   // false: each letter keeps a glyph of its own where its script can
};

// A stretch of a line without a gap, in pixels from the line's origin.
struct LineSpan {
    double x0 = 0, x1 = 0;   // x0 <= x1
    bool operator==(const LineSpan&) const = default;
};

struct LineData;   // known to this library alone

// One line at rest. Its origin is the left end of its baseline; x points right and y up, in pixels.
// Immutable: any thread may ask and draw.
class TypesetLine {
public:
    // What the line holds of its text, the white space at which it was broken included, but no line break.
    TextRange range() const;
    // Whether it ends where its script may not be broken, because a word is wider than a line.
    bool breaksWord() const;
    // The advance of all characters but the white space at which the line was broken.
    double widthPx() const;
    // Where the caret stands before the character at that position of the text; at the end of the range,
    // after the last one. Positions outside are held within.
    double offsetPx(std::size_t position) const;
    // The stretches that the characters of a range cover, from left to right. More than one only where
    // text of both directions mixes; none when the range has no part in this line.
    std::vector<LineSpan> spans(const TextRange& range) const;
    // What the characters of a range cover with ink, at most: it may leave the span of their advances.
    imaging::Rect inkBounds(const TextRange& range, const LineSpan& span) const;

    // The fonts that draw it, each once, in order of appearance: the asked for and those that filled in.
    std::vector<std::string> fontNames() const;

    explicit TypesetLine(std::shared_ptr<const LineData> data) : data_(std::move(data)) {}
    const LineData& data() const { return *data_; }

private:
    std::shared_ptr<const LineData> data_;
};

// Breaks a text into lines of at most that width: at each line break of the text, where its script may be
// broken, and, where one word is wider than a line, between characters. A line takes at least one character.
// An empty paragraph gives a line that holds one space and an empty range. Time grows with the length as n
// log n.
std::vector<TypesetLine> wrappedLines(const StyledText& text, double maxWidthPx);

}   // namespace tavix::text
