// Pictures joined pixel by pixel: added, and mixed by a mask.
#include "TavixPlatform/Imaging/Nodes/Nodes.h"

namespace tavix::imaging {

namespace {

class SumNode final : public Node {
public:
    SumNode(const NodeRef& one, const NodeRef& other)
        : Node(unionOf(one->extent(), other->extent()), unionOf(one->support(), other->support())), a(one),
          b(other) {}
    void describe(Structure& s) const override { s.kind(NodeKind::sum).add(a).add(b); }
    bool isOpaque(const PixelRegion& region) const override {
        return a->isOpaque(region) || b->isOpaque(region);
    }
    DrawableRef prepare(Workshop&, const NodeRef&, const PixelRegion&) const override;
    const NodeRef a, b;
};

class SumDrawable final : public Drawable {
public:
    SumDrawable(const NodeRef& node, DrawableRef a, DrawableRef b)
        : Drawable(node), a_(std::move(a)), b_(std::move(b)) {}
    void draw(const Tile& tile, Scratch& scratch) const override {
        a_->draw(tile, scratch);
        const PixelRegion part = intersection(tile.region, b_->node().support());
        if (part.isEmpty()) return;
        const Scratch::Mark mark(scratch);
        const Tile own = scratch.tile(part);
        b_->draw(own, scratch);
        for (int y = part.y0; y < part.y1; ++y) kernels().add(tile.at(part.x0, y), own.row(y), own.width());
    }

private:
    DrawableRef a_, b_;
};

DrawableRef SumNode::prepare(Workshop& workshop, const NodeRef& self, const PixelRegion& wanted) const {
    return std::make_shared<SumDrawable>(self, workshop.prepare(a, wanted), workshop.prepare(b, wanted));
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
    DrawableRef prepare(Workshop&, const NodeRef&, const PixelRegion&) const override;
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

DrawableRef MaskedNode::prepare(Workshop& workshop, const NodeRef& self, const PixelRegion& wanted) const {
    return std::make_shared<MaskedDrawable>(self, workshop.prepare(front, wanted),
        workshop.prepare(back, wanted), workshop.prepare(mask, wanted));
}

}   // namespace

NodeRef makeSum(const NodeRef& a, const NodeRef& b) {
    if (a->extent().isEmpty()) return b;
    return b->extent().isEmpty() ? a : makeNode<SumNode>(a, b);
}

NodeRef makeMasked(const NodeRef& front, const NodeRef& back, const NodeRef& mask) {
    if (front->extent().isEmpty() && back->extent().isEmpty()) return emptyNode();
    return makeNode<MaskedNode>(front, back, mask);
}

}   // namespace tavix::imaging
