// A picture lit by another one, as by its own blur where it blooms.
#include "TavixPlatform/Imaging/Nodes/Nodes.h"

#include <algorithm>

namespace tavix::imaging {

namespace {

class LitNode final : public Node {
public:
    LitNode(const NodeRef& in, const NodeRef& glow, double strength)
        : Node(unionOf(in->extent(), glow->extent()), unionOf(in->support(), glow->support())), input(in),
          light(glow), intensity(strength) {}
    void describe(Structure& s) const override { s.kind(NodeKind::lit).add(input).add(light).add(intensity); }
    bool isFine() const override { return input->isFine() || light->isFine(); }
    bool isOpaque(const PixelRegion& region) const override { return input->isOpaque(region); }
    DrawableRef prepare(RenderContext&, const NodeRef&, const PixelRegion&) const override;
    const NodeRef input, light;
    const double intensity;
};

class LitDrawable final : public FloatDrawable {
public:
    LitDrawable(const NodeRef& node, DrawableRef input, DrawableRef light, double intensity)
        : FloatDrawable(node), input_(std::move(input)), light_(std::move(light)),
          intensity_(float(intensity)) {}
    void drawFloat(const FloatTile& tile, Scratch& scratch) const override {
        input_->drawFloat(tile, scratch);
        const Scratch::Mark mark(scratch);
        const FloatTile light = scratch.floatTile(tile.region);
        light_->drawFloat(light, scratch);
        for (int y = tile.region.y0; y < tile.region.y1; ++y)
            kernels().screen(tile.row(y), light.row(y), intensity_, tile.width());
    }

private:
    DrawableRef input_, light_;
    float intensity_;
};

DrawableRef LitNode::prepare(RenderContext& context, const NodeRef& self, const PixelRegion& wanted) const {
    return std::make_shared<LitDrawable>(
        self, context.prepare(input, wanted), context.prepare(light, wanted), intensity);
}

}   // namespace

NodeRef makeLit(const NodeRef& input, const NodeRef& light, double intensity) {
    if (!(intensity > 0) || light->extent().isEmpty()) return input;
    return makeNode<LitNode>(input, light, intensity);
}

}   // namespace tavix::imaging
