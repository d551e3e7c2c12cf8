// Outlines of glyphs, and the ink they leave. Inside the library only.
#pragma once

#include "TavixPlatform/Text/LineData.h"

#include <hb.h>

#include <cstddef>
#include <vector>

namespace tavix::text {

// Closed curves in pixels from the line's origin, y up; what they wind about is filled.
struct Outline {
    enum class Kind : unsigned char { onCurve, quadratic, cubic };   // the latter two are control points
    struct Point {
        double x, y;
        Kind kind;
    };
    std::vector<Point> points;
    std::vector<std::size_t> contourEnds;   // one past the last point of each

    imaging::Rect bounds() const;   // of all points: no curve leaves it
};

// Whether a glyph draws characters of that range within that span.
bool belongs(const PlacedGlyph& glyph, const TextRange& range, const LineSpan& span);

// The outline of a glyph, or of another glyph of its font in its place (a layer of a colour glyph).
Outline outlineOf(const LineData& line, const PlacedGlyph& glyph, hb_codepoint_t id);
inline Outline outlineOf(const LineData& line, const PlacedGlyph& glyph) {
    return outlineOf(line, glyph, glyph.id);
}

// Where the picture of a colour glyph stands.
imaging::Rect pictureRect(const LineData& line, const PlacedGlyph& glyph);
bool isPicture(const LineData& line, const PlacedGlyph& glyph);

imaging::Rect inkBoundsOf(const LineData& line, const PlacedGlyph& glyph);

}   // namespace tavix::text
