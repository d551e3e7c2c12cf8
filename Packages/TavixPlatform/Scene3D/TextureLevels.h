// A texture and its smaller levels, for the renderer. Inside the library only.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"

#include <cstdint>
#include <vector>

namespace tavix::imaging {
class ScratchLoop;
}

namespace tavix::scene3d {

struct SceneKernels;

// Texels are words of three times ten bits: blue in the lowest, then green, then red, each the square root of
// linear light. That is finer than sRGB-encoded bytes everywhere (4.5 steps a byte and more), and needs but
// one product to become light again. Each level is half the size of the one before, rounded up.
struct TextureLevels {
    static constexpr int mostLevels = 16;
    imaging::BitmapRef bitmap;   // until the levels are made
    imaging::PixelRegion part;   // of the bitmap, from its top left
    int count = 0;               // with level 0; 0 without a picture
    // By level.
    std::int32_t firstTexel[mostLevels] = {}, width[mostLevels] = {}, height[mostLevels] = {};
    static constexpr int rootBits = 10, mostRoot = (1 << rootBits) - 1;
    std::vector<std::uint32_t> texels;   // of all levels, and one more
    bool isMade = false;                 // the texels are those of the bitmap
};

// Fills the levels, unless they stand.
void makeLevels(TextureLevels& texture, const SceneKernels& kernels, imaging::ScratchLoop& loop);

}   // namespace tavix::scene3d
