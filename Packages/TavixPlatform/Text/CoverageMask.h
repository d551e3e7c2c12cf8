// How much of each pixel is covered by outlines. Inside the library only.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixPlatform/Imaging/Image.h"
#include "TavixPlatform/Text/GlyphShape.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace tavix::text {

struct Columns {
    int begin = 0, end = 0;
};

// From the line's pixels to those of the mask, whose origin is its bottom left corner.
struct MaskPlacement {
    double scale = 1, dx = 0, dy = 0;   // the scale first
};

// Rounded to the nearest; exact for all products of two bytes.
constexpr unsigned dividedBy255(unsigned value) { return (value + 128 + ((value + 128) >> 8)) >> 8; }

class CoverageMask {
public:
    explicit CoverageMask(imaging::Size size);
    ~CoverageMask();

    // Where outlines overlap, the larger coverage stays: a pixel on the common edge of two is not covered
    // twice.
    void cover(const Outline& outline, const MaskPlacement& placement, const Columns& columns);
    // Lays the colour over a bitmap of the mask's size, as far as the mask is covered, and clears the mask.
    void paintOver(const imaging::BitmapView& target, const imaging::Color& color);

private:
    struct Rasterizer;
    imaging::Size size_;
    std::vector<std::uint8_t> coverage_;   // the bottom row first
    int firstRow_, lastRow_;               // of those touched
    std::unique_ptr<Rasterizer> rasterizer_;
};

}   // namespace tavix::text
