// The drawing that the two roads to a picture share: backdrops, placing a picture, rounding its corners.
// Rectangles of documents have a top-left origin with y down; `bounds` is the canvas in image coordinates,
// where y points up.
#pragma once

#include "TavixCore/Theme/BackgroundFill.h"
#include "TavixCore/Values/PixelRect.h"
#include "TavixPlatform/Imaging/Image.h"
#include "TavixRender/Assets/StillImageCache.h"

#include <optional>
#include <string>

namespace tavix {
struct BundledBackground;
}

namespace tavix::CanvasDrawing {

// A picture of exactly the size of `bounds`. What cannot be read falls back, in the end to a dark grey.
imaging::Image resolveBackgroundFill(
    const BackgroundFill& fill, const imaging::Rect& bounds, StillImageCache& images);
imaging::Image resolveBackgroundImage(const BackgroundImage& background, StillImageCache& images);
std::optional<imaging::Image> loadBundled(const BundledBackground& background, StillImageCache& images);

// Angle 0 runs from bottom to top, 90 from left to right; the axis is as long as it must be to reach the
// corners of the bounds, and past its ends the first and the last colour go on.
imaging::Image gradientAcross(const LinearGradient& gradient, const imaging::Rect& bounds);

// `live` follows motion cheaply; `still` takes its time over a picture that is scaled once and kept.
enum class Resampling { live, still };

// Maps the picture's extent onto the rectangle. A picture without an extent comes back as it is.
imaging::Image place(
    const imaging::Image& image, const PixelRect& rect, const imaging::Rect& bounds, Resampling resampling);

imaging::Rect flipped(const PixelRect& rect, const imaging::Rect& bounds);

// White where the picture shall show, clear elsewhere.
imaging::Image makeRoundedRectMask(const PixelRect& rect, double cornerRadiusPx, const imaging::Rect& bounds);
imaging::Image masked(const imaging::Image& image, const imaging::Image& mask);

imaging::Color colorOf(const RGBAColor& color);

}   // namespace tavix::CanvasDrawing
