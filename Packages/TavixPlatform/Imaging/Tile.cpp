#include "TavixPlatform/Imaging/Tile.h"

#include "TavixPlatform/Imaging/Dither.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace tavix::imaging {

namespace {

constexpr std::size_t chunkBytes = 1 << 20;

// The rank of a place as an offset.
float offsetAt(unsigned x, unsigned y) {
    return (float(ditherRank(x & 7, y & 7)) + 0.5f) / 64 * 0.96f - 0.48f;
}

// Rows long enough to start anywhere in the matrix and serve the widest tile, whole vectors included.
template <std::size_t channels> struct DitherRows {
    static constexpr std::size_t pixels = 8 + mostRunTiles * tileWidthPx + 16;
    DitherRows() {
        for (std::size_t y = 0; y < 8; ++y)
            for (std::size_t i = 0; i < pixels * channels; ++i)
                rows[y][i] = offsetAt(unsigned(i / channels), unsigned(y));
    }
    const float* at(int x, int y) const {
        return rows[std::size_t(y & 7)].data() + std::size_t(x & 7) * channels;
    }
    std::array<std::array<float, pixels * channels>, 8> rows;
};

int floorTo(int v, int step) { return v >= 0 ? v / step * step : -((-v + step - 1) / step * step); }

}   // namespace

Tile Tile::of(const BitmapView& bitmap, const PixelRegion& region) {
    return {region, reinterpret_cast<std::uint32_t*>(bitmap.row(bitmap.size.height - 1)),
        -bitmap.strideBytes / 4};
}

std::uint8_t* Scratch::takeBytes(std::size_t count) {
    count = (count + 63) / 64 * 64;
    while (chunk_ < chunks_.size() && used_ + count > chunks_[chunk_].size) {
        ++chunk_;
        used_ = 0;
    }
    if (chunk_ == chunks_.size()) {
        const std::size_t size = std::max(count, chunkBytes);
        chunks_.push_back({imaging::takeBytes(size, nullptr), size});
        used_ = 0;
    }
    std::uint8_t* bytes = chunks_[chunk_].bytes.get() + used_;
    used_ += count;
    return bytes;
}

Tile Scratch::tile(const PixelRegion& region) {
    const auto stride = std::ptrdiff_t(region.width() + 15) / 16 * 16;
    return {region, take<std::uint32_t>(std::size_t(stride) * std::size_t(region.height())), stride};
}

FloatTile Scratch::floatTile(const PixelRegion& region) {
    const std::size_t planeFloats = std::size_t(region.width() + 15) / 16 * 16;
    return {region, take<float>(planeFloats * 4 * std::size_t(region.height())), planeFloats};
}

void clear(const Tile& tile) {
    for (int y = tile.region.y0; y < tile.region.y1; ++y) std::memset(tile.row(y), 0, tile.width() * 4);
}

void clear(const FloatTile& tile) {
    std::fill_n(tile.values, tile.planeFloats * 4 * std::size_t(tile.region.height()), 0.0f);
}

const float* ditherOfPixels(int x, int y) {
    static const auto rows = std::make_unique<const DitherRows<1>>();
    return rows->at(x, y);
}

const float* ditherOfChannels(int x, int y) {
    static const auto rows = std::make_unique<const DitherRows<4>>();
    return rows->at(x, y);
}

std::vector<PixelRegion> tilesOf(const PixelRegion& region) {
    std::vector<PixelRegion> tiles;
    for (int y = floorTo(region.y0, tileHeightPx); y < region.y1; y += tileHeightPx)
        for (int x = floorTo(region.x0, tileWidthPx); x < region.x1; x += tileWidthPx) {
            const PixelRegion tile = intersection({x, y, x + tileWidthPx, y + tileHeightPx}, region);
            if (!tile.isEmpty()) tiles.push_back(tile);
        }
    return tiles;
}

}   // namespace tavix::imaging
