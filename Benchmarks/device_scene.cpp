// The passes of a device in space, one by one: milliseconds of all threads together. The phone covers a third
// of the frame, at 1080 x 1920 (argument 1, a preview) and at 2160 x 3840 (argument 2, an export).
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Scene3D/Renderer.h"
#include "TavixRender/DeviceScene/DeviceModelLoader.h"
#include "TavixRender/DeviceScene/DeviceStage.h"
#include "TavixRender/DeviceScene/RealityDeviceSceneRenderer.h"
#include "TavixRender/DeviceScene/ToneCurve.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace tavix {
namespace {

using imaging::Image;

// Of a frame of 9:16 whose third is under a phone.
constexpr double deviceHeightFraction = 0.64;
constexpr Vector3 threeQuarterView{8, -28, 0};

imaging::BitmapRef screenPicture(int seed) {
    auto bitmap = std::make_shared<imaging::Bitmap>(imaging::Size{1206, 2622});
    for (int y = 0; y < 2622; ++y)
        for (int x = 0; x < 1206; ++x)
            reinterpret_cast<std::uint32_t*>(bitmap->view().row(y))[x] =
                0xFF000000u | std::uint32_t((x + seed) * 7 + y * 13) % 0xFFFFFFu;
    bitmap->indexCoverage();
    return bitmap;
}

class Shoot {
public:
    explicit Shoot(benchmark::State& state)
        : pass{{1080 * int(state.range(0)), 1920 * int(state.range(0))}, scene3d::Samples::four} {
        const scene3d::EntityRef model = DeviceModelLoader::freshModelInstance();
        if (!model) {
            state.SkipWithError("There is no phone model; build the target tavix_phone_file.");
            return;
        }
        stage = DeviceStage::build(model, DeviceFinish::silver);
        stage->setUp(DeviceScene::disabled, deviceHeightFraction);
        stage->stand({threeQuarterView, {}, {}});
        stage->screen().replace(screenPicture(0));
        engine.renderLinear(stage->bodyScene(), pass);   // what is made once: surroundings, levels, memory
        engine.renderEncoded(stage->screenScene(), pass);
    }

    scene3d::Pass pass;
    std::optional<DeviceStage> stage;
    scene3d::Renderer engine;
};

void body(benchmark::State& state) {
    Shoot shoot(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(shoot.engine.renderLinear(shoot.stage->bodyScene(), shoot.pass));
}

void screen(benchmark::State& state) {
    Shoot shoot(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(shoot.engine.renderEncoded(shoot.stage->screenScene(), shoot.pass));
}

// As `screen`, with a new picture on it every time.
void screenOfAFilm(benchmark::State& state) {
    Shoot shoot(state);
    const imaging::BitmapRef pictures[] = {screenPicture(1), screenPicture(2)};
    std::size_t i = 0;
    for (auto _ : state) {
        shoot.stage->screen().replace(pictures[i++ % 2]);
        benchmark::DoNotOptimize(shoot.engine.renderEncoded(shoot.stage->screenScene(), shoot.pass));
    }
}

void toneCurve(benchmark::State& state) {
    Shoot shoot(state);
    const auto pool = std::make_shared<imaging::BytePool>(64u << 20);
    const scene3d::LinearFrame frame = shoot.engine.renderLinear(shoot.stage->bodyScene(), shoot.pass);
    for (auto _ : state) benchmark::DoNotOptimize(DeviceStudio::applyACES(frame, pool));
}

// A picture of the whole device at the size of the pass.
Image photograph(imaging::Size size, imaging::Evaluator& evaluator, bool isFlat) {
    RealityDeviceSceneRenderer::Settings settings;
    settings.initialScene.tiltDegrees = threeQuarterView;
    settings.initialScene.driftDegrees = 0;
    settings.output = size;
    settings.deviceRect = {0, 0, double(size.width), size.height * deviceHeightFraction};
    settings.backdrop = Image::solid(imaging::Color::clear());
    RealityDeviceSceneRenderer renderer(std::move(settings));
    const Image device = renderer.render(Image::bitmap(screenPicture(0)), 0, {evaluator, {}});
    return isFlat ? evaluator.drawnForFrame(device, {0, 0, size.width, size.height}) : device;
}

void compose(benchmark::State& state) {
    const Shoot shoot(state);
    imaging::Evaluator evaluator;
    const imaging::PixelRegion all{0, 0, shoot.pass.size.width, shoot.pass.size.height};
    const Image device = photograph(shoot.pass.size, evaluator, false);
    for (auto _ : state) benchmark::DoNotOptimize(evaluator.drawnForFrame(device, all));
}

// To half the size.
void downsample(benchmark::State& state) {
    const Shoot shoot(state);
    imaging::Evaluator evaluator;
    const imaging::PixelRegion half{0, 0, shoot.pass.size.width / 2, shoot.pass.size.height / 2};
    const Image device = photograph(shoot.pass.size, evaluator, true);
    for (auto _ : state)
        benchmark::DoNotOptimize(evaluator.drawnForFrame(device.placedInto(half.rect()), half));
}

void measureBoth(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
}
BENCHMARK(body)->Apply(measureBoth);
BENCHMARK(screen)->Apply(measureBoth);
BENCHMARK(screenOfAFilm)->Apply(measureBoth);
BENCHMARK(toneCurve)->Apply(measureBoth);
BENCHMARK(compose)->Apply(measureBoth);
BENCHMARK(downsample)->Apply(measureBoth);

}   // namespace
}   // namespace tavix
