// Judging a long composition, which happens after every edit and must take less than a frame (16 ms).
#include "TavixCore/Judge/CompositionLint.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

using namespace tavix;

constexpr int scenes = 200, layersPerScene = 20;

CompositionLayer layer(int number) {
    const double fromSec = 0.2 * number;
    CompositionLayer made{.fromSec = fromSec, .durationSec = 0.5, .enter = KineticPhase{.durationSec = 0.1}};
    PropertyTrack track{AnimProperty::scale, {}};
    for (int k = 0; k < 4; ++k) track.keyframes.push_back({.t = 0.1 * k, .value = 1 + 0.1 * k});
    made.tracks = {track, track};
    made.effects = {GlowEffect{.intensity = 0.4}, NoiseEffect{}};
    const LayerContent contents[] = {TextContent{.text = "Words that move"},
        ImageContent{.path = "assets/picture.png"}, ShapeContent{}, TextContent{.text = "Ship it"}};
    made.content = contents[number % 4];
    return made;
}

// 4,000 layers. With a fault in each there is as much to tell.
CompositionSpec longComposition(bool isFaulty) {
    CompositionSpec spec;
    for (int s = 0; s < scenes; ++s) {
        CompositionScene scene{.id = "scene " + std::to_string(s), .durationSec = 5};
        for (int l = 0; l < layersPerScene; ++l) {
            scene.layers.push_back(layer(l));
            if (isFaulty) scene.layers.back().effects.emplace_back(UnknownEffect{"vinete"});
        }
        scene.transition = SceneTransition{.durationSec = 0.5};
        spec.scenes.push_back(scene);
    }
    spec.scenes.back().transition.reset();
    return spec;
}

void lint(benchmark::State& state) {
    const bool isFaulty = state.range(0) != 0;
    const CompositionSpec spec = longComposition(isFaulty);
    for (auto _ : state) benchmark::DoNotOptimize(CompositionLint::lint(spec));
    const std::size_t expected = 1 + (isFaulty ? scenes * layersPerScene : 0);   // it is too long
    if (CompositionLint::lint(spec).size() != expected) state.SkipWithError("finds something else");
}
BENCHMARK(lint)->ArgName("faulty")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}   // namespace
