// Pixels of rendered frames, for tests.
#pragma once

#include "TavixPlatform/Scene3D/Renderer.h"

#include <array>
#include <cstdint>
#include <vector>

namespace tavix::scene3d::samples {

using Pixel = std::array<float, 4>;   // red, green, blue, alpha

// A whole pass, rows from the bottom; clear outside the frame's region.
struct Picture {
    imaging::Size size;
    std::vector<Pixel> pixels;
    const Pixel& at(int x, int y) const {
        return pixels[std::size_t(y) * std::size_t(size.width) + std::size_t(x)];
    }
};
Picture linear(Renderer& renderer, const Scene& scene, const Pass& pass);
// Bytes 0 to 255.
Picture encoded(Renderer& renderer, const Scene& scene, const Pass& pass);

// How much pictures of one size differ: the largest difference of any channel, and the mean over all.
struct Difference {
    double largest = 0, mean = 0;
};
Difference differenceOf(const Picture& a, const Picture& b);

}   // namespace tavix::scene3d::samples
