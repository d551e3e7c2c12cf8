// Gaussian blur of any width at nearly constant cost. The source is halved with the binomial filter (1 3 3
// 1)/8 until the rest of the blur is at most three pixels wide, blurred there, and enlarged through a cubic
// B-spline. The variances of the steps add up to that of the Gaussian asked for (Burt, 1981, on the pyramid;
// Unser, 1999, on splines).
#pragma once

#include "TavixPlatform/Imaging/RenderContext.h"

#include <array>
#include <memory>
#include <vector>

namespace tavix::imaging {

// 8-bit pixels to blur. Beyond `edge` its border pixels continue, when there is one; otherwise, and between
// the picture and the edge, all is clear.
struct BlurSource {
    Picture picture;
    PixelRegion edge;   // empty: none
    // The pixels of an input within `needed`; of one that is continued, all that its border goes on from.
    static BlurSource of(RenderContext& context, const NodeRef& input, const PixelRegion& needed);
    // Pixels x0 <= x < x1 of a row as interleaved floats, 0 to 255.
    void row(float* out, int y, int x0, int x1) const;
};

// Interleaved float pixels, 0 to 255, that cover a region.
struct FloatPicture {
    FloatPicture(const PixelRegion& region, const std::shared_ptr<BytePool>& pool);
    float* at(int x, int y) const;
    // As that of a source: beyond the region its border continues, or all is clear.
    const float* row(int y, int x0, int x1, bool isContinued, Scratch& scratch) const;
    std::size_t rowFloats() const { return std::size_t(region.width()) * 4; }
    std::size_t byteCount() const;
    PixelRegion region;
    PooledBytes bytes;
};

// Sampled Gaussian from -radius to radius with sum 1; the radius is three standard deviations, rounded up.
std::vector<float> gaussianTaps(double sigmaPx);

// A blurred picture, small: pixel (i, j) stands for a square of 2^halvings pixels.
class GaussianPyramid {
public:
    static int halvingsFor(double sigmaPx);   // 0 up to a standard deviation of 3 pixels

    // What `rowInto` needs to give the pixels of `wanted`. At least one halving.
    GaussianPyramid(
        RenderContext& context, const BlurSource& source, double sigmaPx, const PixelRegion& wanted);
    // Pixels x0 <= x < x1 of a row at full size; `between` has room for `betweenFloats()` floats.
    void rowInto(float* out, int y, int x0, int x1, float* between) const;
    std::size_t betweenFloats() const { return top_->rowFloats(); }
    std::size_t byteCount() const { return top_->byteCount(); }

private:
    int phases_;                                  // 2^halvings
    std::vector<std::array<float, 4>> weights_;   // of the spline, per phase
    std::unique_ptr<FloatPicture> top_;
};

}   // namespace tavix::imaging
