// Which triangle is nearest at each sample of a tile.
//
// Coverage is exact. Vertices are whole subpixels and samples stand at whole eighths of a pixel, so an edge's
// value at a sample is 32 times a whole number plus a constant; divided by 32 and rounded down it keeps its
// sign and fits 32 bits wherever the edge crosses the tile. A sample on an edge belongs to the triangle whose
// top or left edge it is, so that neighbours cover each sample once.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "TavixPlatform/Scene3D/Kernels/Visibility.cpp"
#include <hwy/foreach_target.h>

#include "TavixPlatform/Scene3D/Kernels/Lanes-inl.h"
#include "TavixPlatform/Scene3D/Kernels/SceneKernels.h"

#include <algorithm>

HWY_BEFORE_NAMESPACE();
namespace tavix::scene3d::HWY_NAMESPACE {

constexpr int eighths = 8, tileEighths = tilePx * eighths;
constexpr int eighthBits = subpixelBits - 3;

// value(k, m) = perX k + perY m + constant, k and m in eighths of a pixel from the tile's corner; inside is 0
// or more.
struct Edge {
    std::int32_t perX, perY, constant;
    // May pass 32 bits on the way, and comes back.
    HWY_INLINE std::int32_t at(int k, int m) const {
        return std::int32_t(std::uint32_t(constant) + std::uint32_t(perX) * std::uint32_t(k) +
                            std::uint32_t(perY) * std::uint32_t(m));
    }
};

enum class Crossing { outside, inside, crosses };

HWY_INLINE Crossing placeEdge(const Triangle& t, int from, int to, int tileX, int tileY, Edge& edge) {
    const std::int64_t a = std::int64_t(t.y[from]) - t.y[to], b = std::int64_t(t.x[to]) - t.x[from];
    const bool isTopLeft = a > 0 || (a == 0 && b < 0);
    const std::int64_t exact = -(a * (t.x[from] - tileX) + b * (t.y[from] - tileY)) - (isTopLeft ? 0 : 1);
    const std::int64_t constant = exact >> eighthBits;
    const std::int64_t most = constant + (a > 0 ? a : 0) * tileEighths + (b > 0 ? b : 0) * tileEighths;
    const std::int64_t least = constant + (a < 0 ? a : 0) * tileEighths + (b < 0 ? b : 0) * tileEighths;
    if (most < 0) return Crossing::outside;
    if (least >= 0) {
        edge = {0, 0, 0};
        return Crossing::inside;
    }
    edge = {std::int32_t(a), std::int32_t(b), std::int32_t(constant)};
    return Crossing::crosses;
}

struct BlockRange {
    int x0, y0, x1, y1;   // blocks of the tile, both ends included
};

HWY_INLINE BlockRange blocksOf(const Triangle& t, const SampleTile& tile, int blockBits) {
    const auto block = [&](std::int32_t subpixels, int origin) {
        return std::clamp((subpixels >> subpixelBits) - origin, 0, tilePx - 1) >> blockBits;
    };
    return {block(std::min({t.x[0], t.x[1], t.x[2]}), tile.x0),
        block(std::min({t.y[0], t.y[1], t.y[2]}), tile.y0),
        block(std::max({t.x[0], t.x[1], t.x[2]}), tile.x0),
        block(std::max({t.y[0], t.y[1], t.y[2]}), tile.y0)};
}

// Which blocks of a row a triangle can touch: most of the box around a thin slanting one is empty. Generous
// by an eighth of a pixel, for rounding.
class RowLimits {
public:
    static constexpr float slack = 512;

