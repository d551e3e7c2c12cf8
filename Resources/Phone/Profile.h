// Sections of a wall, which a lofted surface carries along an outline.
#pragma once

#include "Phone/Vector.h"

#include <vector>

namespace tavix::phone {

// One corner of a section, in (offset outwards from the outline, height above its plane).
struct Corner {
    Vec2 at;
    double radius = 0;   // of its rounding; 0 leaves a hard edge
    int steps = 4;
};

// A point of a section with the direction that its surface faces, of length 1. At a hard edge a point stands
// twice, once for each of its surfaces.
struct ProfilePoint {
    Vec2 at;
    Vec2 facing;
};

using Profile = std::vector<ProfilePoint>;

// The surface lies to the right of the way that the corners are given in. The first and the last corner are
// the ends and are not rounded.
Profile section(const std::vector<Corner>& corners);

// A section along an arc of a circle between two points, bulging to its facing side by `rise`.
Profile dome(Vec2 from, Vec2 to, double rise, int steps);

}   // namespace tavix::phone
