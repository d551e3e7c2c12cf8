#include "TavixRender/Judge/Outline.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace tavix {
namespace {

using imaging::Point;
using imaging::Rect;

constexpr int mostArcSteps = 48;
constexpr double edgeTolerancePx = 0.5, leastEdgePx = 1e-6;

double cross(Point o, Point a, Point b) { return (a.x - o.x) * (b.y - o.y) - (a.y - o.y) * (b.x - o.x); }

double signedArea(const std::vector<Point>& points) {
    double twice = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Point &a = points[i], &b = points[(i + 1) % points.size()];
        twice += a.x * b.y - b.x * a.y;
    }
    return twice / 2;
}

Rect boundsOf(const std::vector<Point>& points) {
    if (points.empty()) return {};
    double minX = points[0].x, maxX = minX, minY = points[0].y, maxY = minY;
    for (const Point& p : points) {
        minX = std::min(minX, p.x), maxX = std::max(maxX, p.x);
        minY = std::min(minY, p.y), maxY = std::max(maxY, p.y);
    }
    return Rect::fromEdges(minX, minY, maxX, maxY);
}

// An arc leaves its chord by r (1 - cos(angle / 2)), which is a third of a pixel at about sqrt(r) steps.
int arcSteps(double radiusPx) {
    return std::clamp(static_cast<int>(std::ceil(std::sqrt(radiusPx))), 1, mostArcSteps);
}

// What lies on the side of a line that `inside` measures as positive (Sutherland and Hodgman).
std::vector<Point> clipped(const std::vector<Point>& points, const std::function<double(Point)>& inside) {
    std::vector<Point> kept;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Point &a = points[i], &b = points[(i + 1) % points.size()];
        const double da = inside(a), db = inside(b);
        if (da >= 0) kept.push_back(a);
        if ((da >= 0) != (db >= 0)) {
            const double share = da / (da - db);
            kept.push_back({a.x + share * (b.x - a.x), a.y + share * (b.y - a.y)});
        }
    }
    return kept;
}

}   // namespace

Outline::Outline(std::vector<Point> points) : points_(std::move(points)), bounds_(boundsOf(points_)) {
    if (signedArea(points_) < 0) std::ranges::reverse(points_);
}

Outline Outline::of(const Rect& rect) {
    return Outline(
        {{rect.x, rect.y}, {rect.maxX(), rect.y}, {rect.maxX(), rect.maxY()}, {rect.x, rect.maxY()}});
}

Outline Outline::ofRounded(const Rect& rect, double radiusPx) {
    const double radius = std::clamp(radiusPx, 0.0, std::max(std::min(rect.width, rect.height) / 2, 0.0));
    if (!(radius > 0)) return of(rect);
    const Point centers[] = {{rect.maxX() - radius, rect.maxY() - radius},
        {rect.x + radius, rect.maxY() - radius}, {rect.x + radius, rect.y + radius},
        {rect.maxX() - radius, rect.y + radius}};
    const int steps = arcSteps(radius);
    std::vector<Point> points;
    for (int corner = 0; corner < 4; ++corner)
        for (int step = 0; step <= steps; ++step) {
            const double angle = (corner + double(step) / steps) * std::numbers::pi / 2;
            points.push_back(
                {centers[corner].x + radius * std::cos(angle), centers[corner].y + radius * std::sin(angle)});
        }
    return Outline(std::move(points));
}

// Andrew's monotone chain.
Outline Outline::around(std::vector<Point> points) {
    if (points.size() < 3) return Outline(std::move(points));
    std::ranges::sort(points, [](Point a, Point b) { return std::pair(a.x, a.y) < std::pair(b.x, b.y); });
    std::vector<Point> hull;
    const auto chain = [&](auto first, auto last) {
        const std::size_t floor = hull.size() + 1;
        for (; first != last; ++first) {
            while (hull.size() > floor && cross(hull[hull.size() - 2], hull.back(), *first) <= 0)
                hull.pop_back();
            hull.push_back(*first);
        }
        hull.pop_back();
    };
    chain(points.begin(), points.end());
    chain(points.rbegin(), points.rend());
    return Outline(std::move(hull));
}

double Outline::area() const { return points_.size() < 3 ? 0 : std::abs(signedArea(points_)); }

Outline Outline::transformed(const imaging::Affine& transform) const {
    return mapped([&](Point p) { return transform.apply(p); });
}

Outline Outline::mapped(const std::function<Point(Point)>& map) const {
    std::vector<Point> points;
    points.reserve(points_.size());
    for (const Point& p : points_) points.push_back(map(p));
    return Outline(std::move(points));
}

Outline Outline::cut(const Rect& rect) const {
    const Rect common = imaging::intersection(bounds_, rect);
    if (common == bounds_) return *this;
    if (common.isEmpty()) return {};
    std::vector<Point> points = clipped(points_, [&](Point p) { return p.x - rect.x; });
    points = clipped(points, [&](Point p) { return rect.maxX() - p.x; });
    points = clipped(points, [&](Point p) { return p.y - rect.y; });
    points = clipped(points, [&](Point p) { return rect.maxY() - p.y; });
    return Outline(std::move(points));
}

bool Outline::contains(Point point) const {
    const bool isNear = point.x >= bounds_.x - 1 && point.x <= bounds_.maxX() + 1 &&
                        point.y >= bounds_.y - 1 && point.y <= bounds_.maxY() + 1;
    if (points_.size() < 3 || !isNear) return false;
    for (std::size_t i = 0; i < points_.size(); ++i) {
        const Point &a = points_[i], &b = points_[(i + 1) % points_.size()];
        const double length = std::hypot(b.x - a.x, b.y - a.y);
        if (length < leastEdgePx) continue;   // where two arcs meet, rounding gives it any direction
        if (cross(a, b, point) < -edgeTolerancePx * length) return false;
    }
    return true;
}

bool Outline::covers(const Outline& other) const {
    const Rect& inner = other.bounds_;
    if (inner.x < bounds_.x - 1 || inner.y < bounds_.y - 1 || inner.maxX() > bounds_.maxX() + 1 ||
        inner.maxY() > bounds_.maxY() + 1)
        return false;
    return std::ranges::all_of(other.points_, [&](Point p) { return contains(p); });
}

}   // namespace tavix
