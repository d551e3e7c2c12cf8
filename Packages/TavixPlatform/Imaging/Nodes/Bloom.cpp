// Bloom: a picture lit by its own blurred light.
#include "TavixPlatform/Imaging/Nodes/Nodes.h"

#include <algorithm>

namespace tavix::imaging {

namespace {

class BloomedNode final : public Node {
public:
    BloomedNode(const NodeRef& in, const NodeRef& glow, double strength)
        : Node(unionOf(in->extent(), glow->extent()), unionOf(in->support(), glow->support())), input(in),
          light(glow), intensity(strength) {}
    void describe(Structure& s) const override {
        s.kind(NodeKind::bloomed).add(input).add(light).add(intensity);
    }
    bool isOpaque(const PixelRegion& region) const override { return input->isOpaque(region); }
    DrawableRef prepare(Workshop&, const NodeRef&, const PixelRegion&) const override;
    const NodeRef input, light;
    const double intensity;
};

class BloomedDrawable final : public FloatDrawable {
public:
    BloomedDrawable(const NodeRef& node, DrawableRef input, DrawableRef light, double intensity)
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

protected:
    bool isDithered() const override { return true; }

private:
    DrawableRef input_, light_;
    float intensity_;
};

DrawableRef BloomedNode::prepare(Workshop& workshop, const NodeRef& self, const PixelRegion& wanted) const {
    return std::make_shared<BloomedDrawable>(
        self, workshop.prepare(input, wanted), workshop.prepare(light, wanted), intensity);
}

}   // namespace

NodeRef makeBloomed(const NodeRef& input, double intensity, double sigmaPx) {
    if (!(intensity > 0) || input->extent().isEmpty()) return input;
    return makeNode<BloomedNode>(input, makeBlurred(input, sigmaPx), intensity);
}

}   // namespace tavix::imaging
