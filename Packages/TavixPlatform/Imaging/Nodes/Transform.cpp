// Affine transforms: bilinear sampling of a prefiltered source, with antialiased edges.
#include "TavixPlatform/Imaging/Nodes/Nodes.h"

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
        : Node(map.boundsOf(in->extent()), pixelsCovering(map.boundsOf(in->support().rect())),
              hashOf(NodeKind::transformed).add(in->hash()).add(map).value()),
          input(in), transform(map), inverse(map.inverse()) {}
    bool isOpaque(const PixelRegion& region) const override {
        // One pixel more all round: neighbours are mixed in.
        const PixelRegion seen = grownBy(pixelsCovering(inverse.boundsOf(region.rect())), 1);
        return input->support().contains(seen) && input->isOpaque(seen);
    }
    std::uint64_t contribution(const PixelRegion& region) const override {
        const PixelRegion part = intersection(region, support());
        if (part.isEmpty()) return 0;
        const PixelRegion seen = grownBy(pixelsCovering(inverse.boundsOf(part.rect())), 1);
        return input->contribution(seen) == 0 ? 0 : hash();
    }
    DrawableRef prepare(Workshop&, const NodeRef&, const PixelRegion&) const override;

    const NodeRef input;
    const Affine transform, inverse;
};

// Pixels lo <= x < hi.
struct Span {
    int lo, hi;
    bool isEmpty() const { return hi <= lo; }
};
Span intersection(Span a, Span b) { return {std::max(a.lo, b.lo), std::min(a.hi, b.hi)}; }

// Distance, in target pixels, from one edge of the source; linear along a row.
struct Edge {
    double fromX, fromY, constant;   // distance at a point of the target
    double at(double x, double y) const { return fromX * x + fromY * y + constant; }

    // The pixels of a row whose centres are at least `least` inside.
    Span where(double least, double y, Span within) const {
        const double rest = fromY * y + constant - least;   // fromX x + rest >= 0
        if (std::abs(fromX) < 1e-12) return rest >= 0 ? within : Span{within.lo, within.lo};
        const double bound = std::clamp(-rest / fromX - 0.5, within.lo - 1.0, within.hi + 1.0);
        return fromX > 0 ? intersection(within, {int(std::ceil(bound)), within.hi})
                         : intersection(within, {within.lo, int(std::floor(bound)) + 1});
    }
};

class TransformedDrawable final : public Drawable {
public:
    TransformedDrawable(const NodeRef& node, Picture source, const Affine& toSource, bool hasEdges)
        : Drawable(node), source_(std::move(source)), toSource_(toSource), hasEdges_(hasEdges) {
        const ConstBitmapView view = source_.bitmap->view();
        line_ = {view.pixels, view.strideBytes, view.size.width, view.size.height, 0, 0, fixed(toSource.a),
            fixed(-toSource.b)};
        const double perU = std::max(std::hypot(toSource.a, toSource.c), 1e-12),
                     perV = std::max(std::hypot(toSource.b, toSource.d), 1e-12);
        const PixelRegion& r = source_.region;
        const auto edge = [](double x, double y, double constant, double length) {
            return Edge{x / length, y / length, constant / length};
        };
        edges_[0] = edge(toSource.a, toSource.c, toSource.tx - r.x0, perU);
        edges_[1] = edge(-toSource.a, -toSource.c, r.x1 - toSource.tx, perU);
        edges_[2] = edge(toSource.b, toSource.d, toSource.ty - r.y0, perV);
        edges_[3] = edge(-toSource.b, -toSource.d, r.y1 - toSource.ty, perV);
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
    // The pixels of a row that the source touches at all.
    Span spanAt(int y, Span within) const {
        if (!hasEdges_) return within;
        Span span = within;
        for (const Edge& edge : edges_) span = intersection(span, edge.where(-0.5 + 1e-6, y + 0.5, within));
        return span.isEmpty() ? Span{within.lo, within.lo} : span;
    }

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
        if (hasEdges_) softenEdges(out, middle, span);
    }

