// Two pictures looked up through a warp and dissolved.
#include "TavixPlatform/Imaging/Nodes/Nodes.h"

#include <algorithm>
#include <cmath>

namespace tavix::imaging {

namespace {

class WarpedNode final : public Node {
public:
    WarpedNode(
        const NodeRef& first, const NodeRef& second, std::shared_ptr<const Warp> through, const Rect& extent)
        : Node(extent, pixelsCovering(extent)), from(first), to(second), warp(std::move(through)) {}
    void describe(Structure& s) const override {
        s.kind(NodeKind::warped).add(from).add(to).add(extent());
        warp->describe(s.hash());
    }
    bool isOpaque(const PixelRegion& region) const override {
        return support().contains(region) && from->isOpaque(support()) && to->isOpaque(support());
    }
    DrawableRef prepare(RenderContext&, const NodeRef&, const PixelRegion&) const override;
    const NodeRef from, to;
    const std::shared_ptr<const Warp> warp;
};

// A picture that fills the whole extent, to be sampled anywhere.
class Sampled {
public:
    Sampled(RenderContext& context, const NodeRef& node, const PixelRegion& all) : all_(all) {
        const Picture picture = context.pictureOf(node, all);
        if (picture.region == all) {
            bitmap_ = picture.bitmap;
            return;
        }
        auto bitmap =
            std::make_shared<Bitmap>(Bitmap::uninitialised({all.width(), all.height()}, context.pool()));
        context.drawInto(node, Tile::of(bitmap->view(), all));
        bitmap_ = bitmap;
    }
    // Positions in image coordinates; overwritten with those of the bitmap.
    void sample(std::uint32_t* out, float* x, float* y, std::size_t count) const {
        const ConstBitmapView view = bitmap_->view();
        const SampleLine source{view.pixels, view.strideBytes, view.size.width, view.size.height, 0, 0, 0, 0};
        for (std::size_t i = 0; i < count; ++i) {
            x[i] -= float(all_.x0) + 0.5f;
            y[i] = float(all_.y1) - y[i] - 0.5f;
        }
        kernels().sampleAt(out, source, x, y, count);
    }

private:
    PixelRegion all_;
    BitmapRef bitmap_;
};

class WarpedDrawable final : public Drawable {
public:
    WarpedDrawable(const NodeRef& node, std::shared_ptr<const Warp> warp, Sampled from, Sampled to)
        : Drawable(node), warp_(std::move(warp)), from_(std::move(from)), to_(std::move(to)) {}
    void draw(const Tile& tile, Scratch& scratch) const override {
        const PixelRegion part = intersection(tile.region, node().support());
        if (part != tile.region) clear(tile);
        const Scratch::Mark mark(scratch);
        const auto count = std::size_t(std::max(part.width(), 0));
        auto* samples = scratch.take<WarpSample>(count);
        float* position[4];
        for (float*& p : position) p = scratch.take<float>(count + 16);
        auto *from = scratch.take<std::uint32_t>(count), *to = scratch.take<std::uint32_t>(count),
             *weights = scratch.take<std::uint32_t>(count);
        for (int y = part.y0; y < part.y1; ++y) {
            warp_->row(part.x0, y, int(count), samples);
            for (std::size_t i = 0; i < count; ++i) {
                position[0][i] = samples[i].fromX;
                position[1][i] = samples[i].fromY;
                position[2][i] = samples[i].toX;
                position[3][i] = samples[i].toY;
                weights[i] = std::uint32_t(std::lround(std::clamp(samples[i].mix, 0.0f, 1.0f) * 255));
            }
            from_.sample(from, position[0], position[1], count);
            to_.sample(to, position[2], position[3], count);
            kernels().mix(tile.at(part.x0, y), from, to, weights, count);
        }
    }

private:
    std::shared_ptr<const Warp> warp_;
    Sampled from_, to_;
};

DrawableRef WarpedNode::prepare(RenderContext& context, const NodeRef& self, const PixelRegion&) const {
    return std::make_shared<WarpedDrawable>(
        self, warp, Sampled(context, from, support()), Sampled(context, to, support()));
}

}   // namespace

NodeRef makeWarped(
    const NodeRef& from, const NodeRef& to, std::shared_ptr<const Warp> warp, const Rect& extent) {
    const PixelRegion all = pixelsCovering(extent);
    if (all.isEmpty() || all.width() > Bitmap::maxSidePx || all.height() > Bitmap::maxSidePx)
        return emptyNode();
    return makeNode<WarpedNode>(from, to, std::move(warp), all.rect());
}

}   // namespace tavix::imaging
