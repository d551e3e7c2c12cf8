#include "TavixPlatform/Imaging/PlaneWriter.h"

#include "TavixPlatform/Imaging/Dither.h"
#include "TavixPlatform/Imaging/Kernels/Kernels.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace tavix::imaging {

namespace {

struct Rgb {
    float r, g, b;
};

// Colour of a premultiplied pixel as it stands, 0 to 255.
Rgb plain(std::uint32_t p) { return {float(p >> 16 & 255), float(p >> 8 & 255), float(p & 255)}; }
Rgb straight(std::uint32_t p) {
    const std::uint32_t a = p >> 24;
    if (a == 255 || a == 0) return plain(p);
    const Rgb c = plain(p);
    const float k = 255.0f / float(a);
    return {std::min(c.r * k, 255.0f), std::min(c.g * k, 255.0f), std::min(c.b * k, 255.0f)};
}

// ITU-R BT.709-6 in 10 bits: luma 64 to 940, chroma 512 +- 448.
constexpr float lumaScale = 876.0f / 255, chromaScale = 896.0f / 255;
std::uint16_t tenBits(float v) { return std::uint16_t(std::clamp(v + 0.5f, 0.0f, 1023.0f)); }
std::uint16_t luma10(const Rgb& c) {
    return tenBits(64 + lumaScale * (0.2126f * c.r + 0.7152f * c.g + 0.0722f * c.b));
}
std::uint16_t cb10(const Rgb& c) {
    return tenBits(512 + chromaScale * (-0.114572f * c.r - 0.385428f * c.g + 0.5f * c.b));
}
std::uint16_t cr10(const Rgb& c) {
    return tenBits(512 + chromaScale * (0.5f * c.r - 0.454153f * c.g - 0.045847f * c.b));
}

const std::uint32_t* sourceRow(const ConstBitmapView& source, int y) {
    return reinterpret_cast<const std::uint32_t*>(source.row(y));
}
std::uint16_t* wordRow(const PlanarView& planes, int plane, int y) {
    return reinterpret_cast<std::uint16_t*>(planes.planes[plane] + y * planes.strideBytes[plane]);
}

constexpr int squarePx = 8;
// A gradient that rises by more within a square shows no bands.
constexpr int steepestRamp = 4;

// What is added before a sample is cut, of 256, for a row of the matrix that starts at a multiple of four.
// Gradients come dithered to the 256 steps of a pixel, so three quarters of a plane's step take away as much
// of their bands as a whole one, and cost the encoder half as much.
struct DitherMatrix {
    std::uint8_t rows[squarePx][squarePx + 4];
};
constexpr DitherMatrix ditherMatrix = [] {
    DitherMatrix matrix{};
    for (unsigned y = 0; y < squarePx; ++y)
        for (unsigned x = 0; x < squarePx + 4; ++x)
            matrix.rows[y][x] = std::uint8_t(ditherRank(x & 7, y) * 3 + 33);
    return matrix;
}();

// Squares of one row of them, and how the samples in each are rounded.
class SquareRow {
public:
    // Of the rows y0 <= y < y1 of the picture, as many squares as cover its columns x0 <= x < x1.
    SquareRow(const ConstBitmapView& source, const PixelRegion& part, Scratch& scratch)
        : firstX_(part.x0 / squarePx * squarePx), count_((part.x1 - firstX_ + squarePx - 1) / squarePx),
          isRamp_(scratch.take<std::uint8_t>(count_)), luma_{scratch.take<std::uint8_t>(count_ * squarePx),
                                                           scratch.take<std::uint8_t>(count_ * squarePx)},
          chroma_(scratch.take<std::uint8_t>(count_ * squarePx / 2)) {
        const std::uint32_t* rows[squarePx];
        const int rowCount = part.y1 - part.y0;
        for (int i = 0; i < rowCount; ++i) rows[i] = sourceRow(source, part.y0 + i) + firstX_;
        const auto whole = std::size_t((source.size.width - firstX_) / squarePx);
        kernels().findRamps(isRamp_, rows, rowCount, steepestRamp, std::min(count_, whole));
        if (whole < count_) findLastRamp(rows, rowCount, source.size.width - firstX_);
    }
    // Of the rows y and y + 1, from the part's first column on.
    RoundingRows of(int y, int x0) const {
        const auto columns = std::size_t(x0 - firstX_), firstSquare = std::size_t(firstX_ / squarePx);
        for (std::size_t i = 0; i < count_; ++i) {
            fill(luma_[0] + i * 8, isRamp_[i], ditherMatrix.rows[y & 7], 8);
            fill(luma_[1] + i * 8, isRamp_[i], ditherMatrix.rows[(y + 1) & 7], 8);
            fill(chroma_ + i * 4, isRamp_[i], ditherMatrix.rows[(y / 2) & 7] + (firstSquare + i) % 2 * 4, 4);
        }
        return {luma_[0] + columns, luma_[1] + columns, chroma_ + columns / 2};
    }

private:
    static void fill(std::uint8_t* out, std::uint8_t isRamp, const std::uint8_t* matrix, std::size_t count) {
        if (isRamp)
            std::memcpy(out, matrix, count);
        else
            std::memset(out, 128, count);
    }
    // Of a square that the picture's right edge cuts: its last pixel goes on.
    void findLastRamp(const std::uint32_t* const* rows, int rowCount, int width) const {
        std::uint32_t pixels[squarePx][squarePx];
        const std::uint32_t* own[squarePx];
        const int first = int(count_ - 1) * squarePx;
        for (int y = 0; y < rowCount; ++y) {
            for (int x = 0; x < squarePx; ++x) pixels[y][x] = rows[y][std::min(first + x, width - 1)];
            own[y] = pixels[y];
        }
        kernels().findRamps(isRamp_ + (count_ - 1), own, rowCount, steepestRamp, 1);
    }