    HWY_INLINE void take(const Edge (&edges)[3], int step) {
        inverseStep_ = 1.0f / float(step);
        for (const Edge& e : edges) {
            if (e.perX == 0) continue;
            Line& line = lines_[count_++];
            // Where the edge is 0 at the row's end that favours the inside.
            const float inverse = -1 / float(e.perX);
            line.isLeast = e.perX > 0;
            line.start =
                (float(e.constant) + slack + (e.perY > 0 ? float(e.perY) * float(step) : 0)) * inverse;
            line.perRow = float(e.perY) * float(step) * inverse;
        }
    }
    HWY_INLINE void narrow(int row, int& first, int& last) const {
        float least = 0, most = float(tileEighths);
        for (int i = 0; i < count_; ++i) {
            const float at = lines_[i].start + lines_[i].perRow * float(row);
            if (lines_[i].isLeast)
                least = at > least ? at : least;
            else
                most = at < most ? at : most;
        }
        first = std::max(first, int((least - 1) * inverseStep_));
        last = std::min(last, int((most + 1) * inverseStep_));
    }

private:
    struct Line {
        float start, perRow;
        bool isLeast;
    };
    Line lines_[3];
    int count_ = 0;
    float inverseStep_ = 0;
};

template <int Vectors, bool WithIds>
HWY_INLINE void drawTriangle(
    const SampleTile& tile, const SamplePattern& pattern, const Triangle& t, std::uint32_t id) {
    const Floats d;
    const Ints di;
    constexpr std::size_t lanes = samplesPerVector / Vectors;
    Edge edges[3];
    const std::int32_t tileX = tile.x0 << subpixelBits, tileY = tile.y0 << subpixelBits;
    for (int i = 0; i < 3; ++i)
        if (placeEdge(t, i, (i + 1) % 3, tileX, tileY, edges[i]) == Crossing::outside) return;
    const BlockRange range = blocksOf(t, tile, pattern.blockBits);

    // Depth at the tile's corner, and of each sample of a block from the block's corner.
    const float perX = t.perX.inverseDepth, perY = t.perY.inverseDepth;
    constexpr float subpixel = 1.0f / (1 << subpixelBits);
    const float anchorX = float(tileX - t.x[0]) * subpixel, anchorY = float(tileY - t.y[0]) * subpixel;
    const float corner = t.atAnchor.inverseDepth + perX * anchorX + perY * anchorY;
    const FloatVector least = constant(t.leastInverseDepth), most = constant(t.mostInverseDepth);
    IntVector lane[3][Vectors];
    FloatVector depthLane[Vectors];
    for (int v = 0; v < Vectors; ++v) {
        const IntVector x = hn::LoadU(di, pattern.x.data() + std::size_t(v) * lanes);
        const IntVector y = hn::LoadU(di, pattern.y.data() + std::size_t(v) * lanes);
        for (int i = 0; i < 3; ++i)
            lane[i][v] =
                hn::Add(hn::Mul(x, constantInt(edges[i].perX)), hn::Mul(y, constantInt(edges[i].perY)));
        const FloatVector eighth = constant(1.0f / eighths);
        depthLane[v] = hn::Add(hn::Mul(hn::Mul(hn::ConvertTo(d, x), eighth), constant(perX)),
            hn::Mul(hn::Mul(hn::ConvertTo(d, y), eighth), constant(perY)));
    }
    const int step = eighths << pattern.blockBits, across = pattern.blocksAcross();
    const IntVector next[3] = {constantInt(edges[0].perX * step), constantInt(edges[1].perX * step),
        constantInt(edges[2].perX * step)};   // from a block to the one on its right
    RowLimits limits;
    const bool isWide = range.x1 - range.x0 > 2;
    if (isWide) limits.take(edges, step);
    for (int by = range.y0; by <= range.y1; ++by) {
        int first = range.x0, last = range.x1;
        if (isWide) limits.narrow(by, first, last);
        IntVector value[3][Vectors];
        for (int i = 0; i < 3; ++i)
            for (int v = 0; v < Vectors; ++v)
                value[i][v] = hn::Add(constantInt(edges[i].at(first * step, by * step)), lane[i][v]);
        const float rowDepth = corner + perY * float(by << pattern.blockBits);
        for (int bx = first; bx <= last; ++bx) {
            const FloatVector blockDepth = constant(rowDepth + perX * float(bx << pattern.blockBits));
            const std::size_t entry = std::size_t(by * across + bx) * samplesPerVector;
            for (int v = 0; v < Vectors; ++v) {
                const IntVector signs = hn::Or(value[0][v], hn::Or(value[1][v], value[2][v]));
                for (int i = 0; i < 3; ++i) value[i][v] = hn::Add(value[i][v], next[i]);
                const auto isOutside = hn::RebindMask(d, hn::Lt(signs, hn::Zero(di)));
                float* stored = tile.inverseDepths + entry + std::size_t(v) * lanes;
                const FloatVector depth = hn::Min(hn::Max(hn::Add(blockDepth, depthLane[v]), least), most);
                const FloatVector before = hn::Load(d, stored);
                const auto isNearer = hn::AndNot(isOutside, hn::Gt(depth, before));
                hn::Store(hn::IfThenElse(isNearer, depth, before), d, stored);
                if constexpr (WithIds) {
                    auto* ids = reinterpret_cast<std::int32_t*>(tile.ids) + entry + std::size_t(v) * lanes;
                    hn::Store(hn::IfThenElse(hn::RebindMask(di, isNearer), constantInt(std::int32_t(id)),
                                  hn::Load(di, ids)),
                        di, ids);
                }
            }
        }
    }
}

void rasterise(const SampleTile& tile, const SamplePattern& pattern, const Triangle* const* triangles,
    std::size_t count) {
    constexpr int vectors = int(samplesPerVector / HWY_MIN(HWY_LANES(float), std::size_t(samplesPerVector)));
    for (std::size_t i = 0; i < count; ++i) {
        if (tile.ids)
            drawTriangle<vectors, true>(tile, pattern, *triangles[i], std::uint32_t(i + 1));
        else
            drawTriangle<vectors, false>(tile, pattern, *triangles[i], 0);
    }
}

void fillVisibility(SceneKernels& table) { table.rasterise = rasterise; }

}   // namespace tavix::scene3d::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tavix::scene3d {
HWY_EXPORT(fillVisibility);
void fillVisibilityKernels(SceneKernels& table) { HWY_DYNAMIC_DISPATCH(fillVisibility)(table); }
}   // namespace tavix::scene3d
#endif
