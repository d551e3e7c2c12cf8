#include "TavixLive/Measure/LayerCosts.h"

#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixLive/Stage/Stage.h"

#include <algorithm>
#include <chrono>
#include <functional>

namespace tavix {

namespace {

using Clock = std::chrono::steady_clock;

double msSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

struct Cost {
    double buildMs, frameMs;
};

// The first frame brings along what is made once.
Cost costOf(const CompositionSpec& spec, const std::optional<std::filesystem::path>& assetRoot,
    imaging::Size room, double atSec, const RenderLog& log) {
    Stage stage({.storeBytes = 0}, log);
    const auto start = Clock::now();
    const FrameSourceRef source = stage.source(spec, assetRoot, room);
    source->draw(0, FrameQuality::full);
    const double buildMs = msSince(start);
    const auto drawn = source->draw(atSec, FrameQuality::full);
    return {buildMs, (drawn.buildSec + drawn.paintSec) * 1000};
}

}   // namespace

std::vector<RehearsalReport::LayerCost> layerCosts(const CompositionSpec& spec,
    const std::optional<std::filesystem::path>& assetRoot, imaging::Size room, const RenderLog& log) {
    std::vector<RehearsalReport::LayerCost> costs;
    for (std::size_t i = 0; i < spec.scenes.size(); ++i) {
        const CompositionScene& scene = spec.scenes[i];
        CompositionSpec alone = spec;
        alone.scenes = {scene};
        alone.scenes[0].transition.reset();
        for (std::size_t j = 0; j < scene.layers.size(); ++j) {
            const CompositionLayer& layer = scene.layers[j];
            const double lengthSec = layer.durationSec.value_or(scene.durationSec - layer.fromSec);
            const double atSec = std::max(layer.fromSec + lengthSec / 2, 0.0);
            alone.scenes[0].layers.clear();
            const Cost without = costOf(alone, assetRoot, room, atSec, log);
            alone.scenes[0].layers = {layer};
            const Cost with = costOf(alone, assetRoot, room, atSec, log);
            costs.push_back({i, j, layer.id.value_or(std::string(kindName(layer.content))),
                std::max(with.buildMs - without.buildMs, 0.0),
                std::max(with.frameMs - without.frameMs, 0.0)});
        }
    }
    std::ranges::stable_sort(costs, std::greater(),
        [](const RehearsalReport::LayerCost& cost) { return cost.buildMs + cost.frameMs; });
    return costs;
}

}   // namespace tavix
