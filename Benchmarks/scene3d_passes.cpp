// A phone of 60,000 triangles that covers a third of the frame: both passes, and the stages that they are
// made of. Time is that of all threads.
#include "TavixPlatform/Imaging/ScratchLoop.h"
#include "TavixPlatform/Scene3D/LightStage.h"
#include "TavixPlatform/Scene3D/Renderer.h"
#include "TavixPlatform/Scene3D/Tests/SampleScenes.h"
#include "TavixPlatform/Scene3D/TextureLevels.h"
#include "TavixPlatform/Scene3D/TileStage.h"

#include <algorithm>

#include <benchmark/benchmark.h>

namespace tavix::scene3d {
namespace {

struct Subject {
    samples::Device device = samples::device();
    imaging::BitmapRef screens[2] = {
        samples::screenPicture({1179, 2556}, 0), samples::screenPicture({1179, 2556}, 1)};

    Subject() {
        device.phone->transform.orientation =
            Rotation::about({0, 1, 0}, -30) * Rotation::about({1, 0, 0}, 10);
        device.scene.camera->transform.position.z = 2.75f;
    }
    // The second pass: the screen, and the bezel that cuts its edge.
    void showOnlyScreen(bool isOn) {
        for (std::size_t i = 0; i < device.body.size(); ++i) device.body[i]->isEnabled = !isOn || i == 1;
    }
};
Subject& subject() {
    static Subject s;
    return s;
}

Pass passOf(const benchmark::State& state, TextureDetail detail) {
    const int width = int(state.range(0));
    return {{width, width * 16 / 9}, Samples::four, detail};
}

void bodyPass(benchmark::State& state) {
    Renderer renderer;
    for (auto _ : state)
        benchmark::DoNotOptimize(
            renderer.renderLinear(subject().device.scene, passOf(state, TextureDetail::coarse)));
}

void screenPass(benchmark::State& state) {
    Renderer renderer;
    subject().showOnlyScreen(true);
    for (auto _ : state)
        benchmark::DoNotOptimize(
            renderer.renderEncoded(subject().device.scene, passOf(state, TextureDetail::fine)));
    subject().showOnlyScreen(false);
}

// Both, with a new picture on the screen each time.
void wholeFrame(benchmark::State& state) {
    Renderer renderer;
    Subject& s = subject();
    std::size_t number = 0;
    for (auto _ : state) {
        s.device.texture->replace(s.screens[number++ % 2]);
        benchmark::DoNotOptimize(renderer.renderLinear(s.device.scene, passOf(state, TextureDetail::coarse)));
        s.showOnlyScreen(true);
        benchmark::DoNotOptimize(renderer.renderEncoded(s.device.scene, passOf(state, TextureDetail::fine)));
        s.showOnlyScreen(false);
    }
}

// The stages of the body pass, on one thread.
struct Stages {
    explicit Stages(const benchmark::State& state) {
        const Pass pass = passOf(state, TextureDetail::coarse);
        view.eye = subject().device.scene.camera->transform.position;
        view.right = {1, 0, 0};
        view.up = {0, 1, 0};
        view.forward = {0, 0, -1};
        view.widthPx = pass.size.width;
        view.heightPx = pass.size.height;
        view.focalPx = float(pass.size.height) / 2 / 0.26794919f;   // 30 degrees of height
        list.gather(*subject().device.scene.root);
        makeLevels(subject().device.texture->levels(), kernels, loop);
        geometry.build(list, view, fourPerPixel(), kernels, loop);
        light = &lights.prepare(list, view, subject().device.scene.environment, kernels, loop);
        for (const Material* material : list.materials) {
            if (const auto* lit = std::get_if<PhysicallyBased>(material))
                surfaces.emplace_back(surfaceOf(*lit));
            else
                surfaces.emplace_back(TexturedSurface{&subject().device.texture->levels(), {1, 1, 1},
                    geometry.texcoordsOfGroups(), {1, 1, 1.41421356f}});
        }
    }
    imaging::ScratchLoop loop{1};
    SceneKernels kernels = bestSceneKernels();
    View view;
    DrawList list;
    ScreenGeometry geometry;
    LightStage lights;
    const Illumination* light = nullptr;
    std::vector<FrameSurface> surfaces;
};

void transformAndSort(benchmark::State& state) {
    Stages s(state);
    for (auto _ : state) {
        s.list.gather(*subject().device.scene.root);
        s.geometry.build(s.list, s.view, fourPerPixel(), s.kernels, s.loop);
    }
}

void lightsAndShadow(benchmark::State& state) {
    Stages s(state);
    for (auto _ : state)
        s.lights.prepare(s.list, s.view, subject().device.scene.environment, s.kernels, s.loop);
}

void visibility(benchmark::State& state) {
    const SamplePattern& pattern = fourPerPixel();
    Stages s(state);
    imaging::Scratch scratch;
    for (auto _ : state) {
        for (int tile = 0; tile < s.geometry.tilesAcross() * s.geometry.tilesUp(); ++tile) {
            const auto triangles = s.geometry.trianglesIn(tile);
            if (triangles.empty()) continue;
            const imaging::Scratch::Mark mark(scratch);
            const int x0 = tile % s.geometry.tilesAcross() * tilePx,
                      y0 = tile / s.geometry.tilesAcross() * tilePx;
            s.kernels.rasterise(
                clearedGrid(x0, y0, pattern, scratch), pattern, triangles.data(), triangles.size());
        }
    }
}

// Visibility once more, and shading.
void visibilityAndShade(benchmark::State& state) {
    Stages s(state);
    const TileStage stage{s.kernels, fourPerPixel(), s.geometry, *s.light, s.surfaces, s.geometry.region()};
    imaging::Scratch scratch;
    for (auto _ : state) {
        for (int tile = 0; tile < s.geometry.tilesAcross() * s.geometry.tilesUp(); ++tile) {
            if (stage.pixelsOf(tile).isEmpty()) continue;
            const imaging::Scratch::Mark mark(scratch);
            benchmark::DoNotOptimize(stage.draw(tile, scratch));
        }
    }
}

void resolve(benchmark::State& state) {
    Stages s(state);
    const imaging::PixelRegion region = s.geometry.region();
    std::vector<float> sums(std::size_t(4 * tilePx + 64), 0.5f);
    std::vector<std::uint8_t> covered(tilePx + 64, 4);
    std::vector<std::uint16_t> row(std::size_t(4 * region.width() + 256));
    for (auto _ : state)
        for (int y = region.y0; y < region.y1; ++y)
            for (int x = 0; x < region.width(); x += tilePx)
                s.kernels.resolveHalf(row.data() + 4 * x, sums.data(), covered.data(), 0.25f, tilePx);
}

void textureLevels(benchmark::State& state) {
    Stages s(state);
    Texture& texture = *subject().device.texture;
    for (auto _ : state) {
        texture.replace(subject().screens[0]);
        makeLevels(texture.levels(), s.kernels, s.loop);
    }
}

}   // namespace
}   // namespace tavix::scene3d

using namespace tavix::scene3d;
#define PASS(name)                                                                                           \
    BENCHMARK(name)->Arg(1080)->Arg(2160)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()
PASS(wholeFrame);
PASS(bodyPass);
PASS(screenPass);
PASS(transformAndSort);
PASS(lightsAndShadow);
PASS(visibility);
PASS(visibilityAndShade);
PASS(resolve);
PASS(textureLevels);
