// Pictures for tests: noise bitmaps, random graphs over every operation, and pixel access.
#pragma once

#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Imaging/Image.h"

#include <cstdint>
#include <random>
#include <vector>

namespace tavix::imaging::tests {

// Random premultiplied pixels; opaque ones when asked.
BitmapRef noiseBitmap(Size size, unsigned seed, bool isOpaque = false);
BitmapRef filledBitmap(Size size, std::uint32_t pixel);
// A graph of random operations over small sources, with bounded extents where an operation needs one.
Image randomImage(std::mt19937& random, int depth);

using Words = std::vector<std::uint32_t>;
// Pixels of a region, bottom row first.
Words pixelsOf(Evaluator& evaluator, const Image& image, const PixelRegion& region);
inline int channel(std::uint32_t pixel, int c) { return int(pixel >> (8 * c) & 255); }
// The largest difference of any channel.
int largestDifference(const Words& a, const Words& b);

}   // namespace tavix::imaging::tests