    int firstX_;
    std::size_t count_;
    std::uint8_t *isRamp_, *luma_[2], *chroma_;
};

void write420(const PlanarView& p, const ConstBitmapView& source, const PixelRegion& r, Scratch& scratch) {
    const auto at = [&](int plane, int x, int y) { return p.planes[plane] + y * p.strideBytes[plane] + x; };
    const int height = source.size.height;
    const auto squaresEnd = [&](int y) { return height - (height - 1 - y) / squarePx * squarePx; };
    for (int y = r.y0; y < r.y1;) {
        const Scratch::Mark mark(scratch);
        const int end = squaresEnd(y);   // squares are counted from the bottom
        const SquareRow squares(source, {r.x0, std::max(end - squarePx, 0), r.x1, end}, scratch);
        for (; y < std::min(end, r.y1); y += 2) {
            const Yuv420Rows out{
                at(0, r.x0, y), at(0, r.x0, y + 1), at(1, r.x0 / 2, y / 2), at(2, r.x0 / 2, y / 2)};
            kernels().toYuv420(out, sourceRow(source, y) + r.x0, sourceRow(source, y + 1) + r.x0, r.x0 > 0,
                squares.of(y, r.x0), std::size_t(r.width()));
        }
    }
}

void write422(const PlanarView& p, const ConstBitmapView& source, const PixelRegion& r) {
    const int last = source.size.width - 1;
    for (int y = r.y0; y < r.y1; ++y) {
        const std::uint32_t* row = sourceRow(source, y);
        std::uint16_t *luma = wordRow(p, 0, y), *cb = wordRow(p, 1, y), *cr = wordRow(p, 2, y);
        for (int x = r.x0; x < r.x1; ++x) luma[x] = luma10(plain(row[x]));
        for (int x = r.x0; x < r.x1; x += 2) {
            const Rgb a = plain(row[std::max(x - 1, 0)]), b = plain(row[x]),
                      c = plain(row[std::min(x + 1, last)]);
            const Rgb mean{(a.r + 2 * b.r + c.r) / 4, (a.g + 2 * b.g + c.g) / 4, (a.b + 2 * b.b + c.b) / 4};
            cb[x / 2] = cb10(mean);
            cr[x / 2] = cr10(mean);
        }
    }
}

void write444(const PlanarView& p, const ConstBitmapView& source, const PixelRegion& r) {
    for (int y = r.y0; y < r.y1; ++y) {
        const std::uint32_t* row = sourceRow(source, y);
        std::uint16_t* out[4] = {wordRow(p, 0, y), wordRow(p, 1, y), wordRow(p, 2, y), wordRow(p, 3, y)};
        for (int x = r.x0; x < r.x1; ++x) {
            const Rgb c = straight(row[x]);
            out[0][x] = luma10(c);
            out[1][x] = cb10(c);
            out[2][x] = cr10(c);
            out[3][x] = tenBits(float(row[x] >> 24) * (1023.0f / 255));
        }
    }
}

}   // namespace

void writePlanes(const PlanarView& planes, const ConstBitmapView& source, const PixelRegion& fromTopLeft,
    Scratch& scratch) {
    switch (planes.format) {
    case PlanarFormat::yuv420p8: return write420(planes, source, fromTopLeft, scratch);
    case PlanarFormat::yuv422p10: return write422(planes, source, fromTopLeft);
    case PlanarFormat::yuva444p10: return write444(planes, source, fromTopLeft);
    }
}

}   // namespace tavix::imaging
