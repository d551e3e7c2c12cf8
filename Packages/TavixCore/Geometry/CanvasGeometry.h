// Where a device frame stands in its canvas, and where beside it there is room for a text.
#pragma once

#include "TavixCore/Values/NormalizedPoint.h"
#include "TavixCore/Values/PixelRect.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavix::CanvasGeometry {

struct CanvasSize {
    double widthPx, heightPx;
};

// A device frame as large as it fits into the padded canvas, in its middle. `frameAspect` is width by height.
PixelRect deviceFrameRect(const CanvasSize& output, double paddingPx, double frameAspect);

struct BlockSize {
    double widthPx, heightPx;
};
// An estimate from the number of characters, before any font is known.
BlockSize blockSize(
    std::string_view text, double fontSizeFraction, double maxTextWidthPx, double outputHeightPx);

struct ZonePlacement {
    NormalizedPoint center;
    bool fits = false;
    bool operator==(const ZonePlacement&) const = default;
};
// The zones are "upper", "lower", "left" and "right" of the frame, each the strip between it and a margin at
// the canvas edge. Any other word is the middle of the canvas, where everything fits.
ZonePlacement zonePlacement(
    std::string_view zone, const BlockSize& block, const PixelRect& frame, const CanvasSize& output);

// The zones to try, best first, each once.
std::vector<std::string> fallbackChain(std::string_view zone);

}   // namespace tavix::CanvasGeometry
