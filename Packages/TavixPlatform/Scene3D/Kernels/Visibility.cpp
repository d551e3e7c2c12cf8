// Which triangle is nearest at each sample of a tile.
//
// Coverage is exact. Vertices are whole subpixels and samples stand at whole units of a power of two of them,
// so an edge's value at a sample is a multiple of that power plus a constant; divided by it and rounded down
// it keeps its sign. A sample on an edge belongs to the triangle whose top or left edge it is, so that
// neighbours cover each sample once.
//
// A cell that one triangle covers and owns is a word and two depths: its samples are worked out only once
// another triangle comes between. What is known of a cell bounds its depths exactly, so nothing depends on
// how much was left out.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "TavixPlatform/Scene3D/Kernels/Visibility.cpp"
#include <hwy/foreach_target.h>

#include "TavixPlatform/Scene3D/Kernels/Lanes-inl.h"
#include "TavixPlatform/Scene3D/Kernels/SceneKernels.h"

#include <algorithm>

HWY_BEFORE_NAMESPACE();
namespace tavix::scene3d::HWY_NAMESPACE {

// value(x, y) = perX x + perY y + constant, in units from the tile's corner; inside is 0 or more.
struct Edge {
    std::int64_t perX = 0, perY = 0, constant = 0;
    std::int64_t most = 0, least = 0;   // within a cell, from the value at its corner
    bool isNeeded = false;              // no: all of the tile is inside
};

enum class Crossing { outside, inside, crosses };

HWY_INLINE Crossing placeEdge(
    const Triangle& t, int from, const CellGrid& grid, const SamplePattern& pattern, Edge& edge) {
    const int to = from == 2 ? 0 : from + 1;
    const std::int64_t a = std::int64_t(t.y[from]) - t.y[to], b = std::int64_t(t.x[to]) - t.x[from];
    const bool isTopLeft = a > 0 || (a == 0 && b < 0);
    const std::int64_t left = std::int64_t(t.x[from]) - (grid.x0 << subpixelBits),
                       low = std::int64_t(t.y[from]) - (grid.y0 << subpixelBits);
    const std::int64_t constant = (-(a * left + b * low) - (isTopLeft ? 0 : 1)) >> pattern.unitBits;
    const std::int64_t most = std::max<std::int64_t>(a, 0) + std::max<std::int64_t>(b, 0);
    const std::int64_t least = std::min<std::int64_t>(a, 0) + std::min<std::int64_t>(b, 0);
    const int tileUnits = (tilePx << subpixelBits) >> pattern.unitBits;
    if (constant + most * tileUnits < 0) return Crossing::outside;
    if (constant + least * tileUnits >= 0) return Crossing::inside;
    edge = {a, b, constant, most << pattern.cellUnitBits, least * (1 << pattern.cellUnitBits), true};
    return Crossing::crosses;
}

// The 1 / depth of a triangle, in pixels from the tile's corner.
struct DepthPlane {
    float corner, perX, perY, least, most;
    HWY_INLINE DepthPlane(const Triangle& t, const CellGrid& grid)
        : perX(t.perX.inverseDepth), perY(t.perY.inverseDepth), least(t.leastInverseDepth),
          most(t.mostInverseDepth) {
        constexpr float subpixel = 1.0f / (1 << subpixelBits);
        const float x = float((grid.x0 << subpixelBits) - t.x[0]) * subpixel,
                    y = float((grid.y0 << subpixelBits) - t.y[0]) * subpixel;
        corner = t.atAnchor.inverseDepth + perX * x + perY * y;
    }
    // Of cells: of the left end of a row, and from there of a corner.
    HWY_INLINE float atRow(int y, float cellPx) const { return corner + perY * (float(y) * cellPx); }
    HWY_INLINE float atCell(int x, float atItsRow, float cellPx) const {
        return atItsRow + perX * (float(x) * cellPx);
    }
};

// Of the samples of a cell, from its corner.
struct DepthLanes {
    FloatVector value[cellVectors];
    HWY_INLINE DepthLanes(const DepthPlane& plane, const SamplePattern& pattern) {
        const Floats d;
        for (std::size_t v = 0; v < cellVectors; ++v)
            value[v] =
                hn::Add(hn::Mul(hn::LoadU(d, pattern.xPx.data() + v * cellLanes), constant(plane.perX)),
                    hn::Mul(hn::LoadU(d, pattern.yPx.data() + v * cellLanes), constant(plane.perY)));
    }
};
// What no sample of a cell passes, from its corner. Rounding keeps the order of numbers, so this holds to the
// bit.
HWY_INLINE float mostInCell(const DepthPlane& plane, const SamplePattern& pattern) {
    return (plane.perX > 0 ? pattern.mostPx : pattern.leastPx) * plane.perX +
           (plane.perY > 0 ? pattern.mostPx : pattern.leastPx) * plane.perY;
}
HWY_INLINE float leastInCell(const DepthPlane& plane, const SamplePattern& pattern) {
    return (plane.perX > 0 ? pattern.leastPx : pattern.mostPx) * plane.perX +
           (plane.perY > 0 ? pattern.leastPx : pattern.mostPx) * plane.perY;
}

// The 1 / depth of a sample: of the cell's corner and from there, limited to what the triangle has.
HWY_INLINE FloatVector depthAt(const DepthPlane& plane, FloatVector corner, FloatVector fromCorner) {
    return hn::Min(hn::Max(hn::Add(corner, fromCorner), constant(plane.least)), constant(plane.most));
}

HWY_INLINE float cellPxOf(const SamplePattern& pattern) {
    return float(1 << pattern.cellBits()) / (1 << subpixelBits);
}

// The samples of a cell that one triangle owns, or none.
struct CellPlace {
    int x, y;
};
HWY_INLINE void depthsOfOwner(const CellGrid& grid, const SamplePattern& pattern,
    const Triangle* const* triangles, std::uint32_t owner, CellPlace cell,
    FloatVector (&depths)[cellVectors]) {
    if (owner == 0) {
        for (FloatVector& depth : depths) depth = constant(0);
        return;
    }
    const DepthPlane plane(*triangles[owner - 1], grid);
    const DepthLanes lanes(plane, pattern);
    const FloatVector corner =
        constant(plane.atCell(cell.x, plane.atRow(cell.y, cellPxOf(pattern)), cellPxOf(pattern)));
    for (int v = 0; v < cellVectors; ++v) depths[v] = depthAt(plane, corner, lanes.value[v]);
}

class TriangleDrawing {
public:
    HWY_INLINE TriangleDrawing(const CellGrid& grid, const SamplePattern& pattern,
        const Triangle* const* triangles, std::uint32_t id)
        : grid_(grid), pattern_(pattern), triangles_(triangles), triangle_(*triangles[id - 1]), id_(id),
          plane_(triangle_, grid), lanes_(plane_, pattern), across_(pattern.cellsAcross()),
          cellPx_(cellPxOf(pattern)) {}

