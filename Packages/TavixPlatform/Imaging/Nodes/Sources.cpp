// Nodes without inputs.
#include "TavixPlatform/Imaging/Nodes/Nodes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <utility>

namespace tavix::imaging {

namespace {

class EmptyNode final : public Node {
public:
    EmptyNode() : Node({}, {}) {}
    void describe(Structure& s) const override { s.kind(NodeKind::empty); }
    DrawableRef prepare(RenderContext&, const NodeRef&, const PixelRegion&) const override {
        return nullptr;
    }   // has no support
};

void addTo(Structure& s, const Color& c) { s.add(c.r).add(c.g).add(c.b).add(c.a); }

class SolidNode final : public Node {
public:
    explicit SolidNode(const Color& color)
        : Node(Rect::infinite(), pixelOf(color) ? pixelsCovering(Rect::infinite()) : PixelRegion{}),
          color_(color), pixel_(pixelOf(color)) {}
    void describe(Structure& s) const override { addTo(s.kind(NodeKind::solid), color_); }
    bool isOpaque(const PixelRegion&) const override { return pixel_ >> 24 == 255; }
    DrawableRef prepare(RenderContext&, const NodeRef& self, const PixelRegion&) const override;

private:
    Color color_;
    std::uint32_t pixel_;
};

class SolidDrawable final : public Drawable {
public:
    SolidDrawable(const NodeRef& node, std::uint32_t pixel) : Drawable(node), pixel_(pixel) {}
    void draw(const Tile& tile, Scratch&) const override {
        for (int y = tile.region.y0; y < tile.region.y1; ++y) std::fill_n(tile.row(y), tile.width(), pixel_);
    }
    void drawOver(const Tile& tile, unsigned opacity, Scratch& scratch) const override {
        std::uint32_t faded = pixel_;
        kernels().fade(&faded, &pixel_, 1, opacity);
        if (faded >> 24 == 255) return draw(tile, scratch);
        for (int y = tile.region.y0; y < tile.region.y1; ++y)
            kernels().overSolid(tile.row(y), faded, tile.width());
    }

private:
    std::uint32_t pixel_;
};

DrawableRef SolidNode::prepare(RenderContext&, const NodeRef& self, const PixelRegion&) const {
    return std::make_shared<SolidDrawable>(self, pixel_);
}

class BitmapNode final : public Node {
public:
    BitmapNode(BitmapRef bitmap, const PixelRegion& region, const Rect& extent)
        : Node(extent, inkOf(*bitmap, region.x0, region.y0)), picture_{std::move(bitmap), region} {}

    void describe(Structure& s) const override {
        s.kind(NodeKind::bitmap).add(picture_.bitmap->id()).add(picture_.region).add(extent());
    }
    const Picture& picture() const { return picture_; }
    bool isOpaque(const PixelRegion& region) const override {
        return coverage(region) == Bitmap::Coverage::opaque;
    }
    Digest contribution(const PixelRegion& region) const override {
        const PixelRegion part = intersection(region, support());
        return part.isEmpty() || coverage(part) == Bitmap::Coverage::empty ? Digest{} : hash();
    }
    DrawableRef prepare(RenderContext&, const NodeRef& self, const PixelRegion&) const override;

private:
    // Support of a bitmap whose bottom-left corner stands at (x0, y0).
    static PixelRegion inkOf(const Bitmap& bitmap, int x0, int y0) {
        const PixelRegion ink = bitmap.inkBounds();
        const int height = bitmap.size().height;
        return {x0 + ink.x0, y0 + height - ink.y1, x0 + ink.x1, y0 + height - ink.y0};
    }
    Bitmap::Coverage coverage(const PixelRegion& r) const {
        const PixelRegion& all = picture_.region;
        return picture_.bitmap->coverage({r.x0 - all.x0, all.y1 - r.y1, r.x1 - all.x0, all.y1 - r.y0});
    }
    Picture picture_;
};

class BitmapDrawable final : public Drawable {
public:
    BitmapDrawable(const NodeRef& node, const Picture& picture)
        : Drawable(node), source_(sourceOf(picture)) {}
    void draw(const Tile& tile, Scratch&) const override {
        const PixelRegion part = intersection(tile.region, node().support());
        if (part != tile.region) clear(tile);
        for (int y = part.y0; y < part.y1; ++y)
            std::memcpy(tile.at(part.x0, y), source_.at(part.x0, y), std::size_t(part.width()) * 4);
    }
    void drawOver(const Tile& tile, unsigned opacity, Scratch&) const override {
        const PixelRegion part = intersection(tile.region, node().support());
        for (int y = part.y0; y < part.y1; ++y)
            kernels().over(tile.at(part.x0, y), source_.at(part.x0, y), std::size_t(part.width()), opacity);
    }

private:
    // A tile speaks of writable pixels; these are only read.
    static Tile sourceOf(const Picture& p) {
        const ConstBitmapView v = p.bitmap->view();
        return Tile::of({const_cast<std::uint8_t*>(v.pixels), v.size, v.strideBytes}, p.region);
    }
    Tile source_;
};

DrawableRef BitmapNode::prepare(RenderContext&, const NodeRef& self, const PixelRegion&) const {
    return std::make_shared<BitmapDrawable>(self, picture_);
}

class SmoothGradientNode final : public Node {
public:
    SmoothGradientNode(Point start, const Color& startColor, Point p1, const Color& endColor)
        : Node(Rect::infinite(), pixelsCovering(Rect::infinite())),
          p0(start), axis{p1.x - start.x, p1.y - start.y}, color0(startColor), color1(endColor) {}
    void describe(Structure& s) const override {
        s.kind(NodeKind::smoothGradient).add(p0.x).add(p0.y).add(axis.x).add(axis.y);
        addTo(s, color0);
        addTo(s, color1);
    }
    bool isOpaque(const PixelRegion&) const override { return color0.a >= 1 && color1.a >= 1; }
    bool isFine() const override { return true; }
    DrawableRef prepare(RenderContext&, const NodeRef& self, const PixelRegion&) const override;

