// Draws typeset lines into bitmaps.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixPlatform/Text/TypesetLine.h"

namespace tavix::text {

// What to draw of a line: the characters of a range that lie in a span. No ink of a neighbour is drawn, and
// no ink of their own is lost, except where the range ends inside a glyph that several characters share (a
// ligature): there the glyph is cut at the span's end.
struct LinePart {
    TextRange range;
    LineSpan span;
};

// The pixels of a region of the canvas, magnified by `scale`: pixel (i, j) of the region covers the square of
// 1/scale canvas pixels from (i, j) / scale on, y up. `origin` is where the line's origin stands on the
// canvas. Grey antialiasing by exact coverage, no hinting, and glyphs where their advances put them, to 1/64
// of a pixel. Premultiplied, in the colours of the text. A part drawn alone has the pixels that it has when
// the whole line is drawn, wherever no neighbour's ink lies.
imaging::Bitmap drawn(const TypesetLine& line, imaging::Point origin, const LinePart& part, double scale,
    const imaging::PixelRegion& region);

// The region that holds all ink of a part, in pixels of the magnified canvas.
imaging::PixelRegion inkRegion(
    const TypesetLine& line, imaging::Point origin, const LinePart& part, double scale);

}   // namespace tavix::text
