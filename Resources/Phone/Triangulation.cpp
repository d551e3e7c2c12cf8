// Ear clipping with holes joined to the border by bridges (Eberly, "Triangulation by Ear Clipping"), then
// Lawson's edge flips, which take the slivers out.
#include "Phone/Triangulation.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <stdexcept>
#include <utility>

namespace tavix::phone {

namespace {

using Ring = std::vector<std::uint32_t>;
using Points = std::vector<Vec2>;

double turn(Vec2 a, Vec2 b, Vec2 c) { return cross(b - a, c - a); }

double signedArea(const Points& points, const Ring& ring) {
    double twice = 0;
    for (std::size_t i = 0; i < ring.size(); ++i)
        twice += cross(points[ring[i]], points[ring[(i + 1) % ring.size()]]);
    return twice / 2;
}

// Border included.
bool holds(Vec2 a, Vec2 b, Vec2 c, Vec2 p) {
    return turn(a, b, p) >= 0 && turn(b, c, p) >= 0 && turn(c, a, p) >= 0;
}

bool isBetween(Vec2 a, Vec2 b, Vec2 p) { return dot(p - a, p - b) <= 0; }

// Whether the segment from a to b meets the edge from c to d in more than a common end.
bool isBlocked(Vec2 a, Vec2 b, Vec2 c, Vec2 d) {
    const double ac = turn(a, b, c), ad = turn(a, b, d), ca = turn(c, d, a), cb = turn(c, d, b);
    if (ac == 0 && c != a && c != b && isBetween(a, b, c)) return true;
    if (ad == 0 && d != a && d != b && isBetween(a, b, d)) return true;
    return ((ac > 0 && ad < 0) || (ac < 0 && ad > 0)) && ((ca > 0 && cb < 0) || (ca < 0 && cb > 0));
}

// Whether a step from a ring's corner towards p leads inside. Bridges visit a point more than once, and only
// one of its corners may see p.
bool leadsInside(Vec2 before, Vec2 corner, Vec2 after, Vec2 p) {
    if (turn(before, corner, after) > 0) return turn(corner, p, before) > 0 && turn(p, corner, after) > 0;
    return !(turn(corner, p, after) >= 0 && turn(p, corner, before) >= 0);
}

struct Bridge {
    double length;
    std::size_t fromRing, hole, toHole;
};

bool crosses(const Points& points, const Ring& edges, Vec2 a, Vec2 b) {
    for (std::size_t i = 0; i < edges.size(); ++i)
        if (isBlocked(a, b, points[edges[i]], points[edges[(i + 1) % edges.size()]])) return true;
    return false;
}

bool isFree(const Points& points, const Ring& ring, const std::vector<Ring>& holes, const Bridge& bridge) {
    const std::size_t at = bridge.fromRing, n = ring.size();
    const Vec2 a = points[ring[at]], b = points[holes[bridge.hole][bridge.toHole]];
    return leadsInside(points[ring[(at + n - 1) % n]], a, points[ring[(at + 1) % n]], b) &&
           !crosses(points, ring, a, b) && std::none_of(holes.begin(), holes.end(), [&](const Ring& hole) {
               return crosses(points, hole, a, b);
           });
}

// Joins to the ring that hole which the shortest free bridge reaches; one may stand behind another.
void bridgeToNearest(const Points& points, Ring& ring, std::vector<Ring>& holes) {
    std::vector<Bridge> bridges;
    for (std::size_t i = 0; i < ring.size(); ++i)
        for (std::size_t h = 0; h < holes.size(); ++h)
            for (std::size_t j = 0; j < holes[h].size(); ++j)
                bridges.push_back({length(points[ring[i]] - points[holes[h][j]]), i, h, j});
    std::stable_sort(
        bridges.begin(), bridges.end(), [](const Bridge& a, const Bridge& b) { return a.length < b.length; });
    const auto found = std::find_if(bridges.begin(), bridges.end(),
        [&](const Bridge& bridge) { return isFree(points, ring, holes, bridge); });
    if (found == bridges.end())
        throw std::invalid_argument("A hole cannot be reached from the border of its region.");
    const Ring& hole = holes[found->hole];
    Ring detour;
    for (std::size_t i = 0; i <= hole.size(); ++i) detour.push_back(hole[(found->toHole + i) % hole.size()]);
    detour.push_back(ring[found->fromRing]);
    ring.insert(
        ring.begin() + static_cast<std::ptrdiff_t>(found->fromRing) + 1, detour.begin(), detour.end());
    holes.erase(holes.begin() + static_cast<std::ptrdiff_t>(found->hole));
}

bool isEar(const Points& points, const Ring& ring, std::size_t at) {
    const std::size_t n = ring.size();
    const Vec2 a = points[ring[(at + n - 1) % n]], b = points[ring[at]], c = points[ring[(at + 1) % n]];
    if (turn(a, b, c) <= 0) return false;
    return std::none_of(ring.begin(), ring.end(), [&](std::uint32_t index) {
        const Vec2 p = points[index];
        return p != a && p != b && p != c && holds(a, b, c, p);
    });
}

std::vector<Triangle> clipped(const Points& points, Ring ring) {
    std::vector<Triangle> triangles;
    std::size_t at = 0, refused = 0;
    while (ring.size() > 2) {
        const std::size_t n = ring.size();
        at %= n;
        if (!isEar(points, ring, at)) {
            if (++refused > n) throw std::invalid_argument("The loops of a flat region cross.");
            ++at;
            continue;
        }
        refused = 0;
        triangles.push_back({ring[(at + n - 1) % n], ring[at], ring[(at + 1) % n]});
        ring.erase(ring.begin() + static_cast<std::ptrdiff_t>(at));
        ++at;   // not the same corner again, so that no fan of slivers grows from it
    }
    return triangles;
}

// Positive when d lies within the circle through a, b, c, which turn left.
double inCircle(Vec2 a, Vec2 b, Vec2 c, Vec2 d) {
    const Vec2 p = a - d, q = b - d, r = c - d;
    return dot(p, p) * cross(q, r) - dot(q, q) * cross(p, r) + dot(r, r) * cross(p, q);
}

class Flipping {
public:
    Flipping(const Points& points, std::vector<Triangle>& triangles)
        : points_(points), triangles_(triangles) {
        for (std::uint32_t t = 0; t < triangles_.size(); ++t) enter(t);
    }

