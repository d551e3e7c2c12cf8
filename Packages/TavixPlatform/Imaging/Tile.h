// Borrowed pixels that cover a region of the plane, and the scratch memory that tiles are drawn in.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixPlatform/Imaging/Geometry.h"
#include "TavixPlatform/Imaging/Kernels/Kernels.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace tavix::imaging {

// 8-bit pixels, y up.
struct Tile {
    PixelRegion region;
    std::uint32_t* pixels = nullptr;   // of the region's bottom-left corner
    std::ptrdiff_t stridePx = 0;       // from a row to the one above it

    // A bitmap whose pixels cover `region`.
    static Tile of(const BitmapView& bitmap, const PixelRegion& region);
    std::uint32_t* row(int y) const { return pixels + (y - region.y0) * stridePx; }
    std::uint32_t* at(int x, int y) const { return row(y) + (x - region.x0); }
    Tile part(const PixelRegion& inner) const { return {inner, at(inner.x0, inner.y0), stridePx}; }
    std::size_t width() const { return std::size_t(region.width()); }
};

// Float pixels in planes, 0 to 1, premultiplied; rows have room for whole vectors.
struct FloatTile {
    PixelRegion region;
    float* values = nullptr;
    std::size_t planeFloats = 0;   // from plane to plane of a row
    FloatRow row(int y) const {
        float* first = values + std::size_t(y - region.y0) * 4 * planeFloats;
        return {{first, first + planeFloats, first + 2 * planeFloats, first + 3 * planeFloats}};
    }
    std::size_t width() const { return std::size_t(region.width()); }
};

// A stack of memory. One thread at a time; what was taken since a `Mark` is given up when the mark goes.
class Scratch {
public:
    class Mark {
    public:
        explicit Mark(Scratch& scratch) : scratch_(scratch), chunk_(scratch.chunk_), used_(scratch.used_) {}
        ~Mark() {
            scratch_.chunk_ = chunk_;
            scratch_.used_ = used_;
        }
        Mark(const Mark&) = delete;
        Mark& operator=(const Mark&) = delete;

    private:
        Scratch& scratch_;
        std::size_t chunk_, used_;
    };

    // Room for `count` values and a vector beyond, aligned to 64 bytes, with whatever was in it.
    template <class T> T* take(std::size_t count) {
        return reinterpret_cast<T*>(takeBytes(count * sizeof(T) + 128));
    }
    Tile tile(const PixelRegion& region);
    FloatTile floatTile(const PixelRegion& region);

private:
    std::uint8_t* takeBytes(std::size_t count);
    struct Chunk {
        PooledBytes bytes;
        std::size_t size;
    };
    std::vector<Chunk> chunks_;
    std::size_t chunk_ = 0, used_ = 0;
};

void clear(const Tile& tile);
void clear(const FloatTile& tile);

// Offsets in steps of a byte, between -1/2 and 1/2, that turn rounding into an ordered dither (Bayer, 1973).
// Added where a filter makes smooth ramps, so that they do not band; a value that is a whole byte already
// stays. For the pixels (x, y), (x + 1, y), ... of a tile, once each, or four times for their channels.
const float* ditherOfPixels(int x, int y);
const float* ditherOfChannels(int x, int y);

constexpr int tileWidthPx = 128, tileHeightPx = 64;
// The tiles of a region, cut on a grid through the origin.
std::vector<PixelRegion> tilesOf(const PixelRegion& region);
// Neighbouring tiles may be drawn as one, up to this width.
constexpr int mostRunTiles = 4;

}   // namespace tavix::imaging
