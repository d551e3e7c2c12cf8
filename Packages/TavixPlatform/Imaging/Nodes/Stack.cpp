// Pictures over one another. A stack is flat, so that a scene of many layers is one node, and what an opaque
// layer covers is not drawn.
#include "TavixPlatform/Imaging/Nodes/Nodes.h"

#include <algorithm>

namespace tavix::imaging {

namespace {

Rect extentOf(const std::vector<NodeRef>& layers) {
    Rect extent;
    for (const NodeRef& layer : layers) extent = unionOf(extent, layer->extent());
    return extent;
}
PixelRegion supportOf(const std::vector<NodeRef>& layers) {
    PixelRegion support;
    for (const NodeRef& layer : layers) support = unionOf(support, layer->support());
    return support;
}

class StackNode final : public Node {
public:
    explicit StackNode(std::vector<NodeRef> bottomToTop)
        : Node(extentOf(bottomToTop), supportOf(bottomToTop)), layers(std::move(bottomToTop)) {}
    void describe(Structure& s) const override {
        s.kind(NodeKind::stack).add(std::uint64_t(layers.size()));
        for (const NodeRef& layer : layers) s.add(layer);
    }
    bool isFine() const override {
        return std::ranges::all_of(layers, [](const NodeRef& layer) { return layer->isFine(); });
    }
    bool isOpaque(const PixelRegion& region) const override { return lowestSeen(region) > 0; }
    Digest contribution(const PixelRegion& region) const override {
        Hash hash = hashOf(NodeKind::layersOfStack);
        Digest only;   // one layer alone counts as itself
        int count = 0;
        for (std::size_t i = layers.size(); i-- > 0;) {
            const Digest below = layers[i]->contribution(region);
            if (below.isNothing()) continue;
            hash.add(below);
            only = below;
            ++count;
            if (layers[i]->isOpaque(region)) break;
        }
        return count > 1 ? hash.digest() : only;
    }
    // One more than the index of the topmost layer that hides all below it in a region; 0 when there is none.
    std::size_t lowestSeen(const PixelRegion& region) const {
        std::size_t i = layers.size();
        while (i > 0 && !layers[i - 1]->isOpaque(region)) --i;
        return i;
    }
    DrawableRef prepare(RenderContext&, const NodeRef&, const PixelRegion&) const override;
    const std::vector<NodeRef> layers;
};

class StackDrawable final : public Drawable {
public:
    StackDrawable(const NodeRef& node, std::vector<DrawableRef> layers)
        : Drawable(node), layers_(std::move(layers)) {}
    void draw(const Tile& tile, Scratch& scratch) const override {
        const std::size_t base = lowestSeen(tile.region);
        if (base == 0)
            clear(tile);
        else
            layers_[base - 1]->draw(tile, scratch);
        for (std::size_t i = base; i < layers_.size(); ++i) layers_[i]->drawOver(tile, 255, scratch);
    }
    void drawOver(const Tile& tile, unsigned opacity, Scratch& scratch) const override {
        if (opacity < 255) return Drawable::drawOver(tile, opacity, scratch);   // faded as a group
        const std::size_t base = lowestSeen(tile.region);
        for (std::size_t i = std::max<std::size_t>(base, 1) - 1; i < layers_.size(); ++i)
            layers_[i]->drawOver(tile, 255, scratch);
    }
    void drawFloat(const FloatTile& tile, Scratch& scratch) const override {
        if (layers_.empty()) return Drawable::drawFloat(tile, scratch);
        const std::size_t base = std::max<std::size_t>(lowestSeen(tile.region), 1);
        layers_[base - 1]->drawFloat(tile, scratch);
        for (std::size_t i = base; i < layers_.size(); ++i) {
            if (intersection(layers_[i]->node().support(), tile.region).isEmpty()) continue;
            const Scratch::Mark mark(scratch);
            const FloatTile own = scratch.floatTile(tile.region);
            layers_[i]->drawFloat(own, scratch);
            for (int y = tile.region.y0; y < tile.region.y1; ++y)
                kernels().overFloat(tile.row(y), own.row(y), tile.width());
        }
    }

private:
    std::size_t lowestSeen(const PixelRegion& region) const {
        std::size_t i = layers_.size();
        while (i > 0 && !layers_[i - 1]->node().isOpaque(region)) --i;
        return i;
    }
    std::vector<DrawableRef> layers_;
};

DrawableRef StackNode::prepare(RenderContext& context, const NodeRef& self, const PixelRegion& wanted) const {
    std::vector<DrawableRef> drawables;
    for (std::size_t i = std::max<std::size_t>(lowestSeen(wanted), 1) - 1; i < layers.size(); ++i)
        if (!intersection(layers[i]->support(), wanted).isEmpty())
            drawables.push_back(context.prepare(layers[i], wanted));
    return std::make_shared<StackDrawable>(self, std::move(drawables));
}

}   // namespace

NodeRef makeStack(std::vector<NodeRef> bottomToTop) {
    std::erase_if(bottomToTop, [](const NodeRef& layer) { return layer->extent().isEmpty(); });
    if (bottomToTop.empty()) return emptyNode();
    if (bottomToTop.size() == 1) return bottomToTop.front();
    return makeNode<StackNode>(std::move(bottomToTop));
}

}   // namespace tavix::imaging
