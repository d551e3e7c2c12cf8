// A 1080 x 1920 frame through each operation of an image, without the cache: milliseconds of one thread.
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Imaging/FrameSurface.h"
#include "TavixPlatform/Imaging/Image.h"

#include <benchmark/benchmark.h>

#include <functional>
#include <numbers>

namespace tavix::imaging {
namespace {

constexpr Size frameSize{1080, 1920};

const Image& photo() {
    static const Image image = [] {
        auto bitmap = std::make_shared<Bitmap>(frameSize);
        for (int y = 0; y < frameSize.height; ++y)
            for (int x = 0; x < frameSize.width; ++x)
                reinterpret_cast<std::uint32_t*>(bitmap->view().row(y))[x] =
                    0xFF000000u | std::uint32_t(x * 7 + y * 13) % 0xFFFFFFu;
        bitmap->indexCoverage();
        return Image::bitmap(bitmap);
    }();
    return image;
}

void frame(benchmark::State& state, const std::function<Image(const Image&)>& operation) {
    Evaluator evaluator({.threadCount = 1, .cacheBytes = 0});
    const Image image = operation(photo());
    const PixelRegion all{0, 0, frameSize.width, frameSize.height};
    for (auto _ : state) benchmark::DoNotOptimize(evaluator.draw(image, all).view().pixels);
}

const Affine turned = Affine::rotation(std::numbers::pi / 20).about({540, 960});

BENCHMARK_CAPTURE(frame, copy, [](const Image& i) { return i; })->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(frame, overHalf, [](const Image& i) {
    return i.withOpacity(0.5).over(i);
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(frame, shifted, [](const Image& i) {
    return i.translated(3.4, 0.6);
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(frame, turned, [](const Image& i) {
    return i.transformed(turned);
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(frame, perspective, [](const Image& i) {
    return i.inPerspective({{120, 1700}, {960, 1700}, {0, 0}, {1080, 0}});
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(frame, placed, [](const Image& i) {
    return i.placedInto({0, 0, 700, 1200});
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(frame, blur2, [](const Image& i) {
    return i.gaussianBlurred(2);
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(frame, blur8, [](const Image& i) {
    return i.gaussianBlurred(8);
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(frame, blur60, [](const Image& i) {
    return i.gaussianBlurred(60);
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(frame, bloom20, [](const Image& i) {
    return i.bloomed(0.7, 20);
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(frame, colorControls, [](const Image& i) {
    return i.withColorControls(0.1, 1.2, 0.7);
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(frame, vignette, [](const Image& i) {
    return i.withVignette(0.8, 1.5, i.extent());
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(frame, pixellate, [](const Image& i) {
    return i.pixellated({540, 960}, 24);
})->Unit(benchmark::kMillisecond);

void planes(benchmark::State& state) {
    Evaluator evaluator({.threadCount = 1});
    FrameSurface surface(evaluator, frameSize);
    surface.update(photo());
    const std::ptrdiff_t w = frameSize.width, h = frameSize.height;
    std::vector<std::uint8_t> bytes(std::size_t(w * h * 3 / 2));
    const PlanarView view{PlanarFormat::yuv420p8, frameSize,
        {bytes.data(), bytes.data() + w * h, bytes.data() + w * h * 5 / 4, nullptr}, {w, w / 2, w / 2, 0}};
    for (auto _ : state) {
        std::uint64_t stamp = 0;
        surface.update(photo(), {view, stamp});
    }
}
BENCHMARK(planes)->Unit(benchmark::kMillisecond);

void unchangedFrame(benchmark::State& state) {
    Evaluator evaluator({.threadCount = 1});
    FrameSurface surface(evaluator, frameSize);
    for (auto _ : state) benchmark::DoNotOptimize(surface.update(photo().over(Image::solid(Color::black()))));
}
BENCHMARK(unchangedFrame)->Unit(benchmark::kMicrosecond);

}   // namespace
}   // namespace tavix::imaging