    HWY_INLINE void draw() {
        for (int i = 0; i < 3; ++i)
            if (placeEdge(triangle_, i, grid_, pattern_, edges_[i]) == Crossing::outside) return;
        mostInCell_ = mostInCell(plane_, pattern_);
        leastInCell_ = leastInCell(plane_, pattern_);
        setUpEdgeLanes();
        const auto [left, right] = std::minmax({triangle_.x[0], triangle_.x[1], triangle_.x[2]});
        const auto [low, high] = std::minmax({triangle_.y[0], triangle_.y[1], triangle_.y[2]});
        const int firstX = cellOf(left, grid_.x0), lastX = cellOf(right, grid_.x0);
        const int lastY = cellOf(high, grid_.y0);
        for (int y = cellOf(low, grid_.y0); y <= lastY; ++y) drawRow(y, firstX, lastX);
    }

private:
    // Cells of a row, both ends included.
    struct Run {
        int first, last;
    };

    HWY_INLINE int cellOf(std::int32_t subpixels, int originPx) const {
        return std::clamp((subpixels - (originPx << subpixelBits)) >> pattern_.cellBits(), 0, across_ - 1);
    }

    HWY_INLINE void setUpEdgeLanes() {
        const Ints di;
        for (int v = 0; v < cellVectors; ++v) {
            const IntVector x = hn::LoadU(di, pattern_.x.data() + std::size_t(v) * cellLanes);
            const IntVector y = hn::LoadU(di, pattern_.y.data() + std::size_t(v) * cellLanes);
            for (int i = 0; i < 3; ++i)
                edgeLanes_[i][v] = hn::Add(hn::Mul(x, constantInt(std::int32_t(edges_[i].perX))),
                    hn::Mul(y, constantInt(std::int32_t(edges_[i].perY))));
        }
    }

