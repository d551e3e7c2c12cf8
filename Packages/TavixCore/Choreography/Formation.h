// What the devices of a formation have in common: what each is told, and how its layer is made.
#pragma once

#include "TavixCore/Choreography/MotionScript.h"
#include "TavixCore/Document/CompositionLayer.h"
#include "TavixCore/Document/CompositionOutput.h"

#include <optional>
#include <string>
#include <vector>

namespace tavix {

// Keyframes are told in reference seconds, those of the formation's natural length.
struct Formation {
    const CompositionLayer& source;   // a device layer
    const DeviceContent& device;      // its content
    CompositionOutput output;
    double durationSec = 0, referenceSec = 0;
    int count = 0;   // of devices
    double intensity = 1;
    double sideways = 1;   // +1 forward, -1 reversed
    double spread = 1;
    double staggerSec = 0;

    // What device `k` shows.
    const ScreenSource& screenOf(int k) const;
    // Where device `k` stands in line, from -1 to +1.
    double linePosition(int k) const { return count > 1 ? 2.0 * k / (count - 1) - 1 : 0; }
    // Seconds between one device and the next, so few that the last one still comes in time.
    double staggerSecWithin(double mostSec) const;
};

namespace FormationParts {

struct TrackPoint {
    double tSec, value;
};

// Of the id, or the suffix alone.
std::string suffixed(const std::optional<std::string>& id, const std::string& suffix);

// The script of one device at another length; it has the springs of formations.
DeviceMotion makeMotion(MotionScript script, double durationSec, double referenceSec);
// Of a device that stays flat: places alone.
DeviceMotion makeFlatMotion(
    std::vector<MotionScript::Place> places, const TrajectorySpring& spring, const Formation& formation);

PropertyTrack track(
    AnimProperty property, const std::vector<TrackPoint>& points, double durationSec, double referenceSec);

// The source as device `k`, with this motion in place of all that moved it before.
CompositionLayer deviceLayer(
    const Formation& formation, int k, const std::string& idSuffix, const DeviceMotion& motion);

}   // namespace FormationParts

}   // namespace tavix
