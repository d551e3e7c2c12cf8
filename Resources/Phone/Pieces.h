// The steps that build the phone. Neighbours share the rings where they meet, so that all together make one
// closed skin.
#pragma once

#include "Phone/Model.h"

#include <span>

namespace tavix::phone {

// The straight stretches of the frame that have openings in them.
enum class Edge { left, right, bottom, top };   // seen from the front
inline constexpr Edge edges[] = {Edge::left, Edge::right, Edge::bottom, Edge::top};

// A plane on the outside of an edge: its first direction runs along the edge, its second to the back.
Placement edgePlace(Edge edge);

// The outline of the body, with stations where antenna lines begin and end.
const Outline& bodyOutline();
// The bevelled frame between both sheets of glass, antenna lines included. Edges are filled around
// `openings`.
void addFrame(Model& model, const std::function<std::vector<Loop>(Edge)>& openings);

// Screen, bezel, the slit of the speaker, the sheet of glass over them.
void addFront(Model& model);
// The back with a hole for the camera plate and the logo inlaid.
void addBack(Model& model);
// The logo's outlines, on the back.
std::vector<Outline> logoOutlines();

// What is set into the edges: the loops where they break the frame's surface, and the things themselves.
std::vector<Loop> openingLoops(Edge edge);
void addOpenings(Model& model);

// The border where the camera plate meets the back, and the plate with all that it carries.
Loop plateBorder();
void addCameras(Model& model);
// One lens with its ring, around a place on the plate; the ring takes the plate's hole.
Loop lensBorder(const Placement& centre);
void addLens(Model& model, const Placement& centre);

// Flaws that files from modelling programs have and that the studio mends: loose slivers at the foot of the
// bezel, and a block inside the body that nobody sees.
void addStrayGeometry(Model& model);

}   // namespace tavix::phone
