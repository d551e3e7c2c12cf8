// Gaussian blur as a node: narrow ones convolve each tile, wide ones go through a pyramid that is kept.
#include "TavixPlatform/Imaging/Nodes/GaussianPyramid.h"
#include "TavixPlatform/Imaging/Nodes/Nodes.h"
#include "TavixPlatform/Imaging/Nodes/RowDrawable.h"

#include <algorithm>
#include <cmath>

namespace tavix::imaging {

namespace {

constexpr double narrowestPx = 0.05;   // below it no 8-bit pixel changes

class BlurredNode final : public Node {
public:
    BlurredNode(const NodeRef& in, double sigma)
        : Node(
              grownBy(in->extent(), std::ceil(3 * sigma)), grownBy(in->support(), int(std::ceil(3 * sigma)))),
          input(in), sigmaPx(sigma) {}
    void describe(Structure& s) const override { s.kind(NodeKind::blurred).add(input).add(sigmaPx); }
    bool isFine() const override { return true; }
    bool isOpaque(const PixelRegion& region) const override {
        return input->isOpaque(grownBy(region, reachPx()));
    }
    Digest contribution(const PixelRegion& region) const override {
        const PixelRegion part = intersection(region, support());
        return part.isEmpty() || input->contribution(grownBy(part, reachPx())).isNothing() ? Digest{}
                                                                                           : hash();
    }
    DrawableRef prepare(RenderContext&, const NodeRef&, const PixelRegion&) const override;
    // How far a pixel may look: the taps, and the width of the pyramid's coarsest filters beyond them.
    int reachPx() const { return int(std::ceil(6 * sigmaPx)) + 2; }

    const NodeRef input;
    const double sigmaPx;
};

class NarrowBlur final : public RowDrawable {
public:
    NarrowBlur(const NodeRef& node, BlurSource source, std::vector<float> taps)
        : RowDrawable(node), source_(std::move(source)), taps_(std::move(taps)) {}

protected:
    void forRows(const PixelRegion& region, Scratch& scratch, const UseRow& use) const override {
        const int radius = int(taps_.size()) / 2;
        const std::size_t width = std::size_t(region.width()) * 4;
        const int rowCount = region.height() + 2 * radius;
        auto* wide = scratch.take<float>(width + std::size_t(radius) * 8);
        auto* across = scratch.take<float>(width * std::size_t(rowCount));
        auto* rows = scratch.take<const float*>(taps_.size());
        for (int i = 0; i < rowCount; ++i) {
            source_.row(wide, region.y0 - radius + i, region.x0 - radius, region.x1 + radius);
            for (std::size_t t = 0; t < taps_.size(); ++t) rows[t] = wide + t * 4;
            kernels().weightedSum(
                across + std::size_t(i) * width, rows, taps_.data(), int(taps_.size()), width);
        }
        auto* values = scratch.take<float>(width);
        for (int y = region.y0; y < region.y1; ++y) {
            for (std::size_t t = 0; t < taps_.size(); ++t)
                rows[t] = across + (std::size_t(y - region.y0) + t) * width;
            kernels().weightedSum(values, rows, taps_.data(), int(taps_.size()), width);
            use(y, values);
        }
    }

private:
    BlurSource source_;
    std::vector<float> taps_;
};

class WideBlur final : public RowDrawable {
public:
    WideBlur(const NodeRef& node, std::shared_ptr<const GaussianPyramid> pyramid)
        : RowDrawable(node), pyramid_(std::move(pyramid)) {}

protected:
    void forRows(const PixelRegion& region, Scratch& scratch, const UseRow& use) const override {
        auto* between = scratch.take<float>(pyramid_->betweenFloats());
        auto* values = scratch.take<float>(std::size_t(region.width()) * 4);
        for (int y = region.y0; y < region.y1; ++y) {
            pyramid_->rowInto(values, y, region.x0, region.x1, between);
            use(y, values);
        }
    }

private:
    std::shared_ptr<const GaussianPyramid> pyramid_;
};

DrawableRef BlurredNode::prepare(
    RenderContext& context, const NodeRef& self, const PixelRegion& wanted) const {
    const PixelRegion region = worthKeeping(support(), wanted);
    std::unique_ptr<RowDrawable> rows;
    if (GaussianPyramid::halvingsFor(sigmaPx) == 0) {
        rows = std::make_unique<NarrowBlur>(
            self, BlurSource::of(context, input, grownBy(wanted, reachPx())), gaussianTaps(sigmaPx));
    } else {
        const ResultCache::Subject subject{ResultCache::Kind::pyramid, self, region};
        auto pyramid = std::static_pointer_cast<const GaussianPyramid>(context.cache().find(subject));
        if (!pyramid) {
            const BlurSource source = BlurSource::of(context, input, grownBy(region, reachPx()));
            pyramid = std::make_shared<const GaussianPyramid>(context, source, sigmaPx, region);
            context.cache().keep(subject, pyramid, pyramid->byteCount());
        }
        rows = std::make_unique<WideBlur>(self, std::move(pyramid));
    }
    return std::make_shared<BoundedDrawable>(self, std::move(rows));
}

}   // namespace

NodeRef makeBlurred(const NodeRef& input, double sigmaPx) {
    if (!(sigmaPx > narrowestPx) || input->extent().isEmpty()) return input;
    return makeNode<BlurredNode>(input, std::min(sigmaPx, 10000.0));
}

}   // namespace tavix::imaging
