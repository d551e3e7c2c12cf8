// Pixels to the planes of a video encoder: ITU-R BT.709 matrix, limited range.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixPlatform/Imaging/Tile.h"

namespace tavix::imaging {

// Writes the samples of a part of the picture, given from its top left; both of the same size. In 4:2:0 and
// 4:2:2 chroma is sited on every second column, filtered by (1 2 1)/4, and the part's edges are even. Eight
// bits have fewer steps for a picture's range than its pixels: where a square of eight pixels, counted from
// the bottom left, holds a gradient, they are dithered, and everywhere else rounded to nearest.
void writePlanes(const PlanarView& planes, const ConstBitmapView& source, const PixelRegion& fromTopLeft,
    Scratch& scratch);

}   // namespace tavix::imaging
