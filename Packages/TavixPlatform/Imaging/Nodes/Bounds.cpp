// Nodes that say where a picture is seen: cut, continued past its edges, repeated.
#include "TavixPlatform/Imaging/Nodes/Nodes.h"

#include <algorithm>
#include <cstring>

namespace tavix::imaging {

namespace {

class CroppedNode final : public Node {
public:
    CroppedNode(const NodeRef& in, const Rect& extent) : Node(extent, in->support()), input(in) {}
    void describe(Structure& s) const override { s.kind(NodeKind::cropped).add(input).add(extent()); }
    bool isFine() const override { return input->isFine(); }
    bool isOpaque(const PixelRegion& region) const override {
        return support().contains(region) && input->isOpaque(region);
    }
    Digest contribution(const PixelRegion& region) const override {
        const PixelRegion part = intersection(region, support());
        if (part.isEmpty()) return {};
        const Digest below = input->contribution(part);
        if (below.isNothing() || part == region) return below;
        return hashOf(NodeKind::cropped).add(below).add(support()).digest();
    }
    DrawableRef prepare(RenderContext&, const NodeRef&, const PixelRegion&) const override;
    const NodeRef input;
};

class CroppedDrawable final : public Drawable {
public:
    CroppedDrawable(const NodeRef& node, DrawableRef input) : Drawable(node), input_(std::move(input)) {}
    void draw(const Tile& tile, Scratch& scratch) const override { drawWithin(*input_, tile, scratch); }
    void drawOver(const Tile& tile, unsigned opacity, Scratch& scratch) const override {
        const PixelRegion part = intersection(tile.region, node().support());
        if (!part.isEmpty()) input_->drawOver(tile.part(part), opacity, scratch);
    }
    void drawFloat(const FloatTile& tile, Scratch& scratch) const override {
        drawWithin(*input_, tile, scratch);
    }

private:
    DrawableRef input_;
};

DrawableRef CroppedNode::prepare(
    RenderContext& context, const NodeRef& self, const PixelRegion& wanted) const {
    return std::make_shared<CroppedDrawable>(self, context.prepare(input, wanted));
}

// The part of an edge that a region outside it looks at.
PixelRegion nearest(const PixelRegion& region, const PixelRegion& edge) {
    const auto low = [](int v, int from, int to) { return std::clamp(v, from, to - 1); };
    return {low(region.x0, edge.x0, edge.x1), low(region.y0, edge.y0, edge.y1),
        low(region.x1 - 1, edge.x0, edge.x1) + 1, low(region.y1 - 1, edge.y0, edge.y1) + 1};
}

// A clear border continues as nothing, so ink that keeps off it is all there is.
PixelRegion continuedSupport(const Node& input) {
    const PixelRegion inside = grownBy(pixelsCovering(input.extent()), -1);
    return inside.contains(input.support()) ? input.support() : pixelsCovering(Rect::infinite());
}

class ContinuedNode final : public Node {
public:
    explicit ContinuedNode(const NodeRef& in)
        : Node(Rect::infinite(), continuedSupport(*in)), input(in), edge(pixelsCovering(in->extent())) {}
    void describe(Structure& s) const override { s.kind(NodeKind::continued).add(input); }
    bool isOpaque(const PixelRegion& region) const override { return input->isOpaque(nearest(region, edge)); }
    DrawableRef prepare(RenderContext&, const NodeRef&, const PixelRegion&) const override;
    const NodeRef input;
    const PixelRegion edge;
};

class ContinuedDrawable final : public Drawable {
public:
    ContinuedDrawable(const NodeRef& node, const PixelRegion& edge, DrawableRef input)
        : Drawable(node), edge_(edge), input_(std::move(input)) {}
    void draw(const Tile& tile, Scratch& scratch) const override {
        if (edge_.contains(tile.region)) return input_->draw(tile, scratch);
        const Scratch::Mark mark(scratch);
        const Tile inner = scratch.tile(nearest(tile.region, edge_));
        input_->draw(inner, scratch);
        for (int y = tile.region.y0; y < tile.region.y1; ++y) {
            const std::uint32_t* from = inner.row(std::clamp(y, inner.region.y0, inner.region.y1 - 1));
            std::uint32_t* to = tile.row(y);
            for (int x = tile.region.x0; x < tile.region.x1; ++x)
                *to++ = from[std::clamp(x, inner.region.x0, inner.region.x1 - 1) - inner.region.x0];
        }
    }

private:
    PixelRegion edge_;
    DrawableRef input_;
};

DrawableRef ContinuedNode::prepare(
    RenderContext& context, const NodeRef& self, const PixelRegion& wanted) const {
    return std::make_shared<ContinuedDrawable>(self, edge, context.prepare(input, nearest(wanted, edge)));
}

class TiledNode final : public Node {
public:
    explicit TiledNode(const NodeRef& in)
        : Node(Rect::infinite(), pixelsCovering(Rect::infinite())), input(in),
          cell(pixelsCovering(in->extent())) {}
    void describe(Structure& s) const override { s.kind(NodeKind::tiled).add(input); }
    bool isOpaque(const PixelRegion&) const override { return input->isOpaque(cell); }
    DrawableRef prepare(RenderContext&, const NodeRef&, const PixelRegion&) const override;
    const NodeRef input;
    const PixelRegion cell;
};

class TiledDrawable final : public Drawable {
public:
    TiledDrawable(const NodeRef& node, const PixelRegion& cell, BitmapRef bitmap)
        : Drawable(node), cell_(cell), bitmap_(std::move(bitmap)) {}
    void draw(const Tile& tile, Scratch&) const override {
        const auto wrap = [](int v, int size) { return ((v % size) + size) % size; };
        const ConstBitmapView view = bitmap_->view();
        for (int y = tile.region.y0; y < tile.region.y1; ++y) {
            const auto* from = reinterpret_cast<const std::uint32_t*>(
                view.row(view.size.height - 1 - wrap(y - cell_.y0, cell_.height())));
            std::uint32_t* to = tile.row(y);
            for (int x = tile.region.x0; x < tile.region.x1;) {
                const int at = wrap(x - cell_.x0, cell_.width());
                const int run = std::min(cell_.width() - at, tile.region.x1 - x);
                std::memcpy(to, from + at, std::size_t(run) * 4);
                to += run;
                x += run;
            }
        }
    }

private:
    PixelRegion cell_;
    BitmapRef bitmap_;
};

DrawableRef TiledNode::prepare(RenderContext& context, const NodeRef& self, const PixelRegion&) const {
    auto bitmap =
        std::make_shared<Bitmap>(Bitmap::uninitialised({cell.width(), cell.height()}, context.pool()));
    context.drawInto(input, Tile::of(bitmap->view(), cell));
    return std::make_shared<TiledDrawable>(self, cell, bitmap);
}

bool canRepeat(const NodeRef& input) {
    const PixelRegion cell = pixelsCovering(input->extent());
    return !cell.isEmpty() && cell.width() <= Bitmap::maxSidePx && cell.height() <= Bitmap::maxSidePx;
}

}   // namespace

NodeRef makeCropped(const NodeRef& input, const Rect& rect) {
    const Rect extent = intersection(input->extent(), pixelsCovering(rect).rect());
    if (extent.isEmpty()) return emptyNode();
    if (extent == input->extent()) return input;
    if (const auto* inner = dynamic_cast<const CroppedNode*>(input.get()))
        return makeCropped(inner->input, extent);
    return makeNode<CroppedNode>(input, extent);
}

NodeRef makeContinued(const NodeRef& input) {
    if (input->extent().isInfinite() || input->extent().isEmpty()) return input;
    return makeNode<ContinuedNode>(input);
}

NodeRef makeTiled(const NodeRef& input) {
    return canRepeat(input) ? makeNode<TiledNode>(input) : emptyNode();
}

const NodeRef& insideCropping(const NodeRef& node) {
    const auto* cropped = dynamic_cast<const CroppedNode*>(node.get());
    return cropped ? cropped->input : node;
}

Behind behind(const NodeRef& node) {
    const auto* continued = dynamic_cast<const ContinuedNode*>(node.get());
    if (!continued) return {node, false};
    return {continued->input, continued->support() != continued->input->support()};
}

}   // namespace tavix::imaging
