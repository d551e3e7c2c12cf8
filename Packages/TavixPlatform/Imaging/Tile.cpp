#include "TavixPlatform/Imaging/Tile.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace tavix::imaging {

namespace {

constexpr std::size_t chunkBytes = 1 << 20;

using DitherMatrix = std::array<std::array<float, 8>, 8>;

DitherMatrix bayerMatrix() {
    DitherMatrix matrix{};
    for (unsigned y = 0; y < 8; ++y)
        for (unsigned x = 0; x < 8; ++x) {
            unsigned rank = 0;   // the bits of x ^ y and y, interleaved, in reverse order
            for (unsigned bit = 0; bit < 3; ++bit)
                rank |= (((x ^ y) >> bit & 1) << 1 | (y >> bit & 1)) << (2 * (2 - bit));
            matrix[y][x] = (float(rank) + 0.5f) / 64 * 0.96f - 0.48f;
        }
    return matrix;
}

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

const float* ditherRow(int y) {
    static const DitherMatrix matrix = bayerMatrix();
    return matrix[std::size_t(y & 7)].data();
}

void fillDither(float* dst, int x, int y, std::size_t count, int channels) {
    const float* row = ditherRow(y);
    for (std::size_t i = 0; i < count; ++i)
        for (int c = 0; c < channels; ++c) *dst++ = row[(std::size_t(x & 7) + i) & 7];
}

}   // namespace tavix::imaging
