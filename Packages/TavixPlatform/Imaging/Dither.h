// The order in which an ordered dither raises the pixels of a square of eight (Bayer, 1973).
#pragma once

namespace tavix::imaging {

// From 0 to 63: the bits of x ^ y and y, interleaved, in reverse order.
constexpr unsigned ditherRank(unsigned x, unsigned y) {
    unsigned rank = 0;
    for (unsigned bit = 0; bit < 3; ++bit)
        rank |= (((x ^ y) >> bit & 1) << 1 | (y >> bit & 1)) << (2 * (2 - bit));
    return rank;
}

}   // namespace tavix::imaging
