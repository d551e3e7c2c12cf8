// Colours that are not multiplied by their alpha, as files have them. Inside the library only.
#pragma once

#include <algorithm>
#include <cstdint>

namespace tavix::media {

// A premultiplied channel, 0 to `alpha`, on its own; `alpha` is above 0.
inline std::uint8_t straight(unsigned color, unsigned alpha) {
    return static_cast<std::uint8_t>(std::min((color * 255 + alpha / 2) / alpha, 255U));
}

}   // namespace tavix::media
