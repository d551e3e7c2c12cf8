// A texture and its smaller levels, for the renderer. Inside the library only.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"

#include <cstdint>
#include <vector>

namespace tavix::imaging {
class Workshop;
}

namespace tavix::scene3d {

// Level 0 is the bitmap itself, sRGB-encoded bytes. The others hold linear light in 16 bits, blue, green, red
// and nothing, each half the size of the one before, rounded up.
struct TextureLevels {
    static constexpr int mostLevels = 16;
    struct Level {
        imaging::Size size;
        std::size_t firstTexel = 0;   // four words a texel
    };
    imaging::BitmapRef bitmap;
    int count = 0;   // with level 0; 0 without a picture
    Level level[mostLevels];
    std::vector<std::uint16_t> texels;
    bool isMade = false;   // the smaller levels are those of the bitmap
};

// Fills levels 1 and up with means in linear light, unless they stand.
void makeSmallerLevels(TextureLevels& texture, imaging::Workshop& workshop);

}   // namespace tavix::scene3d
