// Colours that are not multiplied by their alpha, as files have them, and pixels that need no such thing.
// Inside the library only.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace tavix::media {

// A premultiplied channel, 0 to `alpha`, on its own; `alpha` is above 0.
inline std::uint8_t straight(unsigned color, unsigned alpha) {
    return static_cast<std::uint8_t>(std::min((color * 255 + alpha / 2) / alpha, 255U));
}

// Whether all pixels of four bytes, alpha last, are opaque.
inline bool isOpaqueRow(const std::uint8_t* pixels, int count) {
    constexpr std::array<std::uint8_t, 4> opaque{0, 0, 0, 255};
    const auto mask = std::bit_cast<std::uint32_t>(opaque);
    std::uint32_t all = mask;
    for (int i = 0; i < count; ++i) {
        std::uint32_t pixel;   // whole words, which the compiler takes many of at once
        std::memcpy(&pixel, pixels + i * 4, sizeof pixel);
        all &= pixel;
    }
    return (all & mask) == mask;
}

}   // namespace tavix::media
