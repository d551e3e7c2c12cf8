// Bitmaps at a half, a quarter, ... of their size, kept from frame to frame.
#pragma once

#include "TavixPlatform/Imaging/RenderContext.h"

namespace tavix::imaging {

// The size halved `level` times; each pixel is the mean of four, paired from the top left. Sides of odd
// length repeat their last pixel.
BitmapRef mipmap(RenderContext& context, const BitmapRef& source, int level);

}   // namespace tavix::imaging
