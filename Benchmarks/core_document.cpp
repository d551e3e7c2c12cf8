// Reading and writing a composition of one megabyte, which must take much less than a frame (16 ms).
#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Support/Document.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

using namespace tavix;

// A scene as people write them: a few layers of every kind, with tracks and effects.
CompositionScene scene(int number) {
    CompositionScene made{.id = "scene " + std::to_string(number), .durationSec = 4.25};
    PropertyTrack track{AnimProperty::scale, {}};
    for (int i = 0; i < 6; ++i)
        track.keyframes.push_back(
            {.t = 0.35 * i, .value = 1 + 0.0625 * i, .ease = BezierCurve{0.2, 0, 0.1, 1}});
    CompositionLayer layer{.fromSec = 0.5, .durationSec = 2.75, .enter = KineticPhase{.durationSec = 0.4}};
    layer.tracks = {track, track};
    layer.effects = {GlowEffect{.intensity = 0.4}, NoiseEffect{}};
    const LayerContent contents[] = {TextContent{.text = "A line of text that moves"},
        DeviceContent{.screen = VideoClip{.path = "assets/recording.mov"}, .scene3D = DeviceScene3D{}},
        ImageContent{.path = "assets/picture.png"}, VideoContent{}, ShapeContent{},
        BackgroundFill(LinearGradient::standard())};
    for (const LayerContent& content : contents) {
        layer.content = content;
        made.layers.push_back(layer);
    }
    made.transition = SceneTransition{.durationSec = 0.5};
    return made;
}

const std::string& megabyte() {
    static const std::string document = [] {
        CompositionSpec spec;
        std::string written;
        while (written.size() < 1'000'000) {
            for (int i = 0; i < 5; ++i) spec.scenes.push_back(scene(i));
            written = encodedJson(spec);
        }
        return written;
    }();
    return document;
}

void setThroughput(benchmark::State& state) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(megabyte().size()));
}

void parse(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(parseJson(megabyte()));
    setThroughput(state);
}
BENCHMARK(parse)->Unit(benchmark::kMillisecond);

void decode(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(decodeJson<CompositionSpec>(megabyte()));
    setThroughput(state);
    if (encodedJson(decodeJson<CompositionSpec>(megabyte())) != megabyte())
        state.SkipWithError("reads another document");
}
BENCHMARK(decode)->Unit(benchmark::kMillisecond);

void encode(benchmark::State& state) {
    const auto spec = decodeJson<CompositionSpec>(megabyte());
    for (auto _ : state) benchmark::DoNotOptimize(encodedJson(spec));
    setThroughput(state);
}
BENCHMARK(encode)->Unit(benchmark::kMillisecond);

}   // namespace
