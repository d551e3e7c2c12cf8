// Eight-bit pixels in memory: blue, green, red, alpha, premultiplied, sRGB-encoded, the top row first. That
// is what codecs and files want; the image graph turns rows over where it reads and writes them.
#pragma once

#include "TavixPlatform/Imaging/BytePool.h"
#include "TavixPlatform/Imaging/Geometry.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace tavix::imaging {

struct Size {
    int width = 0, height = 0;
    bool operator==(const Size&) const = default;
};

// Borrowed pixels, top row first. `strideBytes` may be negative.
struct BitmapView {
    std::uint8_t* pixels = nullptr;
    Size size;
    std::ptrdiff_t strideBytes = 0;
    std::uint8_t* row(int fromTop) const { return pixels + fromTop * strideBytes; }
};
struct ConstBitmapView {
    const std::uint8_t* pixels = nullptr;
    Size size;
    std::ptrdiff_t strideBytes = 0;
    ConstBitmapView() = default;
    ConstBitmapView(const std::uint8_t* p, Size s, std::ptrdiff_t stride)
        : pixels(p), size(s), strideBytes(stride) {}
    ConstBitmapView(const BitmapView& v) : pixels(v.pixels), size(v.size), strideBytes(v.strideBytes) {}
    const std::uint8_t* row(int fromTop) const { return pixels + fromTop * strideBytes; }
};

// Owned pixels. Movable, never copied by accident; rows are padded to 64 bytes. Filled once, then shared as
// `std::shared_ptr<const Bitmap>` and read from any thread.
class Bitmap {
public:
    static constexpr int maxSidePx = 30000;   // what a 16.16 sampling position can reach

    Bitmap() = default;
    explicit Bitmap(Size size);   // transparent black; throws std::length_error past maxSidePx on a side
    // For who writes every pixel next. Memory comes from the pool, and goes back to it, when there is one.
    static Bitmap uninitialised(Size size, const std::shared_ptr<BytePool>& pool = nullptr);

    Size size() const { return size_; }
    bool isEmpty() const { return size_.width <= 0 || size_.height <= 0; }
    std::size_t byteCount() const { return byteCount_; }
    std::uint64_t id() const { return id_; }   // no two bitmaps of a process share one
    BitmapView view() { return {bytes_.get(), size_, strideBytes_}; }
    ConstBitmapView view() const { return {bytes_.get(), size_, strideBytes_}; }

    // What a block of pixels holds, so that whole tiles can be skipped or copied. Known after
    // `indexCoverage`, which is called once the pixels stand and before the bitmap is shared.
    enum class Coverage : std::uint8_t { empty, opaque, mixed };
    static constexpr int blockPx = 32;
    void indexCoverage();
    void declareOpaque();   // the same without looking, for who knows that every pixel is
    Coverage coverage(const PixelRegion& fromTopLeft) const;   // mixed when not indexed
    PixelRegion inkBounds() const { return inkBounds_; }   // from the top left; all of it when not indexed

private:
    int blockWidth(int index) const { return std::min(blockPx, size_.width - index * blockPx); }

    Size size_;
    std::ptrdiff_t strideBytes_ = 0;
    std::size_t byteCount_ = 0;
    std::uint64_t id_ = 0;
    PooledBytes bytes_;
    std::vector<Coverage> blocks_;
    int blocksAcross_ = 0;
    PixelRegion inkBounds_;
};

using BitmapRef = std::shared_ptr<const Bitmap>;

// The planes a video encoder reads, ITU-R BT.709 limited range, chroma sited left (MPEG-2) in 4:2:0.
enum class PlanarFormat {
    yuv420p8,     // 3 planes of bytes
    yuv422p10,    // 3 planes of 16-bit words, values 0 to 1023
    yuva444p10,   // 4 planes of 16-bit words; colour is straight, not premultiplied; alpha is full range
};
struct PlanarView {
    PlanarFormat format = PlanarFormat::yuv420p8;
    Size size;   // of the luma plane; even in both directions for 4:2:0
    std::uint8_t* planes[4] = {};
    std::ptrdiff_t strideBytes[4] = {};
};

}   // namespace tavix::imaging
