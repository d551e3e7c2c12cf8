// From the owners of samples to what has to be shaded.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "TavixPlatform/Scene3D/Kernels/Requests.cpp"
#include <hwy/foreach_target.h>

#include "TavixPlatform/Scene3D/Kernels/Lanes-inl.h"
#include "TavixPlatform/Scene3D/Kernels/SceneKernels.h"

#include <algorithm>
#include <bit>

HWY_BEFORE_NAMESPACE();
namespace tavix::scene3d::HWY_NAMESPACE {

// A bit for each sample of a cell that has the id.
HWY_INLINE unsigned maskOf(const std::uint32_t* ids, std::uint32_t id) {
    const Ints di;
    unsigned mask = 0;
    for (int v = 0; v < cellVectors; ++v) {
        const IntVector some =
            hn::Load(di, reinterpret_cast<const std::int32_t*>(ids) + std::size_t(v) * cellLanes);
        std::uint8_t bits[8] = {};
        hn::StoreMaskBits(di, hn::Eq(some, constantInt(std::int32_t(id))), bits);
        mask |= (bits[0] | unsigned(bits[1]) << 8) << (v * int(cellLanes));
    }
    return mask;
}

// The samples of one pixel: those of four cells, of one, or some of one cell.
struct PixelSamples {
    struct Part {
        const std::uint32_t* ids;
        int cellX, cellY;
        unsigned counted;   // those of the pixel
    };
    Part parts[4];
    int count = 0;
};
struct SampleMask {
    unsigned ofPart[4] = {};
    HWY_INLINE bool isEmpty() const { return (ofPart[0] | ofPart[1] | ofPart[2] | ofPart[3]) == 0; }
};

class Search {
public:
    HWY_INLINE Search(const CellGrid& grid, const SamplePattern& pattern, RequestList& list)
        : grid_(grid), pattern_(pattern), list_(list), across_(pattern.cellsAcross()),
          pixelBits_(pattern.cellBits() - subpixelBits) {}

    HWY_INLINE void visitRow(int firstX, int endX, int y) {
        for (int x = firstX; x < endX;) {
            const std::uint32_t owner = ownerOf(x, y);
            int end = x + 1;
            if (owner == CellGrid::isMixed) {
                visitMixed(x, y);
            } else {
                while (end < endX && ownerOf(end, y) == owner) ++end;
                if (owner != 0) addWhole(x, end, y, list_.triangles[owner - 1]);
            }
            x = end;
        }
    }

private:
    HWY_INLINE std::uint32_t ownerAt(int cellX, int cellY) const {
        return grid_.owners[std::size_t(cellY * across_ + cellX)];
    }
    // Of all samples of a pixel: cells are as large as pixels, larger, or four to a pixel.
    HWY_INLINE std::uint32_t ownerOf(int x, int y) const {
        if (pixelBits_ >= 0) return ownerAt(x >> pixelBits_, y >> pixelBits_);
        const std::uint32_t owner = ownerAt(2 * x, 2 * y);
        const bool isOne = ownerAt(2 * x + 1, 2 * y) == owner && ownerAt(2 * x, 2 * y + 1) == owner &&
                           ownerAt(2 * x + 1, 2 * y + 1) == owner;
        return isOne ? owner : CellGrid::isMixed;
    }

    HWY_INLINE void addWhole(int x, int end, int y, const Triangle* triangle) {
        if (list_.kinds[triangle->material] == SurfaceKind::nothing) return;
        std::fill_n(list_.covered + y * tilePx + x, end - x, std::uint8_t(pattern_.samplesPerPixel));
        constexpr int shortest = 6;   // fewer fill a vector better together with others
        if (end - x >= shortest) {
            list_.runs[list_.runCount++] = {triangle, x, y, end - x};
            return;
        }
        for (; x < end; ++x)
            list_.requests[list_.requestCount++] = {triangle, float(x) + 0.5f, float(y) + 0.5f,
                float(pattern_.samplesPerPixel), std::uint32_t(y * tilePx + x)};
    }

    HWY_INLINE void visitMixed(int x, int y) {
        PixelSamples pixel;
        if (pixelBits_ < 0) {
            HWY_ALIGN std::uint32_t same[4][samplesPerCell];
            for (int part = 0; part < 4; ++part)
                pixel.parts[pixel.count++] = partOf(2 * x + part % 2, 2 * y + part / 2, same[part]);
            addMixed(x, y, pixel);
            return;
        }
        const int cellX = x >> pixelBits_, cellY = y >> pixelBits_, rest = (1 << pixelBits_) - 1;
        const int inCell = ((y & rest) << pixelBits_) + (x & rest), samples = pattern_.samplesPerPixel;
        pixel.parts[pixel.count++] = {grid_.ids + std::size_t(cellY * across_ + cellX) * samplesPerCell,
            cellX, cellY, ((1u << samples) - 1) << (inCell * samples)};
        addMixed(x, y, pixel);
    }

