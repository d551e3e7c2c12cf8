// The passes of a device in space, one by one, and a whole frame: milliseconds of all threads together. The
// phone covers a third of 1080 x 1920, for a preview (argument 0) and for an export (argument 1).
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Scene3D/Renderer.h"
#include "TavixRender/DeviceScene/DeviceModelLoader.h"
#include "TavixRender/DeviceScene/DeviceSceneRenderer.h"
#include "TavixRender/DeviceScene/DeviceStage.h"
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

constexpr imaging::Size frameSize{1080, 1920};
constexpr imaging::PixelRegion wholeFrame{0, 0, frameSize.width, frameSize.height};

DeviceQuality qualityOf(const benchmark::State& state) {
    return state.range(0) ? DeviceQuality::full : DeviceQuality::preview;
}

class Shoot {
public:
    explicit Shoot(benchmark::State& state) {
        const DevicePassPlan plan = devicePassPlan(frameSize, qualityOf(state));
        bodyPass = {frameSize, plan.body};
        screenPass = {{frameSize.width * plan.screenScale, frameSize.height * plan.screenScale}, plan.screen,
            plan.screenTexture};
        const scene3d::EntityRef model = DeviceModelLoader::freshModelInstance();
        if (!model) {
            state.SkipWithError("There is no phone model; build the target tavix_phone_file.");
            return;
        }
        stage = DeviceStage::build(model, DeviceFinish::silver);
        stage->setUp(DeviceScene::disabled, deviceHeightFraction);
        stage->stand({threeQuarterView, {}, {}});
        texture->replace(screenPicture(0));
        stage->showOnScreen(texture);
        engine.renderLinear(
            stage->bodyScene(), bodyPass);   // what is made once: surroundings, levels, memory
        engine.renderEncoded(stage->screenScene(), screenPass);
    }

    scene3d::Pass bodyPass, screenPass;
    std::optional<DeviceStage> stage;
    scene3d::TextureRef texture = std::make_shared<scene3d::Texture>();
    scene3d::Renderer engine;
};

void body(benchmark::State& state) {
    Shoot shoot(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(shoot.engine.renderLinear(shoot.stage->bodyScene(), shoot.bodyPass));
}

// The body seen from behind, where all of it is lit.
void bodyFromBehind(benchmark::State& state) {
    Shoot shoot(state);
    shoot.stage->stand({{8, 152, 0}, {}, {}});
    for (auto _ : state)
        benchmark::DoNotOptimize(shoot.engine.renderLinear(shoot.stage->bodyScene(), shoot.bodyPass));
}

void screen(benchmark::State& state) {
    Shoot shoot(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(shoot.engine.renderEncoded(shoot.stage->screenScene(), shoot.screenPass));
}

// As `screen`, with a new picture on it every time.
void screenOfAFilm(benchmark::State& state) {
    Shoot shoot(state);
    const imaging::BitmapRef pictures[] = {screenPicture(1), screenPicture(2)};
    std::size_t i = 0;
    for (auto _ : state) {
        shoot.texture->replace(pictures[i++ % 2]);
        benchmark::DoNotOptimize(shoot.engine.renderEncoded(shoot.stage->screenScene(), shoot.screenPass));
    }
}

void toneCurve(benchmark::State& state) {
    Shoot shoot(state);
    const auto pool = std::make_shared<imaging::BytePool>(64u << 20);
    const scene3d::LinearFrame frame = shoot.engine.renderLinear(shoot.stage->bodyScene(), shoot.bodyPass);
    for (auto _ : state) benchmark::DoNotOptimize(DeviceStudio::applyACES(frame, pool));
}

DeviceSceneRenderer::Settings settingsOf(const benchmark::State& state) {
    DeviceSceneRenderer::Settings settings;
    settings.initialScene.tiltDegrees = threeQuarterView;
    settings.initialScene.driftDegrees = 0;
    settings.output = frameSize;
    settings.quality = qualityOf(state);
    settings.deviceRect = {0, 0, double(frameSize.width), frameSize.height * deviceHeightFraction};
    settings.backdrop = Image::solid(imaging::Color::clear());
    return settings;
}

// One picture over the other, with the screen brought to its size.
void compose(benchmark::State& state) {
    imaging::Evaluator evaluator;
    DeviceSceneRenderer renderer(settingsOf(state));
    const Image device = renderer.render(Image::bitmap(screenPicture(0)), 0, {evaluator, {}});
    for (auto _ : state) benchmark::DoNotOptimize(evaluator.drawnForFrame(device, wholeFrame));
}

// All of it, of a phone that sways, with a new picture on the screen every time.
void frame(benchmark::State& state) {
    imaging::Evaluator evaluator;
    DeviceSceneRenderer::Settings settings = settingsOf(state);
    settings.initialScene.driftDegrees = 6;
    DeviceSceneRenderer renderer(settings);
    const Image pictures[] = {Image::bitmap(screenPicture(1)), Image::bitmap(screenPicture(2))};
    std::size_t i = 0;
    const auto drawn = [&] {
        const double sec = double(i++) / settings.fps;
        return evaluator.drawnForFrame(renderer.render(pictures[i % 2], sec, {evaluator, {}}), wholeFrame);
    };
    drawn();
    for (auto _ : state) benchmark::DoNotOptimize(drawn());
}

void measureBoth(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
}
BENCHMARK(body)->Apply(measureBoth);
BENCHMARK(bodyFromBehind)->Apply(measureBoth);
BENCHMARK(screen)->Apply(measureBoth);
BENCHMARK(screenOfAFilm)->Apply(measureBoth);
BENCHMARK(toneCurve)->Apply(measureBoth);
BENCHMARK(compose)->Apply(measureBoth);
BENCHMARK(frame)->Apply(measureBoth);

}   // namespace
}   // namespace tavix
