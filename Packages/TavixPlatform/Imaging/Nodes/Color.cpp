// Colour, pixel by pixel. Steps on one input are fused: each row passes through all of them.
#include "TavixBase/Overloaded.h"
#include "TavixPlatform/Imaging/Nodes/Nodes.h"

#include <algorithm>
#include <cmath>

namespace tavix::imaging {

namespace {

void addTo(Structure& structure, const ColorStep& step) {
    structure.add(std::uint64_t(step.index()));
    const auto all = [&](const float* values, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) structure.add(double(values[i]));
    };
    std::visit(Overloaded{
                   [&](const MatrixRows& m) {
                       for (const float* row : {m.r, m.g, m.b, m.a}) all(row, 4);
                   },
                   [&](const ControlValues& c) {
                       structure.add(double(c.brightness)).add(double(c.contrast)).add(double(c.saturation));
                   },
                   [&](const Monochrome& t) {
                       all(t.color, 3);
                       structure.add(double(t.intensity));
                   },
                   [&](const ColorPair& p) {
                       all(p.dark, 4);
                       all(p.light, 4);
                   },
                   [&](const Vignette& v) {
                       structure.add(v.center.x)
                           .add(v.center.y)
                           .add(v.halfDiagonalPx)
                           .add(double(v.intensity))
                           .add(double(v.radius));
                   },
               },
        step);
}

bool keepsOpaque(const ColorStep& step) {
    return std::visit(
        Overloaded{
            [](const MatrixRows& m) { return m.a[0] == 0 && m.a[1] == 0 && m.a[2] == 0 && m.a[3] >= 1; },
            [](const ColorPair& p) { return p.dark[3] >= 1 && p.light[3] >= 1; },
            [](const ControlValues&) { return true; },
            [](const Monochrome&) { return true; },
            [](const Vignette&) { return true; },
        },
        step);
}

class ColoredNode final : public Node {
public:
    ColoredNode(const NodeRef& in, std::vector<ColorStep> all)
        : Node(in->extent(), in->support()), input(in), steps(std::move(all)) {}
    void describe(Structure& s) const override {
        s.kind(NodeKind::colored).add(input).add(std::uint64_t(steps.size()));
        for (const ColorStep& step : steps) addTo(s, step);
    }
    bool isFine() const override {
        return input->isFine() || std::any_of(steps.begin(), steps.end(), [](const ColorStep& step) {
            return std::holds_alternative<Vignette>(step);
        });
    }
    bool isOpaque(const PixelRegion& region) const override {
        return std::all_of(steps.begin(), steps.end(), keepsOpaque) && input->isOpaque(region);
    }
    DrawableRef prepare(RenderContext&, const NodeRef&, const PixelRegion&) const override;
    const NodeRef input;
    const std::vector<ColorStep> steps;
};

// 1 in the middle, falling by 3t² - 2t³ with the distance, counted so that at radius 1 it is down by the
// whole intensity in the corners of the extent. A larger radius moves the fall outward.
void vignetteGains(float* gains, const Vignette& v, int x0, int y, std::size_t count) {
    const double reach = std::max(double(v.radius), 1e-3) * v.halfDiagonalPx, dy = y + 0.5 - v.center.y;
    for (std::size_t i = 0; i < count; ++i) {
        const double dx = x0 + double(i) + 0.5 - v.center.x;
        const double t = std::min(std::sqrt(dx * dx + dy * dy) / reach, 1.0);
        gains[i] = float(std::max(1 - v.intensity * t * t * (3 - 2 * t), 0.0));
    }
}

class ColoredDrawable final : public FloatDrawable {
public:
    ColoredDrawable(const NodeRef& ref, const ColoredNode& node, DrawableRef input)
        : FloatDrawable(ref), steps_(node.steps), input_(std::move(input)) {}
    void drawFloat(const FloatTile& tile, Scratch& scratch) const override {
        input_->drawFloat(tile, scratch);
        const Scratch::Mark mark(scratch);
        auto* gains = scratch.take<float>(tile.width() + 16);
        const std::size_t count = tile.width();
        for (int y = tile.region.y0; y < tile.region.y1; ++y) {
            const FloatRow row = tile.row(y);
            for (const ColorStep& step : steps_) {
                std::visit(
                    Overloaded{
                        [&](const MatrixRows& m) { kernels().colorMatrix(row, m, count); },
                        [&](const ControlValues& c) { kernels().colorControls(row, c, count); },
                        [&](const Monochrome& t) { kernels().monochrome(row, t.color, t.intensity, count); },
                        [&](const ColorPair& p) { kernels().falseColor(row, p, count); },
                        [&](const Vignette& v) {
                            vignetteGains(gains, v, tile.region.x0, y, count);
                            kernels().gain(row, gains, count);
                        },
                    },
                    step);
            }
        }
    }

private:
    const std::vector<ColorStep>& steps_;
    DrawableRef input_;
};

DrawableRef ColoredNode::prepare(
    RenderContext& context, const NodeRef& self, const PixelRegion& wanted) const {
    return std::make_shared<ColoredDrawable>(self, *this, context.prepare(input, wanted));
}

class FadedNode final : public Node {
public:
    FadedNode(const NodeRef& in, double factor)
        : Node(in->extent(), in->support()), input(in), alpha(factor) {}
    void describe(Structure& s) const override { s.kind(NodeKind::faded).add(input).add(alpha); }
    bool isFine() const override { return input->isFine(); }
    Digest contribution(const PixelRegion& region) const override {
        const Digest below = input->contribution(region);
        return below.isNothing() ? below : hashOf(NodeKind::faded).add(below).add(alpha).digest();
    }
    DrawableRef prepare(RenderContext&, const NodeRef&, const PixelRegion&) const override;
    const NodeRef input;
    const double alpha;
};

class FadedDrawable final : public Drawable {
public:
    FadedDrawable(const NodeRef& node, double alpha, DrawableRef input)
        : Drawable(node), alpha_(alpha), opacity_(unsigned(std::lround(alpha * 255))),
          input_(std::move(input)) {}
    void draw(const Tile& tile, Scratch& scratch) const override {
        if (node().isFine()) return drawRounded(tile, scratch);
        input_->draw(tile, scratch);
        for (int y = tile.region.y0; y < tile.region.y1; ++y)
            kernels().fade(tile.row(y), tile.row(y), tile.width(), opacity_);
    }
    void drawOver(const Tile& tile, unsigned opacity, Scratch& scratch) const override {
        input_->drawOver(tile, unsigned(std::lround(alpha_ * opacity)), scratch);
    }
    void drawFloat(const FloatTile& tile, Scratch& scratch) const override {
        input_->drawFloat(tile, scratch);
        for (int y = tile.region.y0; y < tile.region.y1; ++y)
            kernels().scaleAll(tile.row(y), float(alpha_), tile.width());
    }

private:
    double alpha_;
    unsigned opacity_;
    DrawableRef input_;
};

DrawableRef FadedNode::prepare(RenderContext& context, const NodeRef& self, const PixelRegion& wanted) const {
    return std::make_shared<FadedDrawable>(self, alpha, context.prepare(input, wanted));
}

}   // namespace

NodeRef makeColored(const NodeRef& input, const ColorStep& step) {
    if (input->extent().isEmpty()) return input;
    const auto* below = dynamic_cast<const ColoredNode*>(input.get());
    std::vector<ColorStep> steps = below ? below->steps : std::vector<ColorStep>{};
    steps.push_back(step);
    return makeNode<ColoredNode>(below ? below->input : input, std::move(steps));
}

NodeRef makeFaded(const NodeRef& input, double alpha) {
    if (!(alpha > 0)) return emptyNode();
    if (alpha >= 1 || input->extent().isEmpty()) return input;
    if (const auto* below = dynamic_cast<const FadedNode*>(input.get()))
        return makeFaded(below->input, below->alpha * alpha);
    return makeNode<FadedNode>(input, alpha);
}

}   // namespace tavix::imaging
