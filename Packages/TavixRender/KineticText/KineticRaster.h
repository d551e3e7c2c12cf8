// The bitmaps that moving text is drawn from: made once, when a text is set up.
#pragma once

#include "TavixPlatform/Imaging/Image.h"
#include "TavixRender/KineticText/KineticTextLayout.h"

#include <cstdint>
#include <optional>

namespace tavix {

namespace imaging {
class Evaluator;
}
struct KineticStyle;

namespace KineticRaster {

// A fragment drawn alone at one magnification. The pictures stand where the fragment rests in the frame,
// times the magnification.
struct Raster {
    imaging::Image glyph;
    std::optional<imaging::Image> shadow;
    imaging::Image baked;   // the glyph over its shadow

    imaging::Rect bounds() const { return baked.extent(); }
};

// How an element rests: an emphasised one is scaled about its pivot, and drawn at that size, so that it is
// sharp.
struct Rest {
    imaging::Point pivot;
    double emphasisScale = 1;
};

struct Request {
    const KineticTextLayout::Fragment& fragment;
    Rest rest;
    int scale = 1;
    std::optional<TextShadow> shadow;
    double canvasHeight = 0;
};

// Nothing for a fragment without ink.
std::optional<Raster> drawn(const Request& request, imaging::Evaluator& evaluator);

// The shadow of a glyph that was drawn at a magnification: its shape in one colour, moved and blurred.
imaging::Image deriveShadow(const imaging::BitmapRef& glyph, imaging::Point origin, const TextShadow& shadow,
    double canvasHeight, double scale, imaging::Evaluator& evaluator);

// By how much a style enlarges text beyond its rest, as a whole number from 1 to 3: the magnification at
// which it stays sharp.
int peakScale(const KineticStyle& style);

// The most pixels that one fragment may take; a larger one is drawn at a lower magnification.
inline constexpr double maxFragmentPixels = 8'388'608;

// Free pixels round a fragment, for ink that leaves its box and for the shadow.
double padPx(const std::optional<TextShadow>& shadow, double canvasHeight);

// The magnification, of those up to `scale`, at which a fragment keeps to its budget; at least 1.
int affordableScale(const imaging::Rect& fragment, double padPx, int scale);

}   // namespace KineticRaster

}   // namespace tavix
