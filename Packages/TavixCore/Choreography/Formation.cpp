#include "TavixCore/Choreography/Formation.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace tavix {
namespace {

constexpr BezierCurve fadeEase{0.16, 1, 0.3, 1};
constexpr double shortestReferenceSec = 0.001;

double timeFactor(double durationSec, double referenceSec) {
    return durationSec / std::max(referenceSec, shortestReferenceSec);
}

}   // namespace

const ScreenSource& Formation::screenOf(int k) const {
    return device.screens.empty() ? device.screen
                                  : device.screens[static_cast<std::size_t>(k) % device.screens.size()];
}

double Formation::staggerSecWithin(double mostSec) const { return std::min(staggerSec, mostSec); }

namespace FormationParts {

std::string suffixed(const std::optional<std::string>& id, const std::string& suffix) {
    return id && !id->empty() ? *id + "-" + suffix : suffix;
}

DeviceMotion makeMotion(MotionScript script, double durationSec, double referenceSec) {
    script.poseSpring = {0.42, 0.84};
    script.placeSpring = {0.48, 0.86};
    DeviceMotion motion = script.play(timeFactor(durationSec, referenceSec));
    motion.sceneDurationSec = durationSec;
    return motion;
}

DeviceMotion makeFlatMotion(
    std::vector<MotionScript::Place> places, const TrajectorySpring& spring, const Formation& formation) {
    const MotionScript script{.placeSpring = spring, .places = std::move(places)};
    DeviceMotion motion = script.play(timeFactor(formation.durationSec, formation.referenceSec));
    motion.uses3D = false;
    motion.sceneDurationSec = formation.durationSec;
    return motion;
}

PropertyTrack track(
    AnimProperty property, const std::vector<TrackPoint>& points, double durationSec, double referenceSec) {
    PropertyTrack made{property, {}};
    for (const TrackPoint& point : points)
        made.keyframes.push_back(
            {stretchedSec(point.tSec, timeFactor(durationSec, referenceSec)), point.value, fadeEase, {}, {}});
    return made;
}

CompositionLayer deviceLayer(
    const Formation& formation, int k, const std::string& idSuffix, const DeviceMotion& motion) {
    CompositionLayer layer = formation.source;
    layer.id = suffixed(layer.id, idSuffix);
    layer.durationSec = motion.sceneDurationSec;
    layer.fromMark.reset();
    layer.toMark.reset();
    layer.enter.reset();
    layer.exit.reset();
    layer.tracks = motion.tracks;
    DeviceContent device = formation.device;
    device.screen = formation.screenOf(k);
    device.screens.clear();
    device.scene3D = motion.sceneInsteadOf(device.scene3D);
    device.placement = motion.placement;
    device.motionPreset.reset();
    device.choreographyPreset.reset();
    layer.content = std::move(device);
    return layer;
}

}   // namespace FormationParts

}   // namespace tavix
