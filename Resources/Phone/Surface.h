// Triangles of one material, gathered piece by piece. Lengths are millimetres.
#pragma once

#include "Phone/Outline.h"
#include "Phone/Profile.h"
#include "Phone/Triangulation.h"

#include <functional>
#include <optional>
#include <vector>

namespace tavix::phone {

struct Vertex {
    Vec3 at;
    Vec3 normal;    // of length 1
    Vec2 picture;   // where it shows a picture: x to the right and y down, 0 to 1

    bool operator==(const Vertex&) const = default;
    auto operator<=>(const Vertex&) const = default;
};

struct Surface {
    std::vector<Vertex> vertices;
    std::vector<Triangle> triangles;   // counterclockwise seen from outside
};

using Loop = std::vector<Vec3>;

// The outline moved by a profile point's offset, at its height: what neighbours share.
Loop ringAt(const Placement& place, const Outline& outline, Vec2 profilePoint);

// Where the strip between two profile points and two stations goes; nothing leaves a gap for another surface.
using Painter = std::function<Surface*(std::size_t profilePoint, std::size_t station)>;

// Carries the profile along the outline.
void loft(const Painter& painter, const Placement& place, const Outline& outline, const Profile& profile);
void loft(Surface& surface, const Placement& place, const Outline& outline, const Profile& profile);

// Fills a flat region: its border, then its holes. `pictureAt` tells picture coordinates where there are any.
void fill(Surface& surface, const std::vector<Loop>& loops, Vec3 normal,
    const std::function<Vec2(Vec3)>& pictureAt = {});

// Equal vertices made one.
Surface welded(const Surface& surface);

}   // namespace tavix::phone