    // Each flip makes the triangulation more like Delaunay's, so this ends; the limit guards against
    // rounding where four points share a circle.
    void run() {
        bool isChanged = true;
        for (int pass = 0; isChanged && pass < 100; ++pass) {
            isChanged = false;
            for (std::uint32_t t = 0; t < triangles_.size(); ++t)
                for (std::size_t side = 0; side < 3; ++side) isChanged |= flip(t, side);
        }
    }

private:
    using Edge = std::pair<std::uint32_t, std::uint32_t>;

    void enter(std::uint32_t t) {
        for (std::size_t i = 0; i < 3; ++i) owner_[{triangles_[t][i], triangles_[t][(i + 1) % 3]}] = t;
    }

    bool flip(std::uint32_t t, std::size_t side) {
        const std::uint32_t a = triangles_[t][side], b = triangles_[t][(side + 1) % 3],
                            c = triangles_[t][(side + 2) % 3];
        const auto beyond = owner_.find({b, a});
        if (beyond == owner_.end()) return false;
        const std::uint32_t other = beyond->second;
        const std::uint32_t d = oppositeTo(triangles_[other], a, b);
        const Vec2 pa = points_[a], pb = points_[b], pc = points_[c], pd = points_[d];
        const double scale = dot(pa - pc, pa - pc) * dot(pb - pc, pb - pc);
        if (inCircle(pa, pb, pc, pd) <= 1e-9 * scale) return false;
        if (turn(pc, pa, pd) <= 0 || turn(pd, pb, pc) <= 0) return false;   // the two make no convex quad
        owner_.erase({a, b});
        owner_.erase({b, a});
        triangles_[t] = {c, a, d};
        triangles_[other] = {d, b, c};
        enter(t);
        enter(other);
        return true;
    }

    static std::uint32_t oppositeTo(const Triangle& triangle, std::uint32_t a, std::uint32_t b) {
        return *std::find_if(triangle.begin(), triangle.end(),
            [&](std::uint32_t corner) { return corner != a && corner != b; });
    }

    const Points& points_;
    std::vector<Triangle>& triangles_;
    std::map<Edge, std::uint32_t> owner_;
};

}   // namespace

std::vector<Triangle> triangulated(const std::vector<std::vector<Vec2>>& loops) {
    Points points;
    Ring border;
    std::vector<Ring> holes;
    for (const auto& loop : loops) {
        Ring ring(loop.size());
        std::iota(ring.begin(), ring.end(), static_cast<std::uint32_t>(points.size()));
        points.insert(points.end(), loop.begin(), loop.end());
        const bool isBorder = border.empty();
        if ((signedArea(points, ring) > 0) != isBorder) std::reverse(ring.begin(), ring.end());
        if (isBorder)
            border = std::move(ring);
        else
            holes.push_back(std::move(ring));
    }
    while (!holes.empty()) bridgeToNearest(points, border, holes);
    std::vector<Triangle> triangles = clipped(points, std::move(border));
    Flipping(points, triangles).run();
    return triangles;
}

}   // namespace tavix::phone
