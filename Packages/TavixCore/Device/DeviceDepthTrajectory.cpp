#include "TavixCore/Device/DeviceDepthTrajectory.h"

#include "TavixCore/Animation/SplineMath.h"

#include <algorithm>
#include <vector>

namespace tavix::DeviceDepthTrajectory {

std::optional<double> sample(std::span<const DeviceScalarKeyframe> track, double atSec) {
    if (track.empty()) return std::nullopt;
    if (!(atSec > track.front().tSec)) return track.front().value;
    if (atSec >= track.back().tSec) return track.back().value;

    constexpr double shortestSec = 1e-6;
    std::vector<double> timesSec, values;
    for (const DeviceScalarKeyframe& keyframe : track) {
        timesSec.push_back(keyframe.tSec);
        values.push_back(keyframe.value);
    }
    const std::vector<double> tangents = SplineMath::tangents(timesSec, values);
    const auto after = std::find_if(timesSec.begin(), timesSec.end(), [&](double t) { return t > atSec; });
    const auto to = static_cast<std::size_t>(after - timesSec.begin()), from = to - 1;
    const double lengthSec = timesSec[to] - timesSec[from];
    return SplineMath::hermite({values[from], values[to], tangents[from], tangents[to], lengthSec},
        (atSec - timesSec[from]) / std::max(lengthSec, shortestSec));
}

}   // namespace tavix::DeviceDepthTrajectory
