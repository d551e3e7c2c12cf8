#include "Phone/Surface.h"

#include <map>
#include <utility>

namespace tavix::phone {

namespace {

std::uint32_t append(Surface& surface, Vertex vertex) {
    surface.vertices.push_back(vertex);
    return static_cast<std::uint32_t>(surface.vertices.size() - 1);
}

Vertex vertexAt(const Placement& place, const Station& station, const ProfilePoint& point) {
    return {place.at(station.offset(point.at.x), point.at.y),
        normalized(place.direction(station.outward * point.facing.x, point.facing.y)), {}};
}

// A strip's quad: along the outline, then along the profile. Around a spindle one of its sides is a point.
void appendQuad(Surface& surface, const std::array<Vertex, 4>& corners) {
    std::array<std::uint32_t, 4> index{};
    for (std::size_t i = 0; i < 4; ++i) index[i] = append(surface, corners[i]);
    if (corners[0].at != corners[1].at) surface.triangles.push_back({index[0], index[1], index[2]});
    if (corners[2].at != corners[3].at) surface.triangles.push_back({index[0], index[2], index[3]});
}

}   // namespace

Loop ringAt(const Placement& place, const Outline& outline, Vec2 profilePoint) {
    Loop loop;
    for (const Station& station : outline)
        loop.push_back(place.at(station.offset(profilePoint.x), profilePoint.y));
    return loop;
}

void loft(const Painter& painter, const Placement& place, const Outline& outline, const Profile& profile) {
    for (std::size_t p = 0; p + 1 < profile.size(); ++p) {
        if (profile[p].at == profile[p + 1].at) continue;   // the two faces of a hard edge
        for (std::size_t s = 0; s < outline.size(); ++s) {
            Surface* surface = painter(p, s);
            if (surface == nullptr) continue;
            const Station &here = outline[s], &next = outline[(s + 1) % outline.size()];
            appendQuad(
                *surface, {vertexAt(place, here, profile[p]), vertexAt(place, next, profile[p]),
                              vertexAt(place, next, profile[p + 1]), vertexAt(place, here, profile[p + 1])});
        }
    }
}

void loft(Surface& surface, const Placement& place, const Outline& outline, const Profile& profile) {
    loft([&](std::size_t, std::size_t) { return &surface; }, place, outline, profile);
}

void fill(Surface& surface, const std::vector<Loop>& loops, Vec3 normal,
    const std::function<Vec2(Vec3)>& pictureAt) {
    const Vec3 helper = std::abs(normal.x) < 0.5 ? Vec3{1, 0, 0} : Vec3{0, 1, 0};
    const Vec3 across = normalized(cross(normal, helper)), along = cross(across, normal);
    std::vector<std::vector<Vec2>> flat;
    const auto first = static_cast<std::uint32_t>(surface.vertices.size());
    for (const Loop& loop : loops) {
        auto& points = flat.emplace_back();
        for (const Vec3 at : loop) {
            points.push_back({dot(at, along), dot(at, across)});
            append(surface, {at, normal, pictureAt ? pictureAt(at) : Vec2{}});
        }
    }
    for (const Triangle& triangle : triangulated(flat))
        surface.triangles.push_back({first + triangle[0], first + triangle[1], first + triangle[2]});
}

Surface welded(const Surface& surface) {
    Surface result;
    std::map<Vertex, std::uint32_t> known;
    std::vector<std::uint32_t> becomes;
    for (const Vertex& vertex : surface.vertices) {
        const auto [entry, isNew] = known.try_emplace(vertex, result.vertices.size());
        if (isNew) result.vertices.push_back(vertex);
        becomes.push_back(entry->second);
    }
    for (const Triangle& triangle : surface.triangles)
        result.triangles.push_back({becomes[triangle[0]], becomes[triangle[1]], becomes[triangle[2]]});
    return result;
}

}   // namespace tavix::phone
