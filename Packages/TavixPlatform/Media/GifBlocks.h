// The blocks of a GIF file, as bytes.
#pragma once

#include "TavixPlatform/Imaging/Geometry.h"
#include "TavixPlatform/Media/GifPalette.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tavix::media {

// What becomes of a frame's area before the next frame is drawn.
enum class GifDisposal : std::uint8_t { keep = 1, clear = 2 };

struct GifFrame {
    imaging::PixelRegion area;           // from the top left of the canvas
    std::vector<std::uint8_t> indices;   // of the whole canvas, row by row
    std::vector<Rgb> palette;            // at most 255; the index after the last is transparent
    int delayCentisec = 0;
    GifDisposal disposal = GifDisposal::keep;

    std::uint8_t transparentIndex() const { return static_cast<std::uint8_t>(palette.size()); }
};

std::string gifHead(int widthPx, int heightPx);   // loops for ever
std::string gifFrame(const GifFrame& frame, int canvasWidthPx);
std::string gifTail();

}   // namespace tavix::media
