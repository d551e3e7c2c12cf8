// A picture in perspective: the corners of its extent mapped onto four points.
#include "TavixPlatform/Imaging/Nodes/Mipmap.h"
#include "TavixPlatform/Imaging/Nodes/Nodes.h"
#include "TavixPlatform/Imaging/Nodes/Outline.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace tavix::imaging {

namespace {

// x' = (m0 x + m1 y + m2) / w, y' = (m3 x + m4 y + m5) / w, w = m6 x + m7 y + m8.
struct Projective {
    std::array<double, 9> m{1, 0, 0, 0, 1, 0, 0, 0, 1};

    double weight(Point p) const { return m[6] * p.x + m[7] * p.y + m[8]; }
    Point apply(Point p) const {
        const double w = weight(p);
        return {(m[0] * p.x + m[1] * p.y + m[2]) / w, (m[3] * p.x + m[4] * p.y + m[5]) / w};
    }
    Projective then(const Projective& next) const {
        Projective result;
        for (std::size_t row = 0; row < 3; ++row)
            for (std::size_t column = 0; column < 3; ++column) {
                double sum = 0;
                for (std::size_t k = 0; k < 3; ++k) sum += next.m[row * 3 + k] * m[k * 3 + column];
                result.m[row * 3 + column] = sum;
            }
        return result;
    }
    // Up to a factor, which a projective map does not have.
    Projective inverse() const {
        const auto& a = m;
        return {{a[4] * a[8] - a[5] * a[7], a[2] * a[7] - a[1] * a[8], a[1] * a[5] - a[2] * a[4],
            a[5] * a[6] - a[3] * a[8], a[0] * a[8] - a[2] * a[6], a[2] * a[3] - a[0] * a[5],
            a[3] * a[7] - a[4] * a[6], a[1] * a[6] - a[0] * a[7], a[0] * a[4] - a[1] * a[3]}};
    }
};

using Corners = std::array<Point, 4>;   // following one another round the picture, from the bottom left

Corners cornersOf(const Rect& r) {
    return {{{r.x, r.y}, {r.maxX(), r.y}, {r.maxX(), r.maxY()}, {r.x, r.maxY()}}};
}
Corners mapped(const Projective& map, const Rect& r) {
    Corners corners = cornersOf(r);
    for (Point& corner : corners) corner = map.apply(corner);
    return corners;
}
Rect boundsOf(const Corners& corners) {
    const auto [left, right] = std::ranges::minmax(corners, {}, &Point::x);
    const auto [low, high] = std::ranges::minmax(corners, {}, &Point::y);
    return Rect::fromEdges(left.x, low.y, right.x, high.y);
}

// Of the unit square onto a quadrilateral (Heckbert, 1989); nothing for one that is not convex or has no
// area.
std::optional<Projective> fromUnitSquare(const Corners& q) {
    const double sumX = q[0].x - q[1].x + q[2].x - q[3].x, sumY = q[0].y - q[1].y + q[2].y - q[3].y;
    const double ax = q[1].x - q[2].x, ay = q[1].y - q[2].y, bx = q[3].x - q[2].x, by = q[3].y - q[2].y;
    const double det = ax * by - bx * ay;
    if (!std::isfinite(det) || std::abs(det) < 1e-9) return std::nullopt;
    const double g = (sumX * by - bx * sumY) / det, h = (ax * sumY - sumX * ay) / det;
    constexpr double leastWeight = 1e-6;
    if (1 + g < leastWeight || 1 + h < leastWeight || 1 + g + h < leastWeight) return std::nullopt;
    const Projective map{{q[1].x - q[0].x + g * q[1].x, q[3].x - q[0].x + h * q[3].x, q[0].x,
        q[1].y - q[0].y + g * q[1].y, q[3].y - q[0].y + h * q[3].y, q[0].y, g, h, 1}};
    const auto& m = map.m;
    const double area =
        m[0] * (m[4] - m[5] * m[7]) - m[1] * (m[3] - m[5] * m[6]) + m[2] * (m[3] * m[7] - m[4] * m[6]);
    return std::abs(area) < 1e-9 ? std::nullopt : std::optional(map);
}

class PerspectiveNode final : public Node {
public:
    PerspectiveNode(const NodeRef& in, const Projective& onto)
        : Node(boundsOf(mapped(onto, in->extent())),
              pixelsCovering(boundsOf(mapped(onto, intersection(in->support().rect(), in->extent()))))),
          input(in), map(onto) {}
    void describe(Structure& s) const override {
        s.kind(NodeKind::perspective).add(input);
        for (const double value : map.m) s.add(value);
    }
    Digest contribution(const PixelRegion& region) const override {
        const bool isClear =
            intersection(region, support()).isEmpty() || input->contribution(input->support()).isNothing();
        return isClear ? Digest{} : hash();
    }
    DrawableRef prepare(RenderContext&, const NodeRef&, const PixelRegion&) const override;

