// Closed curves in a plane, counterclockwise, as stations with their outward direction. Moving every station
// along that direction gives the parallel curve, so a wall, its fillets and the glass within it share
// stations.
#pragma once

#include "Phone/Vector.h"

#include <vector>

namespace tavix::phone {

struct Station {
    Vec2 at;
    Vec2 outward;   // of length 1

    Vec2 offset(double by) const { return at + outward * by; }
};

using Outline = std::vector<Station>;

// A rectangle about the origin. Each corner turns over `cornerExtent` of both sides with a curvature that
// rises from nothing, holds and falls again, so that reflections run around it without a kink. A parallel
// curve exists inwards to about half of the extent.
Outline continuousRectangle(Vec2 size, double cornerExtent, int cornerSteps);

// A circle about the origin. Of radius 0 it is a spindle to turn profiles around.
Outline circle(double radius, int steps);

// Two half circles about points `halfLength` to both sides of the origin along x.
Outline stadium(double halfLength, double radius, int halfSteps);

// A convex polygon, given counterclockwise, with its corners rounded.
Outline roundedPolygon(const std::vector<Vec2>& corners, double radius, int cornerSteps);

// Adds stations on the straight stretch that runs from a given station to the next, at fractions of it.
void divide(Outline& outline, std::size_t station, const std::vector<double>& fractions);

Outline moved(Outline outline, Vec2 by);

}   // namespace tavix::phone
