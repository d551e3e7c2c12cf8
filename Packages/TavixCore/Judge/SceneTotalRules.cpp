#include "TavixCore/Judge/FormationMembers.h"
#include "TavixCore/Judge/LintRules.h"

#include <algorithm>
#include <map>
#include <utility>

namespace tavix::CompositionLint {
namespace {

// What the layers of a scene add up to.
struct SceneTally {
    std::size_t bouncySprings = 0;
    std::size_t models = 0;   // devices in space
    std::vector<LayerWindow> texts;
    std::vector<LayerWindow>
        focalPoints;   // what draws the eye to itself: devices and films that fill the frame
};

std::size_t bouncySprings(const CompositionLayer& layer) {
    std::size_t count = 0;
    for (const PropertyTrack& track : layer.tracks)
        for (const CompositionKeyframe& keyframe : track.keyframes)
            count += bouncySpring(keyframe.ease) ? 1 : 0;
    for (const std::optional<KineticPhase>* phase : {&layer.enter, &layer.exit})
        count += *phase && bouncySpring((*phase)->curve) ? 1 : 0;
    return count;
}

LayerWindow spanOf(const LayerWindow& a, const LayerWindow& b) {
    return {std::min(a.startSec, b.startSec), std::max(a.endSec, b.endSec)};
}

// The devices of a formation are one thing to look at: it counts once, for as long as any of them shows.
SceneTally tallyOf(const CompositionScene& scene) {
    SceneTally tally;
    const std::vector<std::size_t> formations = formationOfEachLayer(scene);
    std::map<std::size_t, std::size_t> focalPointOf;   // of a formation
    for (std::size_t l = 0; l < scene.layers.size(); ++l) {
        const CompositionLayer& layer = scene.layers[l];
        const LayerWindow window = writtenWindow(layer, scene);
        tally.bouncySprings += bouncySprings(layer);
        if (std::holds_alternative<TextContent>(layer.content)) tally.texts.push_back(window);
        const auto* device = std::get_if<DeviceContent>(&layer.content);
        const auto* video = std::get_if<VideoContent>(&layer.content);
        if (!device && (!video || video->rect)) continue;
        const auto [known, isNew] = focalPointOf.try_emplace(formations[l], tally.focalPoints.size());
        if (formations[l] != noFormation && !isNew) {
            LayerWindow& all = tally.focalPoints[known->second];
            all = spanOf(all, window);
            continue;
        }
        if (device && device->scene3D) ++tally.models;
        tally.focalPoints.push_back(window);
    }
    return tally;
}

// The most intervals that hold at one time; those that merely touch do not overlap.
int maxConcurrent(const std::vector<LayerWindow>& intervals) {
    std::vector<std::pair<double, int>> changes;   // sorted, an end comes before a start at the same time
    for (const LayerWindow& interval : intervals)
        if (interval.startSec < interval.endSec) {
            changes.emplace_back(interval.startSec, 1);
            changes.emplace_back(interval.endSec, -1);
        }
    std::ranges::sort(changes);
    int running = 0, most = 0;
    for (const auto& change : changes) most = std::max(most, running += change.second);
    return most;
}

}   // namespace

void checkSceneTotals(const SceneScope& scope, LintReport& report) {
    const SceneTally tally = tallyOf(scope.scene());
    const KeyPath layersAt(scope.at, "layers");
    const auto models = static_cast<double>(tally.models);
    const auto springs = static_cast<double>(tally.bouncySprings);
    if (tally.models >= 2)
        report.tell(Rule::spaceCost, layersAt,
            worded(
                "{} has {} 3D device layers — each one is a full 3D render per frame; expect roughly {}× frame cost.",
                {scope.name(), models, models}));
    if (maxConcurrent(tally.texts) > 2)
        report.tell(Rule::textsAtOnce, layersAt,
            worded("{} shows >2 text layers at once — give each message its own moment.", {scope.name()}));
    if (maxConcurrent(tally.focalPoints) >= 2)
        report.tell(Rule::twoFocalPoints, layersAt,
            worded("{} has two focal layers (device/full-bleed video) at once — one focal point per frame.",
                {scope.name()}));
    if (tally.bouncySprings >= 2)
        report.tell(Rule::bouncySprings, scope.at,
            worded(
                "{} has {} bouncy springs (damping < 0.7) — one accent per scene, damping ≥ 0.8 elsewhere.",
                {scope.name(), springs}));
}

}   // namespace tavix::CompositionLint
