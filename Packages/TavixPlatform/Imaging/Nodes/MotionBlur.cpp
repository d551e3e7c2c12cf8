// The smear of a straight motion as a node: the mean of a picture along a line through each pixel.
#include "TavixPlatform/Imaging/Nodes/GaussianPyramid.h"
#include "TavixPlatform/Imaging/Nodes/Nodes.h"
#include "TavixPlatform/Imaging/Nodes/RowDrawable.h"

#include <algorithm>
#include <cmath>

namespace tavix::imaging {

namespace {

constexpr double shortestPx = 0.01;   // below it no 8-bit pixel changes
constexpr double longestPx = 1000;

struct LineTap {
    int dx, dy;
    float weight;
};

// The line has one sample for each step along the axis that it runs nearer to, weighted by the part of the
// step that it covers, and each sample is the mix of the two pixels beside it across that axis.
std::vector<LineTap> tapsOf(double radiusPx, double angleRad) {
    const double cosine = std::cos(angleRad), sine = std::sin(angleRad);
    const bool isFlat = std::abs(cosine) >= std::abs(sine);
    const double half = radiusPx * (isFlat ? std::abs(cosine) : std::abs(sine));
    const double slope = isFlat ? sine / cosine : cosine / sine;
    const int steps = int(std::ceil(half - 0.5));
    std::vector<LineTap> taps;
    for (int i = -steps; i <= steps; ++i) {
        const double covered = std::min(i + 0.5, half) - std::max(i - 0.5, -half);
        const double across = i * slope;
        const int low = int(std::floor(across));
        for (int side = 0; side < 2; ++side) {
            const double share = side == 0 ? 1 - (across - low) : across - low;
            const auto weight = float(covered / (2 * half) * share);
            if (weight <= 0) continue;
            const int other = low + side;
            taps.push_back(isFlat ? LineTap{i, other, weight} : LineTap{other, i, weight});
        }
    }
    return taps;
}

// How far taps reach from the pixel they make.
PixelRegion reachOf(const std::vector<LineTap>& taps) {
    PixelRegion reach;
    for (const LineTap& tap : taps) {
        reach.x0 = std::min(reach.x0, tap.dx);
        reach.y0 = std::min(reach.y0, tap.dy);
        reach.x1 = std::max(reach.x1, tap.dx);
        reach.y1 = std::max(reach.y1, tap.dy);
    }
    return reach;
}

PixelRegion grownBy(const PixelRegion& r, const PixelRegion& reach) {
    if (r.isEmpty()) return r;
    return {r.x0 + reach.x0, r.y0 + reach.y0, r.x1 + reach.x1, r.y1 + reach.y1};
}

Rect grownBy(const Rect& r, const PixelRegion& reach) {
    if (r.isInfinite()) return r;
    return Rect::fromEdges(r.x + reach.x0, r.y + reach.y0, r.maxX() + reach.x1, r.maxY() + reach.y1);
}

// The line looks as far to one side as to the other, so `reach` serves for what it needs and what it smears.
class MotionBlurredNode final : public Node {
public:
    MotionBlurredNode(const NodeRef& in, std::vector<LineTap> lineTaps, double radius, double angle)
        : Node(grownBy(in->extent(), reachOf(lineTaps)), grownBy(in->support(), reachOf(lineTaps))),
          input(in), radiusPx(radius), angleRad(angle), taps(std::move(lineTaps)), reach(reachOf(taps)) {}
    void describe(Structure& s) const override {
        s.kind(NodeKind::motionBlurred).add(input).add(radiusPx).add(angleRad);
    }
    bool isFine() const override { return true; }
    bool isOpaque(const PixelRegion& region) const override {
        return input->isOpaque(grownBy(region, reach));
    }
    Digest contribution(const PixelRegion& region) const override {
        const PixelRegion part = intersection(region, support());
        return part.isEmpty() || input->contribution(grownBy(part, reach)).isNothing() ? Digest{} : hash();
    }
    DrawableRef prepare(RenderContext&, const NodeRef&, const PixelRegion&) const override;

    const NodeRef input;
    const double radiusPx, angleRad;
    const std::vector<LineTap> taps;
    const PixelRegion reach;
};

class MotionBlur final : public RowDrawable {
public:
    MotionBlur(const NodeRef& node, BlurSource source, std::vector<LineTap> taps)
        : RowDrawable(node), source_(std::move(source)), taps_(std::move(taps)), reach_(reachOf(taps_)) {
        for (const LineTap& tap : taps_) weights_.push_back(tap.weight);
    }

protected:
    void forRows(const PixelRegion& region, Scratch& scratch, const UseRow& use) const override {
        const PixelRegion needed = grownBy(region, reach_);
        const std::size_t floats = std::size_t(needed.width()) * 4;
        auto* wide = scratch.take<float>(floats * std::size_t(needed.height()));
        for (int y = needed.y0; y < needed.y1; ++y)
            source_.row(wide + std::size_t(y - needed.y0) * floats, y, needed.x0, needed.x1);
        auto* values = scratch.take<float>(std::size_t(region.width()) * 4);
        auto* rows = scratch.take<const float*>(taps_.size());
        for (int y = region.y0; y < region.y1; ++y) {
            for (std::size_t t = 0; t < taps_.size(); ++t)
                rows[t] = wide + std::size_t(y + taps_[t].dy - needed.y0) * floats +
                          std::size_t(taps_[t].dx - reach_.x0) * 4;
            kernels().weightedSum(
                values, rows, weights_.data(), int(taps_.size()), std::size_t(region.width()) * 4);
            use(y, values);
        }
    }

private:
    BlurSource source_;
    std::vector<LineTap> taps_;
    std::vector<float> weights_;
    PixelRegion reach_;
};

DrawableRef MotionBlurredNode::prepare(
    RenderContext& context, const NodeRef& self, const PixelRegion& wanted) const {
    return std::make_shared<BoundedDrawable>(self,
        std::make_unique<MotionBlur>(self, BlurSource::of(context, input, grownBy(wanted, reach)), taps));
}

}   // namespace

NodeRef makeMotionBlurred(const NodeRef& input, double radiusPx, double angleRad) {
    if (!(radiusPx > shortestPx) || !std::isfinite(angleRad) || input->extent().isEmpty()) return input;
    const double radius = std::min(radiusPx, longestPx);
    return makeNode<MotionBlurredNode>(input, tapsOf(radius, angleRad), radius, angleRad);
}

}   // namespace tavix::imaging
