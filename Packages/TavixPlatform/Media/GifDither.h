// Finds the palette index of every pixel of a GIF frame, mixing two colours of the palette where none fits.
#pragma once

#include "TavixPlatform/Media/GifPalette.h"

#include <cstdint>
#include <vector>

namespace tavix::media {

// Ordered dithering: whether a pixel takes the one or the other colour depends on its place and its colour
// alone, never on its neighbours. What stands still therefore looks the same in every frame.
class GifDither {
public:
    GifDither();

    void setPalette(const std::vector<Rgb>& palette, bool isExact);
    std::uint8_t indexOf(Rgb color, int x, int y);

private:
    struct Mix {   // the two colours of the palette between which a colour lies
        std::uint8_t first = 0, second = 0;
        bool isKnown = false;
    };
    std::uint8_t exactIndexOf(Rgb color);
    Mix mixFor(const PerceivedColor& color) const;
    float shareOfSecond(const Mix& mix, const PerceivedColor& color) const;
    void listNeighbors();

    static constexpr std::size_t neighborCount = 12;
    std::vector<PerceivedColor> colors_;
    std::vector<std::uint8_t> neighbors_;   // the nearest other colours of every colour
    std::vector<Mix> mixes_;                // by the upper bits of a colour, found when first asked for
    bool isExact_ = false;
    std::vector<std::uint32_t> sorted_;   // packed colour and index, for exact palettes
    Rgb last_;
    std::uint8_t lastIndex_ = 0;
};

}   // namespace tavix::media
