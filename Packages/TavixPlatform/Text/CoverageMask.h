// How much of each pixel is covered by outlines. Inside the library only.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixPlatform/Imaging/Image.h"
#include "TavixPlatform/Text/GlyphShape.h"

#include <cstdint>
#include <memory>
#include <span>
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

    // Lays the outline over what is covered. Where its edge meets the edge of one of `before`, a pixel is
    // covered as far as both together cover it: coverage adds up where they abut, and is not counted twice
    // where they overlap. The outline alone answers for what is missing beside the others, so it comes out
    // the same whether they are covered in the same mask or drawn by themselves and laid under it.
    void cover(const Outline& outline, const MaskPlacement& placement, const Columns& columns,
        std::span<const Outline> before = {});
    // Lays the colour over a bitmap of the mask's size, as far as the mask is covered, and clears the mask.
    void paintOver(const imaging::BitmapView& target, const imaging::Color& color);

private:
    struct Rasterizer;
    void settleSeams(const Outline& outline, const MaskPlacement& placement, const imaging::PixelRegion& box,
        std::span<const Outline> before);
    void settle(const Outline& outline, std::span<const Outline* const> meeting,
        const MaskPlacement& placement, const imaging::PixelRegion& seam, const imaging::PixelRegion& box);

    imaging::Size size_;
    std::vector<std::uint8_t> own_, other_;   // of an outline, in the box that it covers
    std::vector<std::uint8_t> coverage_;      // the bottom row first
    int firstRow_, lastRow_;                  // of those touched
    std::unique_ptr<Rasterizer> rasterizer_;
};

}   // namespace tavix::text