    const Point p0, axis;
    const Color color0, color1;
};

class SmoothGradientDrawable final : public FloatDrawable {
public:
    SmoothGradientDrawable(const NodeRef& ref, const SmoothGradientNode& gradient)
        : FloatDrawable(ref), gradient_(gradient) {}
    void drawFloat(const FloatTile& tile, Scratch&) const override {
        const SmoothGradientNode& g = gradient_;
        const double length2 = std::max(g.axis.x * g.axis.x + g.axis.y * g.axis.y, 1e-12);
        const auto premultiplied = [](const Color& c) {
            return std::array<double, 4>{c.b * c.a, c.g * c.a, c.r * c.a, c.a};
        };
        const auto from = premultiplied(g.color0), to = premultiplied(g.color1);
        for (int y = tile.region.y0; y < tile.region.y1; ++y) {
            const FloatRow row = tile.row(y);
            for (int x = tile.region.x0; x < tile.region.x1; ++x) {
                const double along =
                    ((x + 0.5 - g.p0.x) * g.axis.x + (y + 0.5 - g.p0.y) * g.axis.y) / length2;
                const double t = std::clamp(along, 0.0, 1.0), eased = t * t * (3 - 2 * t);
                for (std::size_t c = 0; c < 4; ++c)
                    row.plane[c][x - tile.region.x0] = float(from[c] + (to[c] - from[c]) * eased);
            }
        }
    }

private:
    const SmoothGradientNode& gradient_;
};

DrawableRef SmoothGradientNode::prepare(RenderContext&, const NodeRef& self, const PixelRegion&) const {
    return std::make_shared<SmoothGradientDrawable>(self, *this);
}

class RoundedRectangleNode final : public Node {
public:
    RoundedRectangleNode(const Rect& box, double radius, const Color& color)
        : Node(pixelsCovering(box).rect(), pixelsCovering(box)), rect(box), radiusPx(radius),
          pixel(pixelOf(color)) {}
    void describe(Structure& s) const override {
        s.kind(NodeKind::roundedRectangle).add(rect).add(radiusPx).add(std::uint64_t(pixel));
    }
    DrawableRef prepare(RenderContext&, const NodeRef& self, const PixelRegion&) const override;

    const Rect rect;
    const double radiusPx;
    const std::uint32_t pixel;
};

class RoundedRectangleDrawable final : public Drawable {
public:
    RoundedRectangleDrawable(const NodeRef& ref, const RoundedRectangleNode& shape)
        : Drawable(ref), shape_(shape) {}
    void draw(const Tile& tile, Scratch&) const override {
        const PixelRegion& r = tile.region;
        for (int y = r.y0; y < r.y1; ++y) {
            const Span touched = spanWithin(0.5 + marginPx, y, r), full = spanWithin(-0.5 - marginPx, y, r);
            std::fill_n(tile.row(y), touched.first - r.x0, 0U);
            drawEdge(tile, y, touched.first, std::min(full.first, touched.last));
            std::fill_n(tile.row(y) + (full.first - r.x0), full.last - full.first, shape_.pixel);
            drawEdge(tile, y, std::max(full.last, touched.first), touched.last);
            std::fill_n(tile.row(y) + (touched.last - r.x0), r.x1 - touched.last, 0U);
        }
    }

private:
    // Some columns of a row, as first and one past last.
    struct Span {
        int first, last;
    };
    // Far above what rounding does to a distance: a pixel that is nearer than this to being full or empty is
    // asked for itself.
    static constexpr double marginPx = 0.01;

