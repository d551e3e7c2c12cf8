#include "TavixPlatform/Scene3D/TileStage.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace tavix::scene3d {

namespace {

constexpr std::size_t tilePixels = std::size_t(tilePx) * tilePx;

// Requests of one tile, first as they are found, then sorted by material.
struct RequestList {
    Request* found;
    Request* sorted;
    std::uint32_t* endOfMaterial;
    std::size_t count = 0;
    std::uint8_t* covered;
};

// One request for each triangle that owns samples of the pixel.
void addRequests(RequestList& list, const std::uint32_t* ids, int samples, std::size_t pixel,
    const Triangle* const* triangles) {
    const auto emit = [&](std::uint32_t id, unsigned mask) {
        const Triangle* triangle = triangles[id - 1];
        ++list.endOfMaterial[triangle->material + 1];
        list.found[list.count++] = {triangle, std::uint16_t(pixel), std::uint8_t(mask)};
    };
    if (samples == 1) {
        if (ids[0]) emit(ids[0], 1);
        list.covered[pixel] = ids[0] != 0;
        return;
    }
    std::uint64_t pairs[2];
    std::memcpy(pairs, ids, sizeof pairs);
    if (pairs[0] == pairs[1] && ids[0] == ids[1]) {
        if (ids[0]) emit(ids[0], 15);
        list.covered[pixel] = ids[0] ? 4 : 0;
        return;
    }
    unsigned left = 0;
    for (unsigned s = 0; s < 4; ++s) left |= unsigned(ids[s] != 0) << s;
    list.covered[pixel] = std::uint8_t(std::popcount(left));
    while (left) {
        const std::uint32_t id = ids[std::countr_zero(left)];
        unsigned mask = 0;
        for (unsigned s = 0; s < 4; ++s) mask |= unsigned(ids[s] == id) << s;
        emit(id, mask);
        left &= ~mask;
    }
}

// The place of a pixel's first sample among a tile's.
std::size_t entryOf(int x, int y, const SamplePattern& pattern) {
    const int block = (y / pattern.blockPx) * pattern.blocksAcross() + x / pattern.blockPx;
    const int inside = y % pattern.blockPx * pattern.blockPx + x % pattern.blockPx;
    return std::size_t(block * samplesPerVector + inside * pattern.samplesPerPixel());
}

}   // namespace

imaging::PixelRegion TileStage::pixelsOf(int tile) const {
    const int x0 = tile % geometry.tilesAcross() * tilePx, y0 = tile / geometry.tilesAcross() * tilePx;
    return imaging::intersection({x0, y0, x0 + tilePx, y0 + tilePx}, region);
}

TileStage::Sums TileStage::draw(int tile, imaging::Scratch& scratch) const {
    auto* sums = scratch.take<float>(tilePixels * 4);
    auto* covered = scratch.take<std::uint8_t>(tilePixels);
    const auto triangles = geometry.trianglesIn(tile);
    if (triangles.empty()) {
        std::fill_n(sums, tilePixels * 4, 0.0f);
        std::fill_n(covered, tilePixels, std::uint8_t(0));
        return {sums, covered};
    }
    const auto entries = std::size_t(pattern.entryCount());
    auto* depths = scratch.take<float>(entries);
    auto* ids = scratch.take<std::uint32_t>(entries);
    std::fill_n(depths, entries, 0.0f);
    std::fill_n(ids, entries, 0u);
    const int x0 = tile % geometry.tilesAcross() * tilePx, y0 = tile / geometry.tilesAcross() * tilePx;
    kernels.rasterise({x0, y0, depths, ids}, pattern, triangles.data(), triangles.size());

    RequestList list{scratch.take<Request>(entries), scratch.take<Request>(entries),
        scratch.take<std::uint32_t>(surfaces.size() + 1), 0, covered};
    std::fill_n(list.endOfMaterial, surfaces.size() + 1, 0u);
    std::fill_n(covered, tilePixels, std::uint8_t(0));
    const imaging::PixelRegion inside = pixelsOf(tile);
    for (int y = inside.y0 - y0; y < inside.y1 - y0; ++y)
        for (int x = inside.x0 - x0; x < inside.x1 - x0; ++x)
            addRequests(list, ids + entryOf(x, y, pattern), pattern.samplesPerPixel(),
                std::size_t(y * tilePx + x), triangles.data());
    for (std::size_t m = 0; m < surfaces.size(); ++m) list.endOfMaterial[m + 1] += list.endOfMaterial[m];
    for (std::size_t i = 0; i < list.count; ++i)
        list.sorted[list.endOfMaterial[list.found[i].triangle->material]++] = list.found[i];

    std::fill_n(sums, tilePixels * 4, 0.0f);
    const Shades shades{sums, x0, y0, maskPoints(pattern).data()};
    std::size_t begin = 0;
    for (std::size_t m = 0; m < surfaces.size(); ++m) {
        const std::size_t end = list.endOfMaterial[m], count = end - begin;
        if (count > 0) {
            if (const auto* lit = std::get_if<Surface>(&surfaces[m]))
                kernels.shadeLit(shades, light, *lit, list.sorted + begin, count);
            else
                kernels.shadeUnlit(
                    shades, std::get<TexturedSurface>(surfaces[m]), list.sorted + begin, count);
        }
        begin = end;
    }
    return {sums, covered};
}

}   // namespace tavix::scene3d
