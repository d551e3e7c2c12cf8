// Digests of pictures: where things lie are fields like numbers and words.
#pragma once

#include "TavixBase/Hash.h"
#include "TavixPlatform/Imaging/Geometry.h"

namespace tavix::imaging {

constexpr char hashMarkOf(const Rect&) { return 'r'; }
constexpr char hashMarkOf(const PixelRegion&) { return 'p'; }
constexpr char hashMarkOf(const Affine&) { return 'a'; }
static_assert(sizeof(Rect) == 4 * sizeof(double) && sizeof(PixelRegion) == 4 * sizeof(int) &&
                  sizeof(Affine) == 6 * sizeof(double),
    "Padding has no value to count.");

}   // namespace tavix::imaging
