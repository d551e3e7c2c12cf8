// Colours along a line, finer than bytes, so that a slow gradient does not band.
#include "TavixPlatform/Imaging/Nodes/Nodes.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tavix::imaging {

namespace {

using Premultiplied = std::array<double, 4>;   // blue, green, red, alpha

Premultiplied premultiplied(const Color& c) {
    const double a = std::clamp(c.a, 0.0, 1.0);
    const auto channel = [a](double v) { return std::clamp(v, 0.0, 1.0) * a; };
    return {channel(c.b), channel(c.g), channel(c.r), a};
}

// Between stops the straight colours are mixed. At a stop, and where nothing changes, the values are those of
// the stop's own pixel to the bit, and so no dither touches them.
class Ramp {
public:
    explicit Ramp(const std::vector<ColorStop>& stops) : stops_(stops) {
        for (const ColorStop& stop : stops_) {
            const Premultiplied exact = premultiplied(stop.color);
            const std::uint32_t pixel = pixelOf(stop.color);
            Premultiplied& correction = corrections_.emplace_back();
            for (std::size_t c = 0; c < 4; ++c) correction[c] = (pixel >> (8 * c) & 255) / 255.0 - exact[c];
        }
    }
    Premultiplied at(double t) const {
        std::size_t next = 0;
        while (next < stops_.size() && stops_[next].location <= t) ++next;
        if (next == 0 || next == stops_.size()) return mixed(next == 0 ? 0 : next - 1, 0, 0);
        const double start = stops_[next - 1].location;
        return mixed(next - 1, 1, (t - start) / (stops_[next].location - start));
    }

private:
    Premultiplied mixed(std::size_t from, std::size_t step, double u) const {
        const Color &a = stops_[from].color, &b = stops_[from + step].color;
        const auto lerp = [u](double low, double high) { return low + (high - low) * u; };
        Premultiplied value = premultiplied({lerp(a.r, b.r), lerp(a.g, b.g), lerp(a.b, b.b), lerp(a.a, b.a)});
        for (std::size_t c = 0; c < 4; ++c)
            value[c] += lerp(corrections_[from][c], corrections_[from + step][c]);
        return value;
    }

    std::vector<ColorStop> stops_;
    std::vector<Premultiplied> corrections_;
};

class LinearGradientNode final : public Node {
public:
    LinearGradientNode(Point start, Point end, std::vector<ColorStop> all)
        : Node(Rect::infinite(), pixelsCovering(Rect::infinite())),
          p0(start), axis{end.x - start.x, end.y - start.y}, stops(std::move(all)), ramp(stops) {}
    void describe(Structure& s) const override {
        s.kind(NodeKind::linearGradient).add(p0.x).add(p0.y).add(axis.x).add(axis.y);
        s.add(std::uint64_t(stops.size()));
        for (const ColorStop& stop : stops)
            s.add(stop.location).add(stop.color.r).add(stop.color.g).add(stop.color.b).add(stop.color.a);
    }
    bool isOpaque(const PixelRegion&) const override {
        return std::ranges::all_of(stops, [](const ColorStop& stop) { return stop.color.a >= 1; });
    }
    bool isFine() const override { return true; }
    DrawableRef prepare(RenderContext&, const NodeRef& self, const PixelRegion&) const override;

    const Point p0, axis;
    const std::vector<ColorStop> stops;
    const Ramp ramp;
};

class LinearGradientDrawable final : public FloatDrawable {
public:
    LinearGradientDrawable(const NodeRef& ref, const LinearGradientNode& gradient)
        : FloatDrawable(ref), gradient_(gradient) {}
    void drawFloat(const FloatTile& tile, Scratch&) const override {
        const Point& axis = gradient_.axis;
        const double length2 = std::max(axis.x * axis.x + axis.y * axis.y, 1e-12);
        const double perColumn = axis.x / length2, perRow = axis.y / length2;
        for (int y = tile.region.y0; y < tile.region.y1; ++y) {
            const FloatRow row = tile.row(y);
            const double atColumn0 = (0.5 - gradient_.p0.x) * perColumn + (y + 0.5 - gradient_.p0.y) * perRow;
            Premultiplied value = gradient_.ramp.at(atColumn0 + tile.region.x0 * perColumn);
            for (int x = tile.region.x0; x < tile.region.x1; ++x) {
                if (perColumn != 0) value = gradient_.ramp.at(atColumn0 + x * perColumn);
                for (std::size_t c = 0; c < 4; ++c) row.plane[c][x - tile.region.x0] = float(value[c]);
            }
        }
    }

private:
    const LinearGradientNode& gradient_;
};

DrawableRef LinearGradientNode::prepare(RenderContext&, const NodeRef& self, const PixelRegion&) const {
    return std::make_shared<LinearGradientDrawable>(self, *this);
}

}   // namespace

NodeRef makeLinearGradient(Point p0, Point p1, std::vector<ColorStop> stops) {
    if (stops.empty()) return emptyNode();
    return makeNode<LinearGradientNode>(p0, p1, std::move(stops));
}

}   // namespace tavix::imaging
