// What judging a film by its geometry costs: making the boxes ready, and the rules on them.
#include "TavixRender/Judge/FilmJudge.h"

#include <benchmark/benchmark.h>

#include <string>

namespace tavix {
namespace {

// Scenes of a title, a panel under it and a picture that moves across.
CompositionSpec filmOf(int scenes) {
    CompositionSpec spec;
    spec.output = {1920, 1080, 30};
    for (int i = 0; i < scenes; ++i) {
        CompositionScene scene{.durationSec = 3};
        CompositionLayer panel, title, card;
        panel.content =
            ShapeContent{.fill = RGBAColor{0.1, 0.1, 0.2, 1}, .widthFraction = 0.8, .heightFraction = 0.4};
        title.content = TextContent{.text = "A title of scene " + std::to_string(i), .sizeFraction = 0.08};
        card.content = ShapeContent{.widthFraction = 0.1, .heightFraction = 0.1, .cornerRadiusFraction = 0.2};
        card.tracks = {
            {AnimProperty::x, {{0, -0.5, LinearCurve{}, {}, {}}, {3, 0.5, LinearCurve{}, {}, {}}}}};
        scene.layers = {panel, title, card};
        spec.scenes.push_back(std::move(scene));
    }
    return spec;
}

void judge(benchmark::State& state) {
    const CompositionSpec spec = filmOf(int(state.range(0)));
    for (auto _ : state) {
        FilmAssets assets(std::nullopt);
        const CompositionGeometry geometry(spec, assets);
        benchmark::DoNotOptimize(FilmJudge::seen(geometry));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(judge)->Name("FilmJudge/scenes")->Arg(1)->Arg(8)->Arg(64)->Unit(benchmark::kMillisecond);

void frame(benchmark::State& state) {
    const CompositionSpec spec = filmOf(1);
    FilmAssets assets(std::nullopt);
    const CompositionGeometry geometry(spec, assets);
    for (auto _ : state) benchmark::DoNotOptimize(geometry.frame(0, 1.5));
}
BENCHMARK(frame)->Name("CompositionGeometry/frame")->Unit(benchmark::kMicrosecond);

}   // namespace
}   // namespace tavix