    // A cell of a pixel; one that is not mixed has its owner written out.
    HWY_INLINE PixelSamples::Part partOf(int cellX, int cellY, std::uint32_t* same) const {
        constexpr unsigned all = (1u << samplesPerCell) - 1;
        const std::uint32_t owner = ownerAt(cellX, cellY);
        if (owner == CellGrid::isMixed)
            return {grid_.ids + std::size_t(cellY * across_ + cellX) * samplesPerCell, cellX, cellY, all};
        std::fill_n(same, samplesPerCell, owner);
        return {same, cellX, cellY, all};
    }

    // One request for each triangle that owns samples of the pixel. Triangles that show a texture are one: a
    // seam in the middle of a screen is no edge, and its pixels are looked up at their middle like all
    // others.
    HWY_INLINE void addMixed(int x, int y, const PixelSamples& pixel) {
        SampleMask left;
        for (int i = 0; i < pixel.count; ++i)
            left.ofPart[i] = pixel.parts[i].counted & ~maskOf(pixel.parts[i].ids, 0);
        int covered = 0;
        while (!left.isEmpty()) {
            const std::uint32_t id = firstIn(left, pixel);
            const Triangle* triangle = list_.triangles[id - 1];
            SampleMask mask = take(left, id, pixel);
            const SurfaceKind kind = list_.kinds[triangle->material];
            if (kind == SurfaceKind::nothing) continue;
            if (kind == SurfaceKind::textured) takeSameMaterial(left, triangle->material, pixel, mask);
            covered += addPart(x, y, triangle, mask, pixel);
        }
        list_.covered[y * tilePx + x] = std::uint8_t(covered);
    }

    static HWY_INLINE std::uint32_t firstIn(const SampleMask& mask, const PixelSamples& pixel) {
        int part = 0;
        while (!mask.ofPart[part]) ++part;
        return pixel.parts[part].ids[std::countr_zero(mask.ofPart[part])];
    }
    static HWY_INLINE SampleMask take(SampleMask& from, std::uint32_t id, const PixelSamples& pixel) {
        SampleMask mask;
        for (int i = 0; i < pixel.count; ++i) {
            if (!from.ofPart[i]) continue;
            mask.ofPart[i] = from.ofPart[i] & maskOf(pixel.parts[i].ids, id);
            from.ofPart[i] &= ~mask.ofPart[i];
        }
        return mask;
    }
    HWY_INLINE void takeSameMaterial(
        SampleMask& from, std::uint32_t material, const PixelSamples& pixel, SampleMask& mask) const {
        for (SampleMask others = from; !others.isEmpty();) {
            const std::uint32_t id = firstIn(others, pixel);
            const SampleMask more = take(others, id, pixel);
            if (list_.triangles[id - 1]->material != material) continue;
            for (int i = 0; i < pixel.count; ++i) {
                mask.ofPart[i] |= more.ofPart[i];
                from.ofPart[i] &= ~more.ofPart[i];
            }
        }
    }

    // Gives the number of samples.
    HWY_INLINE int addPart(
        int x, int y, const Triangle* triangle, const SampleMask& mask, const PixelSamples& pixel) {
        int count = 0, sumX = 0, sumY = 0;
        for (int i = 0; i < pixel.count; ++i) {
            const unsigned bits = mask.ofPart[i];
            const int some = std::popcount(bits);
            const auto &low = pattern_.lowSums[bits & 255], &high = pattern_.highSums[bits >> 8];
            count += some;
            sumX += low.x + high.x + some * (pixel.parts[i].cellX << pattern_.cellUnitBits);
            sumY += low.y + high.y + some * (pixel.parts[i].cellY << pattern_.cellUnitBits);
        }
        const auto unitsPerPx = float((1 << subpixelBits) >> pattern_.unitBits),
                   whole = float(count) * unitsPerPx;
        list_.requests[list_.requestCount++] = {
            triangle, float(sumX) / whole, float(sumY) / whole, float(count), std::uint32_t(y * tilePx + x)};
        return count;
    }

    const CellGrid& grid_;
    const SamplePattern& pattern_;
    RequestList& list_;
    int across_;
    int pixelBits_;   // of the pixels along a cell; below 0 there are cells along a pixel
};

void findRequests(const CellGrid& grid, const SamplePattern& pattern, const imaging::PixelRegion& inside,
    RequestList& list) {
    Search search(grid, pattern, list);
    for (int y = inside.y0; y < inside.y1; ++y) search.visitRow(inside.x0, inside.x1, y);
}

void fillRequests(SceneKernels& table) { table.findRequests = findRequests; }

}   // namespace tavix::scene3d::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tavix::scene3d {
HWY_EXPORT(fillRequests);
void fillRequestKernels(SceneKernels& table) { HWY_DYNAMIC_DISPATCH(fillRequests)(table); }
}   // namespace tavix::scene3d
#endif
