// Flat regions with holes, cut into triangles.
#pragma once

#include "Phone/Vector.h"

#include <array>
#include <cstdint>
#include <vector>

namespace tavix::phone {

using Triangle = std::array<std::uint32_t, 3>;

// `loops`: the border first, then the holes; closed, simple, not touching, in either direction. Indices count
// through the points of all loops in order. Every point is a corner of some triangle and no edge runs past a
// point, so a border shared with another surface leaves no crack. Counterclockwise, and as near to Delaunay's
// triangles as the loops allow. Throws std::invalid_argument when the loops cross.
std::vector<Triangle> triangulated(const std::vector<std::vector<Vec2>>& loops);

}   // namespace tavix::phone