    void drawEdge(const Tile& tile, int y, int first, int last) const {
        for (int x = first; x < last; ++x) {
            const double covered = std::clamp(0.5 - distanceAt(x + 0.5, y + 0.5), 0.0, 1.0);
            kernels().fade(tile.at(x, y), &shape_.pixel, 1, unsigned(std::lround(covered * 255)));
        }
    }

    // The columns whose middles lie no farther out than this from the outline, which is negative inside; as
    // the straight sides say, or the arcs of the corners.
    Span spanWithin(double distancePx, int y, const PixelRegion& row) const {
        const Rect& box = shape_.rect;
        const double arc = shape_.radiusPx + distancePx;
        const double up = std::abs(y + 0.5 - box.center().y) - box.height / 2 + shape_.radiusPx;
        if (!(up <= arc)) return {row.x0, row.x0};
        const double inset =
            up <= std::min(arc, 0.0) ? -distancePx : shape_.radiusPx - std::sqrt(arc * arc - up * up);
        // A box may reach further than whole numbers do.
        const auto column = [&](double x) { return int(std::clamp<double>(x, row.x0, row.x1)); };
        const int first = column(std::ceil(box.x + inset - 0.5));
        return {first, std::max(first, column(std::floor(box.maxX() - inset - 0.5) + 1))};
    }

    // Signed distance to the outline, negative inside: the box shrunk by the radius, then rounded by it.
    double distanceAt(double x, double y) const {
        const Point c = shape_.rect.center();
        const double qx = std::abs(x - c.x) - shape_.rect.width / 2 + shape_.radiusPx;
        const double qy = std::abs(y - c.y) - shape_.rect.height / 2 + shape_.radiusPx;
        return std::hypot(std::max(qx, 0.0), std::max(qy, 0.0)) + std::min(std::max(qx, qy), 0.0) -
               shape_.radiusPx;
    }
    const RoundedRectangleNode& shape_;
};

DrawableRef RoundedRectangleNode::prepare(RenderContext&, const NodeRef& self, const PixelRegion&) const {
    return std::make_shared<RoundedRectangleDrawable>(self, *this);
}

}   // namespace

std::uint32_t pixelOf(const Color& color) {
    const auto held = [](double v) { return v > 0 ? std::min(v, 1.0) : 0.0; };   // what is no number is 0
    const auto byte = [](double v) { return std::uint32_t(std::lround(v * 255)); };
    const double a = held(color.a);
    const auto channel = [&](double v) { return byte(held(v) * a); };
    return channel(color.b) | channel(color.g) << 8 | channel(color.r) << 16 | byte(a) << 24;
}

const NodeRef& emptyNode() {
    static const NodeRef node = makeNode<EmptyNode>();
    return node;
}

NodeRef makeSolid(const Color& color) { return makeNode<SolidNode>(color); }

NodeRef makeBitmap(BitmapRef bitmap, int x0, int y0, const Rect& extent) {
    if (!bitmap || bitmap->isEmpty()) return emptyNode();
    const PixelRegion region{x0, y0, x0 + bitmap->size().width, y0 + bitmap->size().height};
    return makeNode<BitmapNode>(std::move(bitmap), region, extent);
}

NodeRef makeSmoothGradient(Point p0, const Color& color0, Point p1, const Color& color1) {
    return makeNode<SmoothGradientNode>(p0, color0, p1, color1);
}

NodeRef makeRoundedRectangle(const Rect& rect, double radiusPx, const Color& color) {
    if (rect.isEmpty()) return emptyNode();
    const double mostRadius = std::min(rect.width, rect.height) / 2;
    return makeNode<RoundedRectangleNode>(rect, std::clamp(radiusPx, 0.0, mostRadius), color);
}

const Picture* asBitmap(const Node& node) {
    const auto* bitmap = dynamic_cast<const BitmapNode*>(&node);
    return bitmap ? &bitmap->picture() : nullptr;
}

}   // namespace tavix::imaging
