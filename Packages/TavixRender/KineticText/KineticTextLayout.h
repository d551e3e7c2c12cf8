// Text laid out once, at rest, and taken apart into the pieces that move: the block, its lines, words or
// letters. A piece is drawn from the lines of the whole, so it rests exactly where the paragraph put it, with
// kerning and joined letters as they were. Coordinates are pixels of the canvas, y up.
#pragma once

#include "TavixCore/Animation/AnimationEnums.h"
#include "TavixCore/Theme/CaptionStyle.h"
#include "TavixCore/Typography/EmphasisSpan.h"
#include "TavixCore/Values/NormalizedPoint.h"
#include "TavixPlatform/Imaging/Geometry.h"
#include "TavixPlatform/Text/LineDrawing.h"

#include <optional>
#include <string>
#include <vector>

namespace tavix {

namespace text {
class FontBook;
}

namespace KineticTextLayout {

// More pieces than these cost more than they show: the scope then goes one step up.
inline constexpr std::size_t maxElements = 48;

struct Request {
    std::string text;
    std::vector<EmphasisSpan> emphasisSpans = {};
    CaptionStyle style = {};
    AnimationScope scope = AnimationScope::block;
    std::optional<NormalizedPoint> position = {};   // of the block's centre, from the top left of the canvas
    bool colorAnimated = false;                     // glyphs are then white, to be tinted as they are drawn
    double width = 0, height = 0;                   // of the canvas
    std::optional<std::string> alignment = {};      // "left", "right"; anything else is centred
};

// The part of one line that belongs to an element: a stretch without a gap. Where text of both directions
// mixes, a word may have several in one line.
struct Fragment {
    text::TypesetLine line;
    double lineOriginX = 0, baselineY = 0;   // where the line's origin stands
    double spanX0 = 0, spanX1 = 0, boxBottomY = 0, boxTopY = 0;
    text::TextRange range;   // of the element's characters

    imaging::Rect rect() const;
    imaging::Point origin() const { return {lineOriginX, baselineY}; }
    // What to draw, for text::drawn. Of a whole line everything, also what its capped width leaves out.
    text::LinePart part() const;
};

struct Element {
    std::size_t logicalIndex = 0;   // in the order of the text, without gaps; counts in the schedule too
    std::vector<Fragment> fragments;
    std::optional<EmphasisStyle> emphasis;
    RGBAColor restFill;
    imaging::Rect restRect;   // of all its fragments
    imaging::Point pivot;     // the middle of that
};

// One line of the block.
struct Line {
    text::TextRange range;   // of the text that was laid out
    imaging::Rect box;       // as wide as it is set, as tall as its font
    bool breaksWord = false;
};

// Words that rest in another look than the rest of the text.
struct EmphasisedInk {
    RGBAColor color;
    std::optional<RGBAColor> marker;   // behind them
    std::vector<imaging::Rect> boxes;
};

struct Result {
    std::vector<Element> elements;
    std::vector<Line> lines;   // from the top
    std::vector<EmphasisedInk> emphasised = {};
    imaging::Rect block;             // all of it with its margins
    double roomWidth = 0;            // that lines were broken at
    double movedX = 0, movedY = 0;   // from where it was put, to stay on the canvas
    double pointSize = 0;
    RGBAColor textColor;
    std::optional<TextShadow> shadow;
    double canvasWidth = 0, canvasHeight = 0;
    AnimationScope scope = AnimationScope::block;   // the one used in the end
    std::optional<std::string> note;                // a finished sentence where another font stood in
};

// Nothing for an empty text. Never fails otherwise, whatever the text or the font.
std::optional<Result> build(const Request& request, const text::FontBook& fonts);

// The font in that weight: along its own axis, or another face of its family; the font as it came where
// neither gives that weight.
text::Font applyWeight(const text::Font& font, FontWeight weight);

}   // namespace KineticTextLayout

}   // namespace tavix