    const NodeRef input;
    const Projective map;
};

// Source pixels per target pixel, across and up.
struct Reduction {
    double across, up;
};
Reduction reductionAt(const Projective& toSource, Point target) {
    const auto& m = toSource.m;
    const double w = toSource.weight(target);
    const Point p = toSource.apply(target);
    return {std::hypot((m[0] - m[6] * p.x) / w, (m[3] - m[6] * p.y) / w),
        std::hypot((m[1] - m[7] * p.x) / w, (m[4] - m[7] * p.y) / w)};
}

// How many samples make a pixel, so that what is far away does not flicker, and how often the source is
// halved before.
struct Sampling {
    int level = 0, across = 1, up = 1;
};
Sampling samplingFor(const Projective& toSource, const Corners& target) {
    constexpr double mostSamples = 4;
    double least = 1e9, mostAcross = 0, mostUp = 0;
    for (const Point& corner : target) {
        const Reduction r = reductionAt(toSource, corner);
        least = std::min({least, r.across, r.up});
        mostAcross = std::max(mostAcross, r.across);
        mostUp = std::max(mostUp, r.up);
    }
    Sampling sampling;
    while (least >= 2 && sampling.level < 12) {
        least /= 2;
        ++sampling.level;
    }
    const double scale = std::ldexp(1.0, -sampling.level);
    // Up to one and a half source pixels for a sample, as in affine transforms.
    const auto samples = [&](double reduction) {
        return int(std::clamp(std::ceil(reduction * scale - 0.5), 1.0, mostSamples));
    };
    sampling.across = samples(mostAcross);
    sampling.up = samples(mostUp);
    return sampling;
}

class PerspectiveDrawable final : public Drawable {
public:
    // `toSource` maps target points to those of the bitmap: its pixel centres at whole numbers, rows from the
    // top.
    PerspectiveDrawable(const NodeRef& node, BitmapRef bitmap, const Projective& toSource,
        const Sampling& sampling, const Outline& outline)
        : Drawable(node), bitmap_(std::move(bitmap)), toSource_(toSource), sampling_(sampling),
          outline_(outline) {
        const ConstBitmapView view = bitmap_->view();
        source_ = {view.pixels, view.strideBytes, view.size.width, view.size.height, 0, 0, 0, 0};
    }

    void draw(const Tile& tile, Scratch& scratch) const override {
        clear(tile);
        forRows(tile, scratch, [&](int y, Span span, const std::uint32_t* row) {
            std::copy_n(row, span.hi - span.lo, tile.at(span.lo, y));
        });
    }
    void drawOver(const Tile& tile, unsigned opacity, Scratch& scratch) const override {
        forRows(tile, scratch, [&](int y, Span span, const std::uint32_t* row) {
            kernels().over(tile.at(span.lo, y), row, std::size_t(span.hi - span.lo), opacity);
        });
    }

private:
    template <class Use> void forRows(const Tile& tile, Scratch& scratch, const Use& use) const {
        const PixelRegion part = intersection(tile.region, node().support());
        if (part.isEmpty()) return;
        const Scratch::Mark mark(scratch);
        auto* row = scratch.take<std::uint32_t>(std::size_t(part.width()));
        for (int y = part.y0; y < part.y1; ++y) {
            const Span span = outline_.touched(y, {part.x0, part.x1});
            if (span.isEmpty()) continue;
            const Scratch::Mark rowMark(scratch);
            if (sampling_.across * sampling_.up == 1)
                sampleRow(row, {0.5, y + 0.5}, span, scratch);
            else
                averageRow(row, y, span, scratch);
            outline_.soften(row, y, span);
            use(y, span, row);
        }
    }

