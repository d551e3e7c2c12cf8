#include "TavixReel/Choreography/TeaserChoreography.h"

#include <algorithm>

namespace tavix::TeaserChoreography {
namespace {

struct Place {
    double tSec, x, y, scale;
};
struct Row {
    const char* key;
    double durationSec;
    std::vector<Place> places;
    std::vector<DevicePoseKeyframe> poses;
};

// Places are time, offset and scale; poses are time and pitch, yaw, roll.
const std::vector<Row>& rows() {
    static const std::vector<Row> table{
        {"hero-rise", 1.0,
            {{0, -0.05, -0.55, 0.55}, {0.4, -0.02, -0.15, 0.88}, {0.8, 0, 0.01, 1.02}, {1.0, 0, 0, 1}},
            {{0, {60, -8, 0}}, {0.4, {20, -4, 0}}, {0.6, {8, -3, 0}}, {0.8, {4, -2, 0}}, {1.0, {8, -3, 0}}}},
        {"scroll-lean", 2.8, {{0, 0, 0, 1}, {2.8, 0, -0.08, 1.18}}, {{0, {8, -3, 0}}, {2.8, {10, 14, 2}}}},
        {"exit-up", 0.8, {{0, 0, 0.08, 1.18}, {0.4, -0.08, 0.55, 1.16}, {0.8, -0.1, 1, 1.15}},
            {{0, {10, 14, 2}}, {0.8, {10, 18, 4}}}},
        {"grow-from-depth", 1.1,
            {{0, 0, -0.05, 0.28}, {0.3, 0, -0.04, 0.38}, {0.7, 0, -0.02, 0.52}, {1.1, 0, 0, 0.62}},
            {{0, {0, 0, 0}}, {1.1, {0, -2, 0}}}},
        {"tilt-away", 1.1,
            {{0, -0.06, 0.06, 0.8}, {0.4, -0.14, 0.16, 1.05}, {0.8, -0.25, 0.35, 1.25},
                {1.1, -0.5, 0.8, 1.3}},
            {{0, {-2, -6, -2}}, {0.4, {-4, -14, -4}}, {0.8, {-6, -22, -6}}, {1.1, {-6, -26, -7}}}},
        {"present-pair", 2.4, {{0, 0, 0, 0.6}, {0.3, -0.15, 0, 0.6}, {2.4, -0.17, 0, 0.72}},
            {{0, {0, 0, 0}}, {0.3, {0, 5, 0}}, {2.4, {0, 7, 0}}}},
    };
    return table;
}

Clip clipOf(const Row& row) {
    Clip clip{row.durationSec, row.poses, {}};
    for (const Place& place : row.places)
        clip.placement.push_back({place.tSec, {place.x, place.y}, place.scale, {}, {}});
    clip.placement.front().move = row.key;
    return clip;
}

}   // namespace

Clip Clip::shifted(double bySec) const {
    Clip later = *this;
    for (DevicePoseKeyframe& keyframe : later.pose) keyframe.tSec += bySec;
    for (DevicePlacementKeyframe& keyframe : later.placement) {
        keyframe.tSec += bySec;
        keyframe.scale = std::max(keyframe.scale, leastPlacementScale);
    }
    return later;
}

const std::map<std::string, Clip, std::less<>>& all() {
    static const std::map<std::string, Clip, std::less<>> clips = [] {
        std::map<std::string, Clip, std::less<>> made;
        for (const Row& row : rows()) made.emplace(row.key, clipOf(row));
        return made;
    }();
    return clips;
}

const Clip& heroRise() { return all().at("hero-rise"); }
const Clip& scrollLean() { return all().at("scroll-lean"); }
const Clip& exitUp() { return all().at("exit-up"); }
const Clip& growFromDepth() { return all().at("grow-from-depth"); }
const Clip& tiltAwayExit() { return all().at("tilt-away"); }
const Clip& presentPairLeft() { return all().at("present-pair"); }

}   // namespace tavix::TeaserChoreography
