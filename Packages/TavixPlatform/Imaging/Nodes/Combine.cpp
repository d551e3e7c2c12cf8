// Pictures joined pixel by pixel: channel by channel, one atop the other, and mixed by a mask.
#include "TavixPlatform/Imaging/Nodes/Nodes.h"

namespace tavix::imaging {

namespace {

class JoinedNode final : public Node {
public:
    JoinedNode(const NodeRef& one, const NodeRef& other, Joining how)
        : Node(unionOf(one->extent(), other->extent()), unionOf(one->support(), other->support())), a(one),
          b(other), joining(how) {}
    void describe(Structure& s) const override {
        s.kind(NodeKind::joined).add(a).add(b).add(std::uint64_t(joining));
    }
    bool isOpaque(const PixelRegion& region) const override {
        return a->isOpaque(region) || b->isOpaque(region);
    }
    DrawableRef prepare(RenderContext&, const NodeRef&, const PixelRegion&) const override;
    const NodeRef a, b;
    const Joining joining;
};

class JoinedDrawable final : public Drawable {
public:
    JoinedDrawable(const NodeRef& node, DrawableRef a, DrawableRef b, Joining joining)
        : Drawable(node), a_(std::move(a)), b_(std::move(b)), joining_(joining) {}
    void draw(const Tile& tile, Scratch& scratch) const override {
        a_->draw(tile, scratch);
        const PixelRegion part = intersection(tile.region, b_->node().support());
        if (part.isEmpty()) return;
        const Scratch::Mark mark(scratch);
        const Tile own = scratch.tile(part);
        b_->draw(own, scratch);
        const auto join = joining_ == Joining::sum ? kernels().add : kernels().lighten;
        for (int y = part.y0; y < part.y1; ++y) join(tile.at(part.x0, y), own.row(y), own.width());
    }

private:
    DrawableRef a_, b_;
    Joining joining_;
};

DrawableRef JoinedNode::prepare(
    RenderContext& context, const NodeRef& self, const PixelRegion& wanted) const {
    return std::make_shared<JoinedDrawable>(
        self, context.prepare(a, wanted), context.prepare(b, wanted), joining);
}

class AtopNode final : public Node {
public:
    AtopNode(const NodeRef& before, const NodeRef& behind)
        : Node(behind->extent(), behind->support()), front(before), back(behind) {}
    void describe(Structure& s) const override { s.kind(NodeKind::atop).add(front).add(back); }
    bool isOpaque(const PixelRegion& region) const override { return back->isOpaque(region); }
    Digest contribution(const PixelRegion& region) const override {
        return back->contribution(region).isNothing() ? Digest{} : hash();
    }
    DrawableRef prepare(RenderContext&, const NodeRef&, const PixelRegion&) const override;
    const NodeRef front, back;
};

class AtopDrawable final : public Drawable {
public:
    AtopDrawable(const NodeRef& node, DrawableRef front, DrawableRef back)
        : Drawable(node), front_(std::move(front)), back_(std::move(back)) {}
    void draw(const Tile& tile, Scratch& scratch) const override {
        back_->draw(tile, scratch);
        const PixelRegion part = intersection(tile.region, back_->node().support());
        if (part.isEmpty()) return;
        const Scratch::Mark mark(scratch);
        const Tile front = scratch.tile(part);
        front_->draw(front, scratch);
        for (int y = part.y0; y < part.y1; ++y)
            kernels().atop(tile.at(part.x0, y), front.row(y), front.width());
    }

private:
    DrawableRef front_, back_;
};

DrawableRef AtopNode::prepare(RenderContext& context, const NodeRef& self, const PixelRegion& wanted) const {
    return std::make_shared<AtopDrawable>(
        self, context.prepare(front, wanted), context.prepare(back, wanted));
}

class MaskedNode final : public Node {
public:
    MaskedNode(const NodeRef& before, const NodeRef& behind, const NodeRef& by)
        : Node(unionOf(before->extent(), behind->extent()),
              unionOf(intersection(before->support(), by->support()), behind->support())),
          front(before), back(behind), mask(by) {}
    void describe(Structure& s) const override { s.kind(NodeKind::masked).add(front).add(back).add(mask); }
    bool isOpaque(const PixelRegion& region) const override {
        return front->isOpaque(region) && back->isOpaque(region);
    }
    DrawableRef prepare(RenderContext&, const NodeRef&, const PixelRegion&) const override;
    const NodeRef front, back, mask;
};

class MaskedDrawable final : public Drawable {
public:
    MaskedDrawable(const NodeRef& node, DrawableRef front, DrawableRef back, DrawableRef mask)
        : Drawable(node), front_(std::move(front)), back_(std::move(back)), mask_(std::move(mask)) {}
    void draw(const Tile& tile, Scratch& scratch) const override {
        back_->draw(tile, scratch);
        const PixelRegion part = intersection(tile.region, mask_->node().support());
        if (part.isEmpty()) return;
        const Scratch::Mark mark(scratch);
        const Tile front = scratch.tile(part), weights = scratch.tile(part);
        front_->draw(front, scratch);
        mask_->draw(weights, scratch);
        for (int y = part.y0; y < part.y1; ++y) {
            kernels().luminance(weights.row(y), weights.row(y), weights.width());
            std::uint32_t* out = tile.at(part.x0, y);
            kernels().mix(out, out, front.row(y), weights.row(y), front.width());
        }
    }

private:
    DrawableRef front_, back_, mask_;
};

DrawableRef MaskedNode::prepare(
    RenderContext& context, const NodeRef& self, const PixelRegion& wanted) const {
    return std::make_shared<MaskedDrawable>(
        self, context.prepare(front, wanted), context.prepare(back, wanted), context.prepare(mask, wanted));
}

}   // namespace

NodeRef makeJoined(const NodeRef& a, const NodeRef& b, Joining joining) {
    if (a->extent().isEmpty()) return b;
    return b->extent().isEmpty() ? a : makeNode<JoinedNode>(a, b, joining);
}

NodeRef makeAtop(const NodeRef& front, const NodeRef& back) {
    return front->extent().isEmpty() ? back : makeNode<AtopNode>(front, back);
}

NodeRef makeMasked(const NodeRef& front, const NodeRef& back, const NodeRef& mask) {
    if (front->extent().isEmpty() && back->extent().isEmpty()) return emptyNode();
    return makeNode<MaskedNode>(front, back, mask);
}

}   // namespace tavix::imaging
