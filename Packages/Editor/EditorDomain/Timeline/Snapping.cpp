#include "Editor/EditorDomain/Timeline/Snapping.h"

#include "TavixCore/Time/CompositionBeats.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixLive/Operations/LayerOperations.h"

#include <cmath>
#include <vector>

namespace tavix::timeline {

namespace {

double startOf(const CompositionSpec& spec, std::size_t scene) {
    return CompositionTimeline(spec).globalTime(scene, 0).value_or(0);
}

// The beat nearest to a time of a clock that starts at `originSec`.
void addBeat(std::vector<double>& candidates, const CompositionSpec& spec, double originSec, double toSec) {
    if (const auto grid = CompositionBeats::grid(spec))
        candidates.push_back(grid->nearestBeat(originSec + toSec) - originSec);
}

}   // namespace

double nearest(double sec, std::span<const double> candidates, double pps) {
    double best = sec, bestAway = snapPoints / pps;
    for (const double candidate : candidates)
        if (const double away = std::abs(candidate - sec); away < bestAway) {
            best = candidate;
            bestAway = away;
        }
    return best;
}

double snapped(
    const EditState& state, const LayerPlace& place, double playheadSec, double pps, double toSec) {
    if (place.scene >= state.spec.scenes.size()) return toSec;
    const CompositionScene& scene = state.spec.scenes[place.scene];
    const double start = startOf(state.spec, place.scene);
    std::vector<double> candidates{0, playheadSec - start};
    for (std::size_t i = 0; i < scene.layers.size(); ++i) {
        if (i == place.layer) continue;
        const CompositionLayer& other = scene.layers[i];
        candidates.push_back(other.fromSec);
        candidates.push_back(other.durationSec ? other.fromSec + *other.durationSec : scene.durationSec);
    }
    addBeat(candidates, state.spec, start, toSec);
    return nearest(toSec, candidates, pps);
}

double snappedEdge(const EditState& state, std::size_t scene, double pps, double toSec) {
    if (scene >= state.spec.scenes.size()) return toSec;
    std::vector<double> candidates{0, state.spec.scenes[scene].durationSec};
    addBeat(candidates, state.spec, startOf(state.spec, scene), toSec);
    return nearest(toSec, candidates, pps);
}

double snappedKeyframe(
    const EditState& state, const LayerPlace& place, double playheadSec, double pps, double toSec) {
    const double window = LayerOperations::layerWindowLength(state.spec, place.scene, place.layer);
    if (window <= 0) return toSec;
    const double start =
        startOf(state.spec, place.scene) + state.spec.scenes[place.scene].layers[place.layer].fromSec;
    std::vector<double> candidates{0, window, playheadSec - start};
    addBeat(candidates, state.spec, start, toSec);
    return nearest(toSec, candidates, pps);
}

double snappedToBeat(const EditState& state, double pps, double toSec) {
    std::vector<double> candidates;
    addBeat(candidates, state.spec, 0, toSec);
    return nearest(toSec, candidates, pps);
}

}   // namespace tavix::timeline