    // `first` is the place of the sample of pixel 0 of the row.
    void sampleRow(std::uint32_t* out, Point first, Span span, Scratch& scratch) const {
        const Scratch::Mark mark(scratch);
        const auto count = std::size_t(span.hi - span.lo);
        auto *u = scratch.take<float>(count), *v = scratch.take<float>(count);
        // Counted from the support's edge, so that it does not matter where a tile begins.
        const int origin = node().support().x0;
        const double x = first.x + origin, y = first.y;
        const auto& m = toSource_.m;
        const ProjectLine line{float(m[0] * x + m[1] * y + m[2]), float(m[0]),
            float(m[3] * x + m[4] * y + m[5]), float(m[3]), float(m[6] * x + m[7] * y + m[8]), float(m[6])};
        kernels().project(u, v, line, span.lo - origin, count);
        kernels().sampleAt(out, source_, u, v, count);
    }

    void averageRow(std::uint32_t* out, int y, Span span, Scratch& scratch) const {
        const auto count = std::size_t(span.hi - span.lo);
        const int samples = sampling_.across * sampling_.up;
        auto* one = scratch.take<std::uint32_t>(count);
        auto* all = scratch.take<float>(count * 4 * std::size_t(samples));
        std::array<const float*, 16> rows{};
        std::array<float, 16> weights{};
        for (int i = 0; i < samples; ++i) {
            const double across = (i % sampling_.across + 0.5) / sampling_.across;
            const double up = (double(i / sampling_.across) + 0.5) / sampling_.up;
            sampleRow(one, {across, y + up}, span, scratch);
            float* values = all + count * 4 * std::size_t(i);
            kernels().expand(values, one, count);
            rows[std::size_t(i)] = values;
            weights[std::size_t(i)] = 1.0f / float(samples);
        }
        auto* mean = scratch.take<float>(count * 4);
        kernels().weightedSum(mean, rows.data(), weights.data(), samples, count * 4);
        kernels().packInterleaved(out, mean, ditherOfChannels(span.lo, y), count);
    }

    BitmapRef bitmap_;
    Projective toSource_;
    Sampling sampling_;
    Outline outline_;
    SampleLine source_;
};

DrawableRef PerspectiveNode::prepare(
    RenderContext& context, const NodeRef& self, const PixelRegion& wanted) const {
    const Picture picture = context.pictureOf(input, input->support());
    if (picture.isEmpty()) return context.prepare(emptyNode(), wanted);
    const PixelRegion& r = picture.region;
    const Corners target = mapped(map, r.rect());
    const Sampling sampling = samplingFor(map.inverse(), target);
    const double scale = std::ldexp(1.0, -sampling.level);
    const Projective toBitmap{{scale, 0, -r.x0 * scale - 0.5, 0, -scale, r.y1 * scale - 0.5, 0, 0, 1}};
    Projective toSource = map.inverse().then(toBitmap);
    const double weight =
        toSource.weight(boundsOf(target).center());   // near 1, to keep the precision of floats
    for (double& value : toSource.m) value /= weight;
    return std::make_shared<PerspectiveDrawable>(
        self, mipmap(context, picture.bitmap, sampling.level), toSource, sampling, Outline::through(target));
}

}   // namespace

NodeRef makePerspective(const NodeRef& input, const Quad& onto) {
    const Rect extent = input->extent();
    if (extent.isEmpty() || extent.isInfinite()) return input;
    const Corners corners{onto.bottomLeft, onto.bottomRight, onto.topRight, onto.topLeft};
    const Rect bounds = boundsOf(corners);
    const auto fromSquare = fromUnitSquare(corners);
    if (!fromSquare || !(bounds.width < Bitmap::maxSidePx) || !(bounds.height < Bitmap::maxSidePx))
        return emptyNode();
    const Projective toSquare{{1 / extent.width, 0, -extent.x / extent.width, 0, 1 / extent.height,
        -extent.y / extent.height, 0, 0, 1}};
    return makeNode<PerspectiveNode>(input, toSquare.then(*fromSquare));
}

}   // namespace tavix::imaging
