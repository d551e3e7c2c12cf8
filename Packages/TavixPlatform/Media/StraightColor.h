// Colours that are not multiplied by their alpha, as files have them, and pixels that need no such thing.
// Inside the library only.
#pragma once

#include <algorithm>
#include <cstdint>

namespace tavix::media {

// A premultiplied channel, 0 to `alpha`, on its own; `alpha` is above 0.
inline std::uint8_t straight(unsigned color, unsigned alpha) {
    return static_cast<std::uint8_t>(std::min((color * 255 + alpha / 2) / alpha, 255U));
}

// Whether all pixels of four bytes, alpha last, are opaque.
inline bool isOpaqueRow(const std::uint8_t* pixels, int count) {
    std::uint8_t all = 255;
    for (int i = 0; i < count; ++i) all = static_cast<std::uint8_t>(all & pixels[i * 4 + 3]);
    return all == 255;
}

}   // namespace tavix::media
