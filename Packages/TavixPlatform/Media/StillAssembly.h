// Builds the bitmap of a still image from rows as a decoder hands them out: colours brought to sRGB, alpha
// multiplied in, eight bits.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixPlatform/Media/ColorConversion.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tavix::media {

// Throws MediaError for a size that no bitmap can have, or that is out of proportion; called before anything
// of that size is allocated. Coders of the kind "PNG" put at most `pixelsPerByte` into one byte; 0 knows no
// limit.
void refuseStillSize(
    std::int64_t width, std::int64_t height, std::size_t fileBytes = 0, std::size_t pixelsPerByte = 0);

class StillAssembly {
public:
    // Every row is to be put.
    StillAssembly(imaging::Size size, PixelLayout layout, ColorConversion conversion);

    // The memory of a row, for decoders that can write RGBA with eight bits straight into it before `put`. It
    // holds anything at first.
    std::uint8_t* rowMemory(int fromTop) { return bitmap_.view().row(fromTop); }
    std::ptrdiff_t rowStrideBytes() { return bitmap_.view().strideBytes; }

    // A whole row of pixels in the layout, alpha straight, 16-bit samples in the machine's byte order.
    void put(int fromTop, const void* pixels);

    // The picture knows that it is opaque where every row was.
    imaging::Bitmap take();

private:
    void putNarrow(std::uint8_t* to, const std::uint8_t* rgba);
    void putWide(std::uint8_t* to, const std::uint16_t* rgba);
    const void* converted(const void* pixels);

    PixelLayout layout_;
    ColorConversion conversion_;
    imaging::Bitmap bitmap_;
    bool isOpaque_ = true;                 // as far as rows were put
    std::vector<std::uint16_t> scratch_;   // a converted row, of either depth
};

}   // namespace tavix::media
