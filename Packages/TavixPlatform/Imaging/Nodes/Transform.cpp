// Affine transforms: bilinear sampling of a prefiltered source, with antialiased edges.
#include "TavixPlatform/Imaging/Nodes/Mipmap.h"
#include "TavixPlatform/Imaging/Nodes/Nodes.h"
#include "TavixPlatform/Imaging/Nodes/Outline.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace tavix::imaging {

namespace {

// A source seen at less than 1 / 1.5 of its size is halved first, and again, so that no detail is skipped and
// what remains is between 2/3 and 4/3 of the size.
constexpr double mostReduction = 1.5;

class TransformedNode final : public Node {
public:
    TransformedNode(const NodeRef& in, const Affine& map)
        : Node(map.boundsOf(in->extent()), pixelsCovering(map.boundsOf(in->support().rect()))), input(in),
          transform(map), inverse(map.inverse()) {}
    void describe(Structure& s) const override { s.kind(NodeKind::transformed).add(input).add(transform); }
    bool isOpaque(const PixelRegion& region) const override {
        // One pixel more all round: neighbours are mixed in.
        const PixelRegion seen = grownBy(pixelsCovering(inverse.boundsOf(region.rect())), 1);
        return input->support().contains(seen) && input->isOpaque(seen);
    }
    Digest contribution(const PixelRegion& region) const override {
        const PixelRegion part = intersection(region, support());
        if (part.isEmpty()) return {};
        const PixelRegion seen = grownBy(pixelsCovering(inverse.boundsOf(part.rect())), 1);
        return input->contribution(seen).isNothing() ? Digest{} : hash();
    }
    DrawableRef prepare(RenderContext&, const NodeRef&, const PixelRegion&) const override;

    const NodeRef input;
    const Affine transform, inverse;
};

class TransformedDrawable final : public Drawable {
public:
    TransformedDrawable(const NodeRef& node, Picture source, const Affine& toSource, bool hasEdges)
        : Drawable(node), source_(std::move(source)), toSource_(toSource),
          outline_(outlineOf(source_.region, toSource)), hasEdges_(hasEdges) {
        const ConstBitmapView view = source_.bitmap->view();
        line_ = {view.pixels, view.strideBytes, view.size.width, view.size.height, 0, 0, fixed(toSource.a),
            fixed(-toSource.b)};
    }

    void draw(const Tile& tile, Scratch&) const override {
        const PixelRegion part = imaging::intersection(tile.region, node().support());
        if (part != tile.region) clear(tile);
        for (int y = part.y0; y < part.y1; ++y) {
            const Span span = spanAt(y, {part.x0, part.x1});
            std::memset(tile.at(part.x0, y), 0, std::size_t(span.lo - part.x0) * 4);
            std::memset(tile.at(span.hi, y), 0, std::size_t(part.x1 - span.hi) * 4);
            if (!span.isEmpty()) sampleRow(tile.at(span.lo, y), y, span);
        }
    }
    void drawOver(const Tile& tile, unsigned opacity, Scratch& scratch) const override {
        const PixelRegion part = imaging::intersection(tile.region, node().support());
        if (part.isEmpty()) return;
        const Scratch::Mark mark(scratch);
        auto* row = scratch.take<std::uint32_t>(std::size_t(part.width()));
        for (int y = part.y0; y < part.y1; ++y) {
            const Span span = spanAt(y, {part.x0, part.x1});
            if (span.isEmpty()) continue;
            sampleRow(row, y, span);
            kernels().over(tile.at(span.lo, y), row, std::size_t(span.hi - span.lo), opacity);
        }
    }

private:
    static Outline outlineOf(const PixelRegion& r, const Affine& toSource) {
        const double perU = std::max(std::hypot(toSource.a, toSource.c), 1e-12),
                     perV = std::max(std::hypot(toSource.b, toSource.d), 1e-12);
        const auto edge = [](double x, double y, double constant, double length) {
            return Edge{x / length, y / length, constant / length};
        };
        return Outline({edge(toSource.a, toSource.c, toSource.tx - r.x0, perU),
            edge(-toSource.a, -toSource.c, r.x1 - toSource.tx, perU),
            edge(toSource.b, toSource.d, toSource.ty - r.y0, perV),
            edge(-toSource.b, -toSource.d, r.y1 - toSource.ty, perV)});
    }

    Span spanAt(int y, Span within) const { return hasEdges_ ? outline_.touched(y, within) : within; }

