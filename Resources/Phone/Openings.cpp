// Keys, the port, and the holes of loudspeaker and microphone.
#include "Phone/Dimensions.h"
#include "Phone/Pieces.h"

namespace tavix::phone {

namespace {

struct Opening {
    enum class Kind { key, port, hole };
    Kind kind;
    Edge edge;
    double along;        // of its middle, in the edge's own direction
    double halfLength;   // of its straight part
    double radius;
};

std::vector<Opening> allOpenings() {
    using enum Opening::Kind;
    constexpr double keyRadius = 1.32;
    std::vector<Opening> openings{
        {key, Edge::left, 37, 1.9, keyRadius},
        {key, Edge::left, 24, 4.3, keyRadius},
        {key, Edge::left, 10.5, 4.3, keyRadius},
        {key, Edge::right, -18, 7.6, keyRadius},
        {port, Edge::bottom, 0, 2.9, 1.62},
        {hole, Edge::top, -9, 0, 0.5},
    };
    for (int i = 0; i < 4; ++i)
        for (const double side : {-1.0, 1.0})
            openings.push_back({hole, Edge::bottom, side * (7.4 + 2.35 * i), 0, 0.74});
    return openings;
}

Placement placeOf(const Opening& opening) { return edgePlace(opening.edge).moved({opening.along, 0}); }

Outline outlineOf(const Opening& opening) {
    constexpr int halfSteps = 12;
    return opening.halfLength > 0 ? stadium(opening.halfLength, opening.radius, halfSteps)
                                  : circle(opening.radius, 2 * halfSteps);
}

// A bevelled rim in the frame's metal, below it a wall and a floor of another part.
void addWell(Model& model, const Opening& opening, double rim, double metalDepth, double depth) {
    const Placement place = placeOf(opening);
    const Outline outline = outlineOf(opening);
    const Profile metal = section({{{0, 0}}, {{-rim, -rim}}, {{-rim, -metalDepth}}}),
                  dark = section({{{-rim, -metalDepth}}, {{-rim, -depth}}});
    loft(model["frame_color1"], place, outline, metal);
    Surface& port = model["port_black"];
    loft(port, place, outline, dark);
    fill(port, {ringAt(place, outline, dark.back().at)}, place.up);
}

// A closed block with rounded upper edges, from a depth to a height.
void addBlock(Surface& surface, const Placement& place, const Outline& outline, const Profile& profile) {
    loft(surface, place, outline, profile);
    fill(surface, {ringAt(place, outline, profile.front().at)}, place.up * -1);
    fill(surface, {ringAt(place, outline, profile.back().at)}, place.up);
}

void addKey(Model& model, const Opening& opening) {
    addWell(model, opening, 0.05, 0.35, 0.8);
    constexpr double gap = 0.15, height = 0.42;
    addBlock(model["key_color1"], placeOf(opening), outlineOf(opening),
        section({{{-gap, -0.7}}, {{-gap, height}, 0.24, 6}, {{-gap - 0.5, height}}}));
}

void addPort(Model& model, const Opening& opening) {
    addWell(model, opening, 0.14, 0.9, 4.5);
    addBlock(model["port_black"], placeOf(opening), stadium(2.5, 0.36, 6),
        section({{{0, -4.4}}, {{0, -0.8}, 0.12, 3}, {{-0.2, -0.8}}}));
}

}   // namespace

std::vector<Loop> openingLoops(Edge edge) {
    std::vector<Loop> loops;
    for (const Opening& opening : allOpenings())
        if (opening.edge == edge) loops.push_back(ringAt(placeOf(opening), outlineOf(opening), {0, 0}));
    return loops;
}

void addOpenings(Model& model) {
    for (const Opening& opening : allOpenings()) {
        switch (opening.kind) {
        case Opening::Kind::key: addKey(model, opening); break;
        case Opening::Kind::port: addPort(model, opening); break;
        case Opening::Kind::hole: addWell(model, opening, 0.07, 0.25, 1.4); break;
        }
    }
}

}   // namespace tavix::phone
