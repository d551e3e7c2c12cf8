// Picture operations that text and layers share.
#pragma once

#include "TavixCore/Values/RGBAColor.h"
#include "TavixPlatform/Imaging/Image.h"

namespace tavix::KineticImageFX {

// Scales the alpha, and with it the premultiplied colour.
inline imaging::Image alphaMul(const imaging::Image& image, double alpha) { return image.withOpacity(alpha); }

// White becomes that colour, with its opacity; whatever has colours of its own is multiplied by it.
imaging::Image tint(const imaging::Image& image, const RGBAColor& color);

// A picture's plane turned about the pivot, first about the vertical axis and then about the horizontal one,
// and seen from 1.2 times the canvas height in front of it.
struct Tilt {
    imaging::Point pivot;
    double xDeg = 0, yDeg = 0;
    double canvasHeight = 0;
};
imaging::Point seenInPerspective(imaging::Point point, const Tilt& tilt);
imaging::Image applyPerspective(const imaging::Image& image, const Tilt& tilt);

}   // namespace tavix::KineticImageFX
