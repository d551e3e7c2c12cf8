// The part of a picture that a layer shows.
#pragma once

#include "TavixCore/Values/NormalizedRect.h"
#include "TavixPlatform/Imaging/Image.h"

#include <optional>

namespace tavix::CompositionSourceCrop {

// The rectangle within an extent, held inside it.
imaging::Rect partOf(const imaging::Rect& extent, const NormalizedRect& rect);

// Cuts the rectangle, given in fractions from the top left, and moves it to the origin. Held inside the
// picture.
imaging::Image apply(const imaging::Image& image, const std::optional<NormalizedRect>& rect);

}   // namespace tavix::CompositionSourceCrop