    HWY_INLINE void drawRow(int y, int firstX, int lastX) {
        for (int i = 0; i < 3; ++i)
            atRow_[i] = edges_[i].constant + edges_[i].perY * y * (1 << pattern_.cellUnitBits);
        Run touched{firstX, lastX}, full{firstX, lastX};
        constexpr int narrow = 3;   // not worth a division
        if (lastX - firstX < narrow)
            full = {firstX, firstX - 1};
        else
            for (int i = 0; i < 3; ++i)
                if (edges_[i].isNeeded) narrowRuns(edges_[i], atRow_[i], touched, full);
        if (full.first > full.last) full = {touched.last + 1, touched.last};
        const float rowDepth = plane_.atRow(y, cellPx_);
        for (int x = touched.first; x < full.first; ++x) drawPart(x, y, rowDepth);
        if (full.first <= full.last) fillRun(full, y, rowDepth);
        for (int x = full.last + 1; x <= touched.last; ++x) drawPart(x, y, rowDepth);
    }

    // The cells of a row that an edge leaves in part, and those that it leaves whole.
    HWY_INLINE void narrowRuns(const Edge& edge, std::int64_t atRow, Run& touched, Run& full) const {
        const std::int64_t step = edge.perX * (1 << pattern_.cellUnitBits);
        narrowRun(atRow + edge.most, step, touched);
        narrowRun(atRow + edge.least, step, full);
    }
    // Keeps the cells where value + step x is 0 or more.
    static HWY_INLINE void narrowRun(std::int64_t value, std::int64_t step, Run& run) {
        if (value + step * run.first >= 0 && value + step * run.last >= 0) return;
        if (step == 0) {
            run.last = run.first - 1;
        } else if (step > 0) {   // rounded up
            run.first = int(
                std::min<std::int64_t>(value >= 0 ? run.first : (-value + step - 1) / step, run.last + 1));
        } else {   // rounded down
            run.last = value < 0 ? run.first - 1 : int(std::min<std::int64_t>(value / -step, run.last));
        }
    }

    HWY_INLINE float limited(float depth) const {
        return std::min(std::max(depth, plane_.least), plane_.most);
    }

