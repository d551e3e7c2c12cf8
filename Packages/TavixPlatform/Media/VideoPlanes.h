// The planes of a decoded frame in the formats that most films have, and their quick way to pixels. Inside
// the library only.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixPlatform/Imaging/Kernels/Kernels.h"
#include "TavixPlatform/Media/Libav.h"

#include <optional>

namespace tavix::media {

// What the frame says, or what is usual where it says nothing: BT.709 from 720 lines or 1280 columns on and
// BT.601 below, limited range.
AVColorSpace matrixOf(const AVFrame& frame);
bool isFullRange(const AVFrame& frame);

// Planar YUV with 8 to 12 bits, chroma whole or halved, with or without alpha. Borrows the frame.
class VideoPlanes {
public:
    static std::optional<VideoPlanes> of(const AVFrame& frame);   // none when it is of another kind

    // Straight colour, of as many rows as the view has, which is as wide as the frame.
    void convert(const imaging::BitmapView& to, int firstRow = 0) const;

    // Whether chroma is halved both ways, so that there is a sample of it for every four of luma; of eight
    // bits, and without alpha.
    bool canHalve() const;
    // The same at half the size, of frames whose sides are even: luma by means, chroma sample by sample.
    // Where chroma stands on the left columns of luma, it comes out a quarter of a pixel too far to the
    // right.
    void convertHalved(const imaging::BitmapView& to) const;

private:
    explicit VideoPlanes(const AVFrame& frame) : frame_(frame) {}
    imaging::VideoRow rowAt(int y, int& nearWeight) const;
    void putAlpha(std::uint32_t* row, int y) const;

    const AVFrame& frame_;
    imaging::VideoRule rule_{};
    bool halvesHeight_ = false, hasAlpha_ = false;
    bool isBetweenRows_ = true;   // chroma lies between two rows of luma, and not on the upper one
};

}   // namespace tavix::media
