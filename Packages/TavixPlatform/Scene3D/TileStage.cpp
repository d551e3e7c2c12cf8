#include "TavixPlatform/Scene3D/TileStage.h"

#include "TavixBase/Overloaded.h"

#include <algorithm>
#include <span>

namespace tavix::scene3d {

namespace {

constexpr std::size_t tilePixels = std::size_t(tilePx) * tilePx;

// Things that stand together by material.
template <class T> struct Sorted {
    const T* things;
    const std::uint32_t* endOfMaterial;
    std::span<const T> of(std::size_t material) const {
        const std::size_t begin = material > 0 ? endOfMaterial[material - 1] : 0;
        return {things + begin, things + endOfMaterial[material]};
    }
};

template <class T>
Sorted<T> sortedByMaterial(std::span<const T> found, std::size_t materialCount, imaging::Scratch& scratch) {
    auto* sorted = scratch.take<T>(found.size());
    auto* ends = scratch.take<std::uint32_t>(materialCount + 1);
    std::fill_n(ends, materialCount + 1, 0u);
    for (const T& thing : found) ++ends[thing.triangle->material + 1];
    for (std::size_t m = 0; m < materialCount; ++m) ends[m + 1] += ends[m];
    // While things are placed, each material's start moves to its end.
    for (const T& thing : found) sorted[ends[thing.triangle->material]++] = thing;
    return {sorted, ends};
}

}   // namespace

CellGrid clearedGrid(int x0, int y0, const SamplePattern& pattern, imaging::Scratch& scratch) {
    const auto cells = std::size_t(pattern.cellCount()), samples = cells * samplesPerCell;
    CellGrid grid{x0, y0, scratch.take<std::uint32_t>(cells), scratch.take<float>(cells),
        scratch.take<float>(cells), scratch.take<float>(samples), scratch.take<std::uint32_t>(samples)};
    std::fill_n(grid.owners, cells, 0u);
    std::fill_n(grid.nearest, cells, 0.0f);
    std::fill_n(grid.farthest, cells, 0.0f);
    return grid;
}

imaging::PixelRegion TileStage::pixelsOf(int tile) const {
    const int x0 = tile % geometry.tilesAcross() * tilePx, y0 = tile / geometry.tilesAcross() * tilePx;
    return imaging::intersection({x0, y0, x0 + tilePx, y0 + tilePx}, region);
}

TileStage::Sums TileStage::draw(int tile, imaging::Scratch& scratch) const {
    auto* sums = scratch.take<float>(tilePixels * 4);
    auto* covered = scratch.take<std::uint8_t>(tilePixels);
    std::fill_n(sums, tilePixels * 4, 0.0f);
    std::fill_n(covered, tilePixels, std::uint8_t(0));
    const auto triangles = geometry.trianglesIn(tile);
    if (triangles.empty()) return {sums, covered};
    const int x0 = tile % geometry.tilesAcross() * tilePx, y0 = tile / geometry.tilesAcross() * tilePx;
    const CellGrid grid = clearedGrid(x0, y0, pattern, scratch);
    kernels.rasterise(grid, pattern, triangles.data(), triangles.size());

    auto* kinds = scratch.take<SurfaceKind>(surfaces.size());
    for (std::size_t m = 0; m < surfaces.size(); ++m) kinds[m] = SurfaceKind(surfaces[m].index());
    RequestList list{triangles.data(), kinds,
        scratch.take<Request>(std::size_t(pattern.cellCount()) * samplesPerCell),
        scratch.take<PixelRun>(tilePixels), covered};
    const imaging::PixelRegion pixels = pixelsOf(tile);
    kernels.findRequests(
        grid, pattern, {pixels.x0 - x0, pixels.y0 - y0, pixels.x1 - x0, pixels.y1 - y0}, list);
    const auto requests =
        sortedByMaterial<Request>({list.requests, list.requestCount}, surfaces.size(), scratch);
    const auto runs = sortedByMaterial<PixelRun>({list.runs, list.runCount}, surfaces.size(), scratch);
    const Shades shades{sums, x0, y0, float(pattern.samplesPerPixel)};
    for (std::size_t m = 0; m < surfaces.size(); ++m)
        shade(shades, surfaces[m], {requests.of(m), runs.of(m)});
    return {sums, covered};
}

void TileStage::shade(const Shades& shades, const FrameSurface& surface, const ShadingJob& job) const {
    if (job.requests.empty() && job.runs.empty()) return;
    std::visit(Overloaded{
                   [&](const Surface& lit) { kernels.shadeLit(shades, light, lit, job); },
                   [&](const TexturedSurface& textured) { kernels.shadeUnlit(shades, textured, job); },
                   [](const NoSurface&) {},
               },
        surface);
}

}   // namespace tavix::scene3d
