// Scaling onto a rectangle at its best: a cubic filter as wide as the reduction asks for.
#include "TavixPlatform/Imaging/Nodes/Nodes.h"

#include <algorithm>
#include <cmath>

namespace tavix::imaging {

namespace {

// Keys' cubic (1981) with a = -1/2: passes through its samples, third-order accurate.
double cubic(double x) {
    x = std::abs(x);
    if (x < 1) return (1.5 * x - 2.5) * x * x + 1;
    if (x < 2) return ((-0.5 * x + 2.5) * x - 4) * x + 2;
    return 0;
}

// Weights of source pixels for each target pixel along one axis, and how much of that target pixel is
// covered.
struct Axis {
    int taps = 1;
    std::vector<int> first;
    std::vector<float> weights, covered;
};

// Source pixels count from 0 at `low`; the target spans low to high on pixels from, from + 1, ...
Axis axisOf(int sourceSize, double low, double high, int from, int to) {
    // Source pixels per target pixel. A target that is narrower than this allows covers nothing.
    const double ratio = std::min(sourceSize / (high - low), 4.0 * sourceSize);
    const double width = std::max(ratio, 1.0);
    Axis axis;
    axis.taps = std::min(int(std::ceil(width * 4)) + 1, sourceSize);
    for (int x = from; x < to; ++x) {
        const double center = (x + 0.5 - low) * ratio - 0.5;
        const int begin = std::clamp(int(std::ceil(center - 2 * width)), 0, sourceSize - axis.taps);
        std::vector<double> w(std::size_t(axis.taps), 0.0);
        double sum = 0;
        for (int i = int(std::ceil(center - 2 * width)); i <= int(std::floor(center + 2 * width)); ++i) {
            const double weight = cubic((i - center) / width);
            const int inside = std::clamp(std::clamp(i, 0, sourceSize - 1) - begin, 0, axis.taps - 1);
            w[std::size_t(inside)] += weight;   // edge pixels continue
            sum += weight;
        }
        axis.first.push_back(begin);
        for (double v : w) axis.weights.push_back(float(v / sum));
        axis.covered.push_back(
            float(std::clamp(std::min(x + 1.0, high) - std::max(double(x), low), 0.0, 1.0)));
    }
    return axis;
}

// How far the filter reaches, in source pixels.
double reachOf(double sourceSize, double targetSize) {
    return 2 * std::max(sourceSize / targetSize, 1.0) + 1;
}

// Where the target can show anything: the source's ink, as wide as the filter smears it.
PixelRegion inkIn(const Rect& target, const Node& input) {
    const PixelRegion ink = input.support(), all = pixelsCovering(input.extent());
    if (ink.isEmpty()) return {};
    const double sx = target.width / all.width(), sy = target.height / all.height();
    const double rx = reachOf(all.width(), target.width), ry = reachOf(all.height(), target.height);
    return pixelsCovering(
        Rect::fromEdges(target.x + (ink.x0 - all.x0 - rx) * sx, target.y + (ink.y0 - all.y0 - ry) * sy,
            target.x + (ink.x1 - all.x0 + rx) * sx, target.y + (ink.y1 - all.y0 + ry) * sy));
}

class PlacedNode final : public Node {
public:
    PlacedNode(const NodeRef& in, const Rect& target) : Node(target, inkIn(target, *in)), input(in) {}
    void describe(Structure& s) const override { s.kind(NodeKind::placed).add(input).add(extent()); }
    bool isOpaque(const PixelRegion& region) const override {
        const Rect& r = extent();
        const bool isInside =
            r.x <= region.x0 && r.y <= region.y0 && region.x1 <= r.maxX() && region.y1 <= r.maxY();
        return isInside && input->isOpaque(pixelsCovering(input->extent()));
    }
    DrawableRef prepare(RenderContext&, const NodeRef&, const PixelRegion&) const override;
    const NodeRef input;
};

// Both axes of a placement onto the pixels of `out`, and the source pixels that they read.
struct Placement {
    Placement(const PixelRegion& all, const Rect& target, const PixelRegion& out)
        : across(axisOf(all.width(), target.x, target.maxX(), out.x0, out.x1)),
          up(axisOf(all.height(), target.y, target.maxY(), out.y0, out.y1)),
          needed{all.x0 + across.first.front(), all.y0 + up.first.front(),
              all.x0 + across.first.back() + across.taps, all.y0 + up.first.back() + up.taps} {}
    Axis across, up;
    PixelRegion needed;
};

class PlacedDrawable final : public Drawable {
public:
    PlacedDrawable(const NodeRef& node, Placement placement, Point sourceOrigin, const Tile& source,
        std::shared_ptr<const void> owner)
        : Drawable(node), across_(std::move(placement.across)), up_(std::move(placement.up)),
          originX_(int(sourceOrigin.x)), originY_(int(sourceOrigin.y)), source_(source),
          owner_(std::move(owner)) {}
    void draw(const Tile& tile, Scratch& scratch) const override {
        const PixelRegion part = intersection(tile.region, node().support());
        if (part != tile.region) clear(tile);
        if (!part.isEmpty()) drawPart(tile.part(part), scratch);
    }

private:
    void drawPart(const Tile& tile, Scratch& scratch) const {
        const Scratch::Mark mark(scratch);
        const PixelRegion& out = node().support();
        const auto column = std::size_t(tile.region.x0 - out.x0), row = std::size_t(tile.region.y0 - out.y0);
        const std::size_t width = tile.width(), height = std::size_t(tile.region.height());
        const int firstRow = up_.first[row], endRow = up_.first[row + height - 1] + up_.taps;
        const int firstColumn = across_.first[column],
                  endColumn = across_.first[column + width - 1] + across_.taps;

        auto* expanded = scratch.take<float>(std::size_t(endColumn - firstColumn) * 4);
        auto* firsts = scratch.take<int>(width);
        for (std::size_t i = 0; i < width; ++i) firsts[i] = across_.first[column + i] - firstColumn;
        auto* rows = scratch.take<float>(std::size_t(endRow - firstRow) * width * 4);
        for (int y = firstRow; y < endRow; ++y) {
            kernels().expand(expanded, source_.at(originX_ + firstColumn, originY_ + y),
                std::size_t(endColumn - firstColumn));
            kernels().resample(rows + std::size_t(y - firstRow) * width * 4, expanded, firsts,
                across_.weights.data() + column * std::size_t(across_.taps), across_.taps, width);
        }

        auto* mixed = scratch.take<float>(width * 4);
        auto* taps = scratch.take<const float*>(std::size_t(up_.taps));
        for (std::size_t y = 0; y < height; ++y) {
            for (int t = 0; t < up_.taps; ++t)
                taps[t] = rows + std::size_t(up_.first[row + y] + t - firstRow) * width * 4;
            kernels().weightedSum(
                mixed, taps, up_.weights.data() + (row + y) * std::size_t(up_.taps), up_.taps, width * 4);
            for (std::size_t x = 0; x < width; ++x) {
                const float covered = across_.covered[column + x] * up_.covered[row + y];
                if (covered < 1)
                    for (std::size_t c = 0; c < 4; ++c) mixed[x * 4 + c] *= covered;
            }
            const int top = tile.region.y0 + int(y);
            kernels().packInterleaved(tile.row(top), mixed, ditherOfChannels(tile.region.x0, top), width);
        }
    }

