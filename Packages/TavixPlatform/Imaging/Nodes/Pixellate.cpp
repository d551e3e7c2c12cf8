// Squares of one colour each: the mean of the pixels whose centres lie in the square.
#include "TavixPlatform/Imaging/Nodes/Nodes.h"

#include <algorithm>
#include <cmath>

namespace tavix::imaging {

namespace {

// Squares counted from the one whose bottom-left corner is the centre point.
struct Squares {
    Point center;
    double sidePx;
    int indexX(int x) const { return int(std::floor((x + 0.5 - center.x) / sidePx)); }
    int indexY(int y) const { return int(std::floor((y + 0.5 - center.y) / sidePx)); }
    PixelRegion covering(const PixelRegion& r) const {
        return {indexX(r.x0), indexY(r.y0), indexX(r.x1 - 1) + 1, indexY(r.y1 - 1) + 1};
    }
    // The pixels whose centres lie in a square.
    PixelRegion pixelsOf(int i, int j) const {
        const auto first = [&](double origin, int index) {
            return int(std::ceil(origin + index * sidePx - 0.5));
        };
        return {first(center.x, i), first(center.y, j), first(center.x, i + 1), first(center.y, j + 1)};
    }
    // All the pixels of all the squares that a region touches.
    PixelRegion grown(const PixelRegion& r) const {
        const PixelRegion s = covering(r);
        const PixelRegion low = pixelsOf(s.x0, s.y0), high = pixelsOf(s.x1 - 1, s.y1 - 1);
        return {low.x0, low.y0, high.x1, high.y1};
    }
};

class PixellatedNode final : public Node {
public:
    PixellatedNode(const NodeRef& in, const Squares& grid)
        : Node(unionOf(in->extent(), grid.grown(in->support()).rect()), grid.grown(in->support())), input(in),
          squares(grid) {}
    void describe(Structure& s) const override {
        s.kind(NodeKind::pixellated).add(input);
        s.add(squares.center.x).add(squares.center.y).add(squares.sidePx);
    }
    bool isOpaque(const PixelRegion& region) const override { return input->isOpaque(squares.grown(region)); }
    DrawableRef prepare(RenderContext&, const NodeRef&, const PixelRegion&) const override;
    const NodeRef input;
    const Squares squares;
};

class PixellatedDrawable final : public Drawable {
public:
    PixellatedDrawable(
        const NodeRef& node, const Squares& squares, const PixelRegion& indices, BitmapRef colors)
        : Drawable(node), squares_(squares), indices_(indices), colors_(std::move(colors)) {}
    void draw(const Tile& tile, Scratch&) const override {
        const ConstBitmapView view = colors_->view();
        for (int y = tile.region.y0; y < tile.region.y1; ++y) {
            std::uint32_t* out = tile.row(y);
            const int j = squares_.indexY(y) - indices_.y0;
            const bool hasRow = j >= 0 && j < view.size.height;
            const auto* colors = hasRow ? reinterpret_cast<const std::uint32_t*>(view.row(j)) : nullptr;
            for (int x = tile.region.x0; x < tile.region.x1; ++x) {
                const int i = squares_.indexX(x) - indices_.x0;
                *out++ = colors && i >= 0 && i < view.size.width ? colors[i] : 0;
            }
        }
    }

private:
    Squares squares_;
    PixelRegion indices_;
    BitmapRef colors_;   // one pixel a square, the first row lowest
};

std::uint32_t meanOf(const Tile& source, const PixelRegion& square) {
    std::uint64_t sums[4] = {};
    const PixelRegion part = intersection(square, source.region);
    for (int y = part.y0; y < part.y1; ++y)
        for (int x = part.x0; x < part.x1; ++x)
            for (int c = 0; c < 4; ++c) sums[c] += (*source.at(x, y) >> (8 * c)) & 255;
    const auto count =
        std::uint64_t(std::max(square.width(), 1)) * std::uint64_t(std::max(square.height(), 1));
    std::uint32_t pixel = 0;
    for (int c = 0; c < 4; ++c) pixel |= std::uint32_t((sums[c] + count / 2) / count) << (8 * c);
    return pixel;
}

DrawableRef PixellatedNode::prepare(
    RenderContext& context, const NodeRef& self, const PixelRegion& wanted) const {
    const PixelRegion indices = squares.covering(wanted);
    const PixelRegion seen = squares.grown(wanted);
    auto source =
        std::make_shared<Bitmap>(Bitmap::uninitialised({seen.width(), seen.height()}, context.pool()));
    const Tile pixels = Tile::of(source->view(), seen);
    context.drawInto(input, pixels);
    auto colors =
        std::make_shared<Bitmap>(Bitmap::uninitialised({indices.width(), indices.height()}, context.pool()));
    context.forEach(indices.height(), [&](int row, Scratch&) {
        auto* out = reinterpret_cast<std::uint32_t*>(colors->view().row(row));
        for (int i = indices.x0; i < indices.x1; ++i)
            *out++ = meanOf(pixels, squares.pixelsOf(i, indices.y0 + row));
    });
    return std::make_shared<PixellatedDrawable>(self, squares, indices, colors);
}

}   // namespace

NodeRef makePixellated(const NodeRef& input, Point center, double scalePx) {
    if (!(scalePx > 1) || input->support().isEmpty()) return input;
    return makeNode<PixellatedNode>(input, Squares{center, std::min(scalePx, 4096.0)});
}

}   // namespace tavix::imaging
