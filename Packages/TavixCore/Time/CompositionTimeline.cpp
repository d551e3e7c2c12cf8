#include "TavixCore/Time/CompositionTimeline.h"

#include <algorithm>
#include <cmath>

namespace tavix {

namespace {

// Starts are sums of durations and times of frames are quotients: where both mean the same moment they may
// differ by their rounding, and a cut must not come a frame late for that.
constexpr double roundingSec = 1e-9;

}   // namespace

CompositionTimeline::CompositionTimeline(const CompositionSpec& spec) {
    for (const CompositionScene& scene : spec.scenes) {
        const bool isLast = &scene == &spec.scenes.back();
        const double overlapSec =
            isLast || !scene.transition ? 0 : std::max(scene.transition->durationSec, 0.0);
        startSec.push_back(totalSec);
        transitionDurations.push_back(overlapSec);
        totalSec += std::max(scene.durationSec, 0.0) - overlapSec;
    }
}

std::optional<CompositionTimeline::Sample> CompositionTimeline::sample(double atSec) const {
    if (startSec.empty()) return std::nullopt;
    const double t = std::fmin(std::fmax(atSec, 0), totalSec);
    // A transition longer than its scene makes starts fall, so the list need not be sorted.
    std::size_t i = startSec.size() - 1;
    while (i > 0 && !(startSec[i] <= t + roundingSec)) --i;
    const ActiveScene active{i, std::fmax(t - startSec[i], 0)};
    const double overlapSec = i == 0 ? 0 : transitionDurations[i - 1];
    if (overlapSec > 0 && t < startSec[i] + overlapSec)
        return Sample{{i - 1, t - startSec[i - 1]}, active, active.localSeconds / overlapSec};
    return Sample{active, std::nullopt, 0};
}

std::optional<double> CompositionTimeline::globalTime(std::size_t sceneIndex, double localSeconds) const {
    if (sceneIndex >= startSec.size()) return std::nullopt;
    return startSec[sceneIndex] + localSeconds;
}

double tellingSec(const CompositionSpec& spec) {
    const CompositionTimeline timeline(spec);
    double longestSec = 0, middleSec = timeline.totalSec / 2;
    for (std::size_t i = 0; i < spec.scenes.size(); ++i) {
        const double fromSec = timeline.startSec[i] + (i > 0 ? timeline.transitionDurations[i - 1] : 0);
        const double toSec =
            timeline.startSec[i] + spec.scenes[i].durationSec - timeline.transitionDurations[i];
        if (toSec - fromSec <= longestSec) continue;
        longestSec = toSec - fromSec;
        middleSec = (fromSec + toSec) / 2;
    }
    return middleSec;
}

}   // namespace tavix