    Axis across_, up_;
    int originX_, originY_;   // of the source's extent
    Tile source_;
    std::shared_ptr<const void> owner_;   // of the source's pixels
};

DrawableRef PlacedNode::prepare(RenderContext& context, const NodeRef& self, const PixelRegion&) const {
    const PixelRegion all = pixelsCovering(input->extent());
    Placement placement(all, extent(), support());
    const PixelRegion needed = placement.needed;
    const Point origin{double(all.x0), double(all.y0)};
    if (const Picture* p = asBitmap(*input); p && p->region.contains(needed)) {
        const ConstBitmapView v = p->bitmap->view();
        const Tile source = Tile::of({const_cast<std::uint8_t*>(v.pixels), v.size, v.strideBytes}, p->region);
        return std::make_shared<PlacedDrawable>(self, std::move(placement), origin, source, p->bitmap);
    }
    auto bitmap =
        std::make_shared<Bitmap>(Bitmap::uninitialised({needed.width(), needed.height()}, context.pool()));
    const Tile source = Tile::of(bitmap->view(), needed);
    context.drawInto(input, source);
    return std::make_shared<PlacedDrawable>(self, std::move(placement), origin, source, bitmap);
}

}   // namespace

NodeRef makePlaced(const NodeRef& input, const Rect& target) {
    const Rect& from = input->extent();
    const PixelRegion all = pixelsCovering(from);
    const bool isUsable = !from.isEmpty() && !from.isInfinite() && all.width() <= Bitmap::maxSidePx &&
                          all.height() <= Bitmap::maxSidePx;
    if (!isUsable || target.isEmpty() || target.isInfinite()) return emptyNode();
    const double sx = target.width / from.width, sy = target.height / from.height;
    const Affine map{sx, 0, 0, sy, target.x - from.x * sx, target.y - from.y * sy};
    const PixelRegion out = pixelsCovering(target);
    const bool isHuge = out.width() > 2 * Bitmap::maxSidePx || out.height() > 2 * Bitmap::maxSidePx;
    const bool isShift =
        map.isTranslation() && target.x == std::round(target.x) && target.y == std::round(target.y);
    // A huge target would need tables as long; its enlarged pixels look the same through the plain transform.
    if (isShift || isHuge) return makeTransformed(input, map);
    return makeNode<PlacedNode>(input, target);
}

}   // namespace tavix::imaging
