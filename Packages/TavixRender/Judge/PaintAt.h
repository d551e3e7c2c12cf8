// What colour a plain paint has at a place.
#pragma once

#include "TavixRender/Judge/ContentShape.h"

#include <optional>

namespace tavix::PaintAt {

// Of a gradient over the canvas at a point of it; nothing for what has no colour of its own.
std::optional<RGBAColor> colorOf(const Paint& paint, imaging::Point point, const imaging::Rect& canvas);

// Of a backdrop; a picture has none.
Paint paintOf(const BackgroundFill& fill);

// A colour laid over an opaque one, as layers are: on encoded values.
RGBAColor over(const RGBAColor& color, const RGBAColor& ground);

}   // namespace tavix::PaintAt
