#include "Phone/Dimensions.h"
#include "Phone/Pieces.h"

namespace tavix::phone {

namespace {

constexpr std::size_t cornerStations = cornerSteps + 1;

// Stations of the outline that matter: the last of each corner's, from which a straight stretch runs. Two
// antenna lines divide each long side in five, and the middle part carries the openings.
struct Stretch {
    Edge edge;
    std::size_t first;
};
constexpr std::size_t sideDivisions = 4;
constexpr Stretch stretches[] = {
    {Edge::top, cornerStations - 1},
    {Edge::right, 2 * cornerStations - 1},
    {Edge::bottom, 3 * cornerStations - 1 + sideDivisions},
    {Edge::left, 4 * cornerStations - 1 + sideDivisions},
};

bool hasAntennas(Edge edge) { return edge == Edge::left || edge == Edge::right; }

Outline outlineWithAntennas() {
    Outline outline = continuousRectangle({widthMm, heightMm}, cornerExtentMm, cornerSteps);
    const double straight = heightMm - 2 * cornerExtentMm;
    std::vector<double> fractions;
    for (const double at : {-antennaToMm, -antennaFromMm, antennaFromMm, antennaToMm})
        fractions.push_back(0.5 + at / straight);
    for (const Stretch& stretch : stretches)
        if (hasAntennas(stretch.edge)) divide(outline, stretch.first, fractions);
    return outline;
}

bool isAntenna(std::size_t station) {
    for (const Stretch& stretch : stretches)
        if (hasAntennas(stretch.edge) && (station == stretch.first + 1 || station == stretch.first + 3))
            return true;
    return false;
}

// The station from which the part of an edge runs that carries its openings.
std::size_t panelStation(const Stretch& stretch) {
    return stretch.first + (hasAntennas(stretch.edge) ? sideDivisions / 2 : 0);
}

// From the front glass over a narrow lip and a bevel to the flat side, and on to the back in the same way.
Profile frameSection() {
    const double lip = halfDepthMm - 0.10, bevel = 3.22;
    return section({{{frameEdgeMm.x, -frameEdgeMm.y}}, {{frameEdgeMm.x, -lip}, 0.05, 2},
        {{-0.70, -lip}, 0.16, 4}, {{0, -bevel}, 0.5, 7}, {{0, bevel}, 0.5, 7}, {{-0.70, lip}, 0.16, 4},
        {{frameEdgeMm.x, lip}, 0.05, 2}, {{frameEdgeMm.x, frameEdgeMm.y}}});
}

}   // namespace

const Outline& bodyOutline() {
    static const Outline outline = outlineWithAntennas();
    return outline;
}

Placement edgePlace(Edge edge) {
    const double middle = heightMm / 2;
    switch (edge) {
    case Edge::left: return {{widthMm / 2, middle, 0}, {0, 1, 0}, {0, 0, 1}, {1, 0, 0}};
    case Edge::right: return {{-widthMm / 2, middle, 0}, {0, -1, 0}, {0, 0, 1}, {-1, 0, 0}};
    case Edge::bottom: return {{0, 0, 0}, {1, 0, 0}, {0, 0, 1}, {0, -1, 0}};
    case Edge::top: break;
    }
    return {{0, heightMm, 0}, {-1, 0, 0}, {0, 0, 1}, {0, 1, 0}};
}

void addFrame(Model& model, const std::function<std::vector<Loop>(Edge)>& openings) {
    Surface &metal = model["frame_color1"], &line = model["antenna_color2"];
    const Outline& outline = bodyOutline();
    const Profile profile = frameSection();
    const auto panelOf = [](std::size_t station) {
        for (const Stretch& stretch : stretches)
            if (panelStation(stretch) == station) return &stretch;
        return static_cast<const Stretch*>(nullptr);
    };
    loft(
        [&](std::size_t point, std::size_t station) -> Surface* {
            const bool isFlatSide = profile[point].at.x == 0 && profile[point + 1].at.x == 0;
            if (isFlatSide && panelOf(station) != nullptr) return nullptr;
            return isAntenna(station) ? &line : &metal;
        },
        bodyPlace(), outline, profile);
    for (std::size_t point = 0; point + 1 < profile.size(); ++point) {
        if (profile[point].at.x != 0 || profile[point + 1].at.x != 0) continue;
        const Loop lower = ringAt(bodyPlace(), outline, profile[point].at),
                   upper = ringAt(bodyPlace(), outline, profile[point + 1].at);
        for (const Stretch& stretch : stretches) {
            const std::size_t at = panelStation(stretch), next = (at + 1) % outline.size();
            std::vector<Loop> loops = openings(stretch.edge);
            loops.insert(loops.begin(), {lower[at], lower[next], upper[next], upper[at]});
            fill(metal, loops, edgePlace(stretch.edge).up);
        }
    }
}

}   // namespace tavix::phone
