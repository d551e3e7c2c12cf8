#include "TavixPlatform/Imaging/Geometry.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tavix::imaging {

namespace {

constexpr double farAway = 1 << 24;
constexpr double wholeNumberSlack = 1.0 / 1024;

}   // namespace

Rect Rect::infinite() {
    constexpr double far = std::numeric_limits<double>::max() / 4;
    return {-far, -far, 2 * far, 2 * far};
}

Rect Rect::fromEdges(double minX, double minY, double maxX, double maxY) {
    return {minX, minY, maxX - minX, maxY - minY};
}

bool Rect::isInfinite() const { return width >= std::numeric_limits<double>::max() / 4; }

Rect intersection(const Rect& a, const Rect& b) {
    if (a.isInfinite()) return b;
    if (b.isInfinite()) return a;
    const Rect both = Rect::fromEdges(
        std::max(a.x, b.x), std::max(a.y, b.y), std::min(a.maxX(), b.maxX()), std::min(a.maxY(), b.maxY()));
    return both.isEmpty() ? Rect{} : both;
}

Rect unionOf(const Rect& a, const Rect& b) {
    if (a.isEmpty() || b.isInfinite()) return b;
    if (b.isEmpty() || a.isInfinite()) return a;
    return Rect::fromEdges(
        std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.maxX(), b.maxX()), std::max(a.maxY(), b.maxY()));
}

Rect grownBy(const Rect& rect, double marginPx) {
    if (rect.isEmpty() || rect.isInfinite()) return rect;
    return {rect.x - marginPx, rect.y - marginPx, rect.width + 2 * marginPx, rect.height + 2 * marginPx};
}

PixelRegion intersection(const PixelRegion& a, const PixelRegion& b) {
    const PixelRegion both{
        std::max(a.x0, b.x0), std::max(a.y0, b.y0), std::min(a.x1, b.x1), std::min(a.y1, b.y1)};
    return both.isEmpty() ? PixelRegion{} : both;
}

PixelRegion unionOf(const PixelRegion& a, const PixelRegion& b) {
    if (a.isEmpty()) return b;
    if (b.isEmpty()) return a;
    return {std::min(a.x0, b.x0), std::min(a.y0, b.y0), std::max(a.x1, b.x1), std::max(a.y1, b.y1)};
}

PixelRegion grownBy(const PixelRegion& region, int marginPx) {
    if (region.isEmpty()) return region;
    return {region.x0 - marginPx, region.y0 - marginPx, region.x1 + marginPx, region.y1 + marginPx};
}

PixelRegion pixelsCovering(const Rect& rect) {
    if (rect.isEmpty() || std::isnan(rect.maxX()) || std::isnan(rect.maxY())) return {};
    const auto low = [](double edge) {
        return int(std::clamp(std::floor(edge + wholeNumberSlack), -farAway, farAway));
    };
    const auto high = [](double edge) {
        return int(std::clamp(std::ceil(edge - wholeNumberSlack), -farAway, farAway));
    };
    const PixelRegion region{low(rect.x), low(rect.y), high(rect.maxX()), high(rect.maxY())};
    return region.isEmpty() ? PixelRegion{} : region;
}

Affine Affine::rotation(double angleRad) {
    const double c = std::cos(angleRad), s = std::sin(angleRad);
    return {c, s, -s, c, 0, 0};
}

Affine Affine::about(Point center) const {
    return translation(-center.x, -center.y).then(*this).then(translation(center.x, center.y));
}

Affine Affine::then(const Affine& next) const {
    return {a * next.a + b * next.c, a * next.b + b * next.d, c * next.a + d * next.c,
        c * next.b + d * next.d, tx * next.a + ty * next.c + next.tx, tx * next.b + ty * next.d + next.ty};
}

Affine Affine::inverse() const {
    const double det = determinant();
    if (!(std::abs(det) > 1e-300) || !std::isfinite(det)) return {0, 0, 0, 0, 0, 0};
    const double ia = d / det, ib = -b / det, ic = -c / det, id = a / det;
    return {ia, ib, ic, id, -(tx * ia + ty * ic), -(tx * ib + ty * id)};
}

Rect Affine::boundsOf(const Rect& rect) const {
    if (rect.isInfinite()) return rect;
    if (rect.isEmpty()) return {};
    const Point corners[] = {apply({rect.x, rect.y}), apply({rect.maxX(), rect.y}),
        apply({rect.x, rect.maxY()}), apply({rect.maxX(), rect.maxY()})};
    double minX = corners[0].x, maxX = minX, minY = corners[0].y, maxY = minY;
    for (const Point& p : corners) {
        minX = std::min(minX, p.x);
        maxX = std::max(maxX, p.x);
        minY = std::min(minY, p.y);
        maxY = std::max(maxY, p.y);
    }
    const Rect bounds = Rect::fromEdges(minX, minY, maxX, maxY);
    const bool isFinite = std::isfinite(bounds.x) && std::isfinite(bounds.y) && std::isfinite(bounds.width) &&
                          std::isfinite(bounds.height);
    return isFinite && !bounds.isEmpty() ? bounds : Rect{};
}

}   // namespace tavix::imaging