    // Cells that the triangle covers whole.
    HWY_INLINE void fillRun(const Run& run, int y, float rowDepth) {
        const Floats d;
        const Ints di;
        const std::size_t lanes = hn::Lanes(d);
        for (int x = run.first; x <= run.last; x += int(lanes)) {
            const auto i = std::size_t(y * across_ + x);
            const auto isMeant = hn::FirstN(d, std::size_t(run.last - x + 1));
            const FloatVector column = hn::Mul(hn::ConvertTo(d, hn::Iota(di, x)), constant(cellPx_));
            const FloatVector corner = hn::Add(constant(rowDepth), hn::Mul(constant(plane_.perX), column));
            const FloatVector near = depthAt(plane_, corner, constant(mostInCell_)),
                              far = depthAt(plane_, corner, constant(leastInCell_));
            const FloatVector nearBefore = hn::LoadU(d, grid_.nearest + i),
                              farBefore = hn::LoadU(d, grid_.farthest + i);
            const auto isTaken = hn::And(isMeant, hn::Gt(far, nearBefore));
            hn::BlendedStore(near, isTaken, d, grid_.nearest + i);
            hn::BlendedStore(far, isTaken, d, grid_.farthest + i);
            hn::BlendedStore(constantInt(std::int32_t(id_)), hn::RebindMask(di, isTaken), di,
                reinterpret_cast<std::int32_t*>(grid_.owners) + i);
            const auto isOpen = hn::AndNot(isTaken, hn::And(isMeant, hn::Gt(near, farBefore)));
            if (hn::AllFalse(d, isOpen)) continue;
            std::uint8_t open[8] = {};
            hn::StoreMaskBits(d, isOpen, open);
            for (unsigned bits = open[0] | unsigned(open[1]) << 8; bits; bits &= bits - 1)
                drawCell<false>(x + __builtin_ctz(bits), y, rowDepth, nullptr);
        }
    }

    // A cell that the triangle may cover in part.
    HWY_INLINE void drawPart(int x, int y, float rowDepth) {
        std::int64_t atCell[3];
        for (int i = 0; i < 3; ++i) {
            atCell[i] = atRow_[i] + edges_[i].perX * x * (1 << pattern_.cellUnitBits);
            if (atCell[i] + edges_[i].most < 0) return;
        }
        const float nearest = limited(plane_.atCell(x, rowDepth, cellPx_) + mostInCell_);
        if (nearest > grid_.farthest[std::size_t(y * across_ + x)]) drawCell<true>(x, y, rowDepth, atCell);
    }

    // `atCell`: the edges at the cell's corner; not looked at where there are none.
    template <bool HasEdges>
    HWY_INLINE void drawCell(int x, int y, float rowDepth, const std::int64_t* atCell) {
        const Floats d;
        const Ints di;
        const auto cell = std::size_t(y * across_ + x), entry = cell * samplesPerCell;
        FloatVector before[cellVectors];
        depthsBefore(x, y, before);
        IntVector corners[3];
        if constexpr (HasEdges)
            for (int i = 0; i < 3; ++i) corners[i] = constantInt(withinWord(atCell[i]));
        const FloatVector corner = constant(plane_.atCell(x, rowDepth, cellPx_));
        FloatVector after[cellVectors];
        FloatMask isNearer[cellVectors];
        bool isNone = true, isAll = true;
        for (int v = 0; v < cellVectors; ++v) {
            const FloatVector depth = depthAt(plane_, corner, lanes_.value[v]);
            isNearer[v] = hn::Gt(depth, before[v]);
            if constexpr (HasEdges) {
                const IntVector signs = hn::Or(hn::Add(corners[0], edgeLanes_[0][v]),
                    hn::Or(hn::Add(corners[1], edgeLanes_[1][v]), hn::Add(corners[2], edgeLanes_[2][v])));
                isNearer[v] = hn::AndNot(hn::RebindMask(d, hn::Lt(signs, hn::Zero(di))), isNearer[v]);
            }
            after[v] = hn::IfThenElse(isNearer[v], depth, before[v]);
            isNone = isNone && hn::AllFalse(d, isNearer[v]);
            isAll = isAll && hn::AllTrue(d, isNearer[v]);
        }
        if (isNone) return;
        setBounds(cell, limited(plane_.atCell(x, rowDepth, cellPx_) + mostInCell_), after);
        const std::uint32_t owner = grid_.owners[cell];
        grid_.owners[cell] = isAll ? id_ : CellGrid::isMixed;
        if (isAll) return;
        auto* ids = reinterpret_cast<std::int32_t*>(grid_.ids) + entry;
        for (int v = 0; v < cellVectors; ++v) {
            const std::size_t at = std::size_t(v) * cellLanes;
            const IntVector idBefore =
                owner == CellGrid::isMixed ? hn::Load(di, ids + at) : constantInt(std::int32_t(owner));
            hn::Store(after[v], d, grid_.inverseDepths + entry + at);
            hn::Store(
                hn::IfThenElse(hn::RebindMask(di, isNearer[v]), constantInt(std::int32_t(id_)), idBefore), di,
                ids + at);
        }
    }

