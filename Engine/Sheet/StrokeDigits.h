// Digits drawn as strokes of a round pen, so that times can be written at any size without a font.
#pragma once

#include "TavixPlatform/Imaging/Image.h"

#include <string_view>

namespace tavix::engine {

// Digits, colons and points; others are left out. The bottom-left corner of the text stands at the origin.
imaging::Image strokeDigits(std::string_view text, double heightPx, const imaging::Color& color);

}   // namespace tavix::engine