    // Pixels that the outline crosses get the part of their alpha that lies inside.
    void softenEdges(std::uint32_t* out, double middle, Span span) const {
        Span inside = span;
        for (const Edge& edge : edges_) inside = intersection(inside, edge.where(0.5 - 1e-6, middle, span));
        if (inside.isEmpty()) inside = {span.hi, span.hi};
        const auto soften = [&](int from, int to) {
            for (int x = from; x < to; ++x) {
                double covered = 1;
                for (const Edge& edge : edges_)
                    covered *= std::clamp(edge.at(x + 0.5, middle) + 0.5, 0.0, 1.0);
                kernels().fade(
                    out + (x - span.lo), out + (x - span.lo), 1, unsigned(std::lround(covered * 255)));
            }
        };
        soften(span.lo, inside.lo);
        soften(inside.hi, span.hi);
    }

    Picture source_;
    Affine toSource_;
    SampleLine line_;   // all but where a row starts
    Edge edges_[4];
    bool hasEdges_;
};

// Half the size; each pixel the mean of four, paired from the top left. Sides of odd length repeat their last
// pixel.
BitmapRef halved(Workshop& workshop, const Bitmap& source) {
    const Size from = source.size(), to{(from.width + 1) / 2, (from.height + 1) / 2};
    auto half = std::make_shared<Bitmap>(Bitmap::uninitialised(to, workshop.pool()));
    workshop.forEach((to.height + 31) / 32, [&](int strip, Scratch&) {
        for (int y = strip * 32; y < std::min(to.height, strip * 32 + 32); ++y) {
            const std::uint8_t* above = source.view().row(2 * y);
            const std::uint8_t* below = source.view().row(std::min(2 * y + 1, from.height - 1));
            std::uint8_t* out = half->view().row(y);
            for (int x = 0; x < to.width; ++x) {
                const int left = 2 * x * 4, right = std::min(2 * x + 1, from.width - 1) * 4;
                for (int c = 0; c < 4; ++c)
                    out[x * 4 + c] = std::uint8_t(
                        (above[left + c] + above[right + c] + below[left + c] + below[right + c] + 2) >> 2);
            }
        }
    });
    return half;
}

BitmapRef mipmap(Workshop& workshop, const BitmapRef& source, int level) {
    BitmapRef result = source;
    for (int i = 1; i <= level; ++i) {
        const ResultCache::Key key{
            ResultCache::Kind::halved, Hash(source->id()).add(std::uint64_t(i)).value(), {}};
        auto kept = std::static_pointer_cast<const Bitmap>(workshop.cache().find(key));
        if (!kept) {
            kept = halved(workshop, *result);
            workshop.cache().keep(key, kept, kept->byteCount());
        }
        result = kept;
    }
    return result;
}

// Source pixels per target pixel, in the direction where they are most.
double reductionOf(const Affine& inverse) {
    return std::max(std::hypot(inverse.a, inverse.b), std::hypot(inverse.c, inverse.d));
}

// The level of the mip chain to sample, and the transform of the target into its pixels.
struct Prefiltered {
    Picture picture;
    Affine toSource;
};
Prefiltered prefiltered(Workshop& workshop, const Picture& picture, const Affine& inverse) {
    double reduction = reductionOf(inverse);
    int level = 0;
    for (Size size = picture.bitmap->size();
         reduction >= mostReduction && (size.width > 1 || size.height > 1); ++level) {
        reduction /= 2;
        size = {(size.width + 1) / 2, (size.height + 1) / 2};
    }
    if (level == 0) return {picture, inverse};
    const BitmapRef bitmap = mipmap(workshop, picture.bitmap, level);
    // Rows are paired from the top, so coordinates shrink about the top-left corner.
    const double scale = std::ldexp(1.0, -level);
    const Affine shrink{scale, 0, 0, scale, -picture.region.x0 * scale, -picture.region.y1 * scale};
    const Size size = bitmap->size();
    return {{bitmap, {0, -size.height, size.width, 0}}, inverse.then(shrink)};
}

DrawableRef TransformedNode::prepare(
    Workshop& workshop, const NodeRef& self, const PixelRegion& wanted) const {
    // Halving pairs pixels from the corner of the whole, so the whole is wanted then.
    const PixelRegion seen = reductionOf(inverse) >= mostReduction
                                 ? input->support()
                                 : grownBy(pixelsCovering(inverse.boundsOf(wanted.rect())), 2);
    const auto [source, isContinued] = behind(input);
    const Picture picture = workshop.pictureOf(source, isContinued ? pixelsCovering(source->extent()) : seen);
    if (picture.isEmpty()) return workshop.prepare(emptyNode(), wanted);
    const Prefiltered p = prefiltered(workshop, picture, inverse);
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
    return std::make_shared<TransformedNode>(input, transform);
}

}   // namespace tavix::imaging
