// A block of moving text in a frame of 1080 x 1920, composed as a render does it: milliseconds of one thread
// for a frame, and microseconds for an element. Everything that moves is drawn anew in each frame.
#include "TavixCore/Typography/KineticPresetCatalog.h"
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Imaging/FrameSurface.h"
#include "TavixPlatform/Text/FontBook.h"
#include "TavixRender/KineticText/KineticTextBlock.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

namespace tavix {
namespace {

constexpr imaging::Size frameSize{1080, 1920};
constexpr double windowSec = 8, framesPerSec = 60;

std::string letters(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += char('a' + i * 7 % 26);
        if (i % 6 == 5) text += ' ';
    }
    return text;
}

struct Scene {
    Scene(const std::string& text, const KineticStyle& style, std::optional<TextShadow> shadow = {}) {
        KineticTextLayout::Request request;
        request.text = text;
        request.style.fontSizeFraction = 0.05;
        request.style.textShadow = shadow;
        request.scope = style.scope;
        request.position = NormalizedPoint{0.5, 0.5};
        request.colorAnimated = style.inPhase.color.has_value();
        request.width = frameSize.width;
        request.height = frameSize.height;
        layout = KineticTextLayout::build(request, text::FontBook());
        block = KineticTextBlock(*layout, style, {windowSec, framesPerSec}, evaluator);
    }
    imaging::Image frame(double sec) const {
        return block.render(sec).value_or(imaging::Image()).over(background);
    }

    imaging::Evaluator evaluator{{.threadCount = 1}};
    imaging::Image background = imaging::Image::solid({0.1, 0.2, 0.4, 1});
    std::optional<KineticTextLayout::Result> layout;
    KineticTextBlock block;
    imaging::FrameSurface surface{evaluator, frameSize};
};

// Every element moves in every frame, over the whole of a long entrance.
KineticStyle movingStyle() {
    KineticStyle style;
    style.scope = AnimationScope::character;
    style.inPhase.durationSec = windowSec / 2;
    style.inPhase.opacity = 0.2;
    style.inPhase.offset = {0.01, 0.03};
    style.inPhase.scale = 0.7;
    style.inPhase.rotationDeg.z = 12;
    return style;
}

void play(benchmark::State& state, const KineticStyle& style, std::optional<TextShadow> shadow = {}) {
    Scene scene(letters(48), style, shadow);
    if (scene.layout->elements.size() != 48) state.SkipWithError("the text has not 48 elements");
    int frame = 0, tiles = 0;
    for (auto _ : state) {
        tiles += scene.surface.update(scene.frame(0.5 + frame / framesPerSec));
        frame = (frame + 1) % 180;
    }
    state.counters["perElement"] = benchmark::Counter(
        48.0 * double(state.iterations()), benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    state.counters["tiles"] = double(tiles) / double(state.iterations());
}

void moving(benchmark::State& state) { play(state, movingStyle()); }
BENCHMARK(moving)->Unit(benchmark::kMillisecond);

void movingWithShadows(benchmark::State& state) { play(state, movingStyle(), TextShadow{}); }
BENCHMARK(movingWithShadows)->Unit(benchmark::kMillisecond);

void blurring(benchmark::State& state) {
    KineticStyle style = movingStyle();
    style.inPhase.blurRadiusFraction = 0.012;
    play(state, style);
}
BENCHMARK(blurring)->Unit(benchmark::kMillisecond);

void tinted(benchmark::State& state) {
    KineticStyle style = movingStyle();
    style.inPhase.color = RGBAColor{1, 0.5, 0, 1};
    play(state, style);
}
BENCHMARK(tinted)->Unit(benchmark::kMillisecond);

void tilting(benchmark::State& state) {
    KineticStyle style = movingStyle();
    style.inPhase.rotationDeg = {50, 30, 0};
    play(state, style);
}
BENCHMARK(tilting)->Unit(benchmark::kMillisecond);

void smearing(benchmark::State& state) {
    KineticStyle style = movingStyle();
    style.inPhase.offset = {0.6, 0.1};
    style.inPhase.motionBlur = 1;
    play(state, style);
}
BENCHMARK(smearing)->Unit(benchmark::kMillisecond);

// The same text at rest: no tile is drawn, and what is left is the graph.
void resting(benchmark::State& state) {
    KineticStyle style = movingStyle();
    style.inPhase.durationSec = 0.2;
    play(state, style);
}
BENCHMARK(resting)->Unit(benchmark::kMillisecond);

// The graph alone, without a pixel.
void graph(benchmark::State& state) {
    Scene scene(letters(48), movingStyle());
    for (auto _ : state) benchmark::DoNotOptimize(scene.frame(1).hash());
}
BENCHMARK(graph)->Unit(benchmark::kMicrosecond);

// What is done once: bitmaps of 48 elements with their shadows.
void settingUp(benchmark::State& state) {
    for (auto _ : state) Scene scene(letters(48), movingStyle(), TextShadow{});
}
BENCHMARK(settingUp)->Unit(benchmark::kMillisecond);

}   // namespace
}   // namespace tavix