    HWY_INLINE void depthsBefore(int x, int y, FloatVector (&before)[cellVectors]) const {
        const Floats d;
        const auto cell = std::size_t(y * across_ + x);
        const std::uint32_t owner = grid_.owners[cell];
        if (owner == CellGrid::isMixed) {
            for (int v = 0; v < cellVectors; ++v)
                before[v] =
                    hn::Load(d, grid_.inverseDepths + cell * samplesPerCell + std::size_t(v) * cellLanes);
        } else {
            depthsOfOwner(grid_, pattern_, triangles_, owner, {x, y}, before);
        }
    }

    // Bounds may be generous: nothing nearer than before but the triangle, and nothing behind it known as
    // long as a sample is clear.
    HWY_INLINE void setBounds(std::size_t cell, float nearest, const FloatVector (&depths)[cellVectors]) {
        grid_.nearest[cell] = std::max(grid_.nearest[cell], nearest);
        FloatVector least = depths[0];
        for (int v = 1; v < cellVectors; ++v) least = hn::Min(least, depths[v]);
        const Floats d;
        if (hn::AllTrue(d, hn::Gt(least, hn::Zero(d))))
            grid_.farthest[cell] = hn::GetLane(hn::MinOfLanes(d, least));
    }

    // Far from the edge a limit stands for the value: within a cell it does not change sign.
    static HWY_INLINE std::int32_t withinWord(std::int64_t value) {
        constexpr std::int64_t limit = std::int64_t(1) << 30;
        return std::int32_t(std::clamp(value, -limit, limit));
    }

    const CellGrid& grid_;
    const SamplePattern& pattern_;
    const Triangle* const* triangles_;
    const Triangle& triangle_;
    std::uint32_t id_;
    DepthPlane plane_;
    DepthLanes lanes_;
    int across_;
    float cellPx_;
    float mostInCell_ = 0, leastInCell_ = 0;
    Edge edges_[3];
    std::int64_t atRow_[3] = {};   // the edges at the left end of a row
    IntVector edgeLanes_[3][cellVectors];
};

void spread(const CellGrid& grid, const SamplePattern& pattern, const Triangle* const* triangles) {
    const int across = pattern.cellsAcross();
    for (int cell = 0; cell < pattern.cellCount(); ++cell) {
        const std::uint32_t owner = grid.owners[cell];
        if (owner == CellGrid::isMixed) continue;
        FloatVector depths[cellVectors];
        depthsOfOwner(grid, pattern, triangles, owner, {cell % across, cell / across}, depths);
        for (std::size_t v = 0; v < cellVectors; ++v) {
            const std::size_t at = std::size_t(cell) * samplesPerCell + v * cellLanes;
            hn::Store(depths[v], Floats(), grid.inverseDepths + at);
            hn::Store(
                constantInt(std::int32_t(owner)), Ints(), reinterpret_cast<std::int32_t*>(grid.ids) + at);
        }
    }
}

void rasterise(
    const CellGrid& grid, const SamplePattern& pattern, const Triangle* const* triangles, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        TriangleDrawing(grid, pattern, triangles, std::uint32_t(i + 1)).draw();
}

void fillVisibility(SceneKernels& table) {
    table.rasterise = rasterise;
    table.spread = spread;
}

}   // namespace tavix::scene3d::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace tavix::scene3d {
HWY_EXPORT(fillVisibility);
void fillVisibilityKernels(SceneKernels& table) { HWY_DYNAMIC_DISPATCH(fillVisibility)(table); }
}   // namespace tavix::scene3d
#endif