    static std::int64_t fixed(double v) {
        return std::int64_t(std::clamp(v, -2e9, 2e9) * 4294967296.0 + (v < 0 ? -0.5 : 0.5));
    }

    void sampleRow(std::uint32_t* out, int y, Span span) const {
        const double middle = y + 0.5;
        SampleLine line = line_;
        // Of pixel 0 of the row, whose centre is at x = 1/2; source rows count from the top.
        line.u0 = fixed(toSource_.a * 0.5 + toSource_.c * middle + toSource_.tx - source_.region.x0 - 0.5);
        line.v0 = fixed(source_.region.y1 - (toSource_.b * 0.5 + toSource_.d * middle + toSource_.ty) - 0.5);
        kernels().sample(out, line, span.lo, std::size_t(span.hi - span.lo));
        if (hasEdges_) outline_.soften(out, y, span);
    }

    Picture source_;
    Affine toSource_;
    SampleLine line_;   // all but where a row starts
    Outline outline_;
    bool hasEdges_;
};

// Source pixels per target pixel, in the direction where they are most.
double reductionOf(const Affine& inverse) {
    return std::max(std::hypot(inverse.a, inverse.b), std::hypot(inverse.c, inverse.d));
}

// The level of the mip chain to sample, and the transform of the target into its pixels.
struct Prefiltered {
    Picture picture;
    Affine toSource;
};
Prefiltered prefiltered(RenderContext& context, const Picture& picture, const Affine& inverse) {
    double reduction = reductionOf(inverse);
    int level = 0;
    for (Size size = picture.bitmap->size();
         reduction >= mostReduction && (size.width > 1 || size.height > 1); ++level) {
        reduction /= 2;
        size = {(size.width + 1) / 2, (size.height + 1) / 2};
    }
    if (level == 0) return {picture, inverse};
    const BitmapRef bitmap = mipmap(context, picture.bitmap, level);
    // Rows are paired from the top, so coordinates shrink about the top-left corner.
    const double scale = std::ldexp(1.0, -level);
    const Affine shrink{scale, 0, 0, scale, -picture.region.x0 * scale, -picture.region.y1 * scale};
    const Size size = bitmap->size();
    return {{bitmap, {0, -size.height, size.width, 0}}, inverse.then(shrink)};
}

DrawableRef TransformedNode::prepare(
    RenderContext& context, const NodeRef& self, const PixelRegion& wanted) const {
    // Halving pairs pixels from the corner of the whole, so the whole is wanted then.
    const PixelRegion seen = reductionOf(inverse) >= mostReduction
                                 ? input->support()
                                 : grownBy(pixelsCovering(inverse.boundsOf(wanted.rect())), 2);
    const auto [source, isContinued] = behind(input);
    const Picture picture = context.pictureOf(source, isContinued ? pixelsCovering(source->extent()) : seen);
    if (picture.isEmpty()) return context.prepare(emptyNode(), wanted);
    const Prefiltered p = prefiltered(context, picture, inverse);
    return std::make_shared<TransformedDrawable>(self, p.picture, p.toSource, !isContinued);
}

bool isWhole(double v) { return std::abs(v) < (1 << 24) && std::abs(v - std::round(v)) < 1.0 / 4096; }

}   // namespace

NodeRef makeTransformed(const NodeRef& input, const Affine& transform) {
    const double det = transform.determinant();
    if (!std::isfinite(det) || std::abs(det) < 1e-12 || input->extent().isEmpty()) return emptyNode();
    if (transform.isIdentity()) return input;
    if (const auto* inner = dynamic_cast<const TransformedNode*>(input.get()))
        return makeTransformed(inner->input, inner->transform.then(transform));
    const Picture* bitmap = asBitmap(*input);
    if (bitmap && transform.isTranslation() && isWhole(transform.tx) && isWhole(transform.ty)) {
        const int dx = int(std::round(transform.tx)), dy = int(std::round(transform.ty));
        const Rect extent = Affine::translation(dx, dy).boundsOf(input->extent());
        return makeBitmap(bitmap->bitmap, bitmap->region.x0 + dx, bitmap->region.y0 + dy, extent);
    }
    const Rect extent = transform.boundsOf(input->extent());
    if (extent.isEmpty()) return emptyNode();
    return makeNode<TransformedNode>(input, transform);
}

}   // namespace tavix::imaging
