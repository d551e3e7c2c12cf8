#include "TavixPlatform/Scene3D/TileStage.h"

#include <algorithm>
#include <bit>

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
    const FrameSurface* surfaces;
};

void addRequest(RequestList& list, const Triangle* triangle, std::size_t pixel, unsigned mask) {
    ++list.endOfMaterial[triangle->material + 1];
    list.found[list.count++] = {triangle, std::uint16_t(pixel), std::uint8_t(mask)};
}

// One request for each triangle that owns samples of the pixel. Triangles that show a texture are one: a seam
// in the middle of a screen is no edge, and its pixels are looked up at their middle like all others.
void addPixel(RequestList& list, const std::uint32_t* ids, int samples, std::size_t pixel,
    const Triangle* const* triangles) {
    unsigned left = 0;
    for (int s = 0; s < samples; ++s) left |= unsigned(ids[s] != 0) << s;
    list.covered[pixel] = std::uint8_t(std::popcount(left));
    while (left) {
        const std::uint32_t id = ids[std::countr_zero(left)];
        const Triangle* triangle = triangles[id - 1];
        const bool isTextured = std::holds_alternative<TexturedSurface>(list.surfaces[triangle->material]);
        unsigned mask = 0;
        for (int s = 0; s < samples; ++s) {
            const bool isSame = ids[s] == id || (isTextured && ids[s] &&
                                                    triangles[ids[s] - 1]->material == triangle->material);
            mask |= unsigned(isSame) << s;
        }
        addRequest(list, triangle, pixel, mask);
        left &= ~mask;
    }
}

bool areEqual(const std::uint32_t* ids) {
    std::uint32_t difference = 0;
    for (int i = 1; i < samplesPerVector; ++i) difference |= ids[i] ^ ids[0];
    return difference == 0;
}

// The pixels of one block that lie within `inside`, which is in pixels of the tile.
void addBlock(RequestList& list, const std::uint32_t* ids, const SamplePattern& pattern, int x0, int y0,
    const imaging::PixelRegion& inside, const Triangle* const* triangles) {
    const int side = pattern.blockPx(), samples = pattern.samplesPerPixel();
    const bool isOne = areEqual(ids);
    if (isOne && ids[0] == 0) return;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x, ids += samples) {
            if (x0 + x < inside.x0 || x0 + x >= inside.x1 || y0 + y < inside.y0 || y0 + y >= inside.y1)
                continue;
            const auto pixel = std::size_t((y0 + y) * tilePx + x0 + x);
            if (!isOne) {
                addPixel(list, ids, samples, pixel, triangles);
                continue;
            }
            list.covered[pixel] = std::uint8_t(samples);
            addRequest(list, triangles[ids[0] - 1], pixel, (1u << samples) - 1);
        }
    }
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
        scratch.take<std::uint32_t>(surfaces.size() + 1), 0, covered, surfaces.data()};
    std::fill_n(list.endOfMaterial, surfaces.size() + 1, 0u);
    std::fill_n(covered, tilePixels, std::uint8_t(0));
    const imaging::PixelRegion pixels = pixelsOf(tile);
    const imaging::PixelRegion inside{pixels.x0 - x0, pixels.y0 - y0, pixels.x1 - x0, pixels.y1 - y0};
    const std::uint32_t* block = ids;
    for (int y = 0; y < tilePx; y += pattern.blockPx())
        for (int x = 0; x < tilePx; x += pattern.blockPx(), block += samplesPerVector)
            addBlock(list, block, pattern, x, y, inside, triangles.data());
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
