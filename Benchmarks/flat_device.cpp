// What a flat device costs a frame, from the graph to the encoder's planes: at rest and on the move, with a
// still and with a clip, beside the same clip as a video layer of the screen's size. CPU time of all threads.
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Imaging/FrameSurface.h"
#include "TavixPlatform/Media/MovieWriter.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <filesystem>
#include <string>

#include <unistd.h>

namespace tavix {
namespace {

namespace fs = std::filesystem;

constexpr int frameCount = 90, framesPerSec = 30;
constexpr imaging::Size canvas{1080, 1920}, clipSize{804, 1748};

// The recording and the still that all measurements show, made when first needed.
class Footage {
public:
    static const Footage& get() {
        static const Footage footage;
        return footage;
    }
    fs::path clip() const { return folder_ / "clip.mp4"; }
    fs::path still() const { return folder_ / "still.png"; }

private:
    Footage() : folder_(fs::temp_directory_path() / ("tavix-flat-device-" + std::to_string(getpid()))) {
        fs::create_directories(folder_);
        imaging::Evaluator evaluator;
        imaging::FrameSurface surface(evaluator, clipSize);
        media::MovieWriter writer({.path = clip(), .sizePx = clipSize, .bitsPerSec = 4'000'000});
        for (int i = 0; i < frameCount; ++i) {
            auto& slot = writer.acquire();
            surface.update(pictureAt(i), {slot.planes, slot.stamp});
            writer.submit(slot, i * media::MovieSettings{}.frameDuration);
        }
        writer.finish();
        media::writePng(still(), surface.pixels());
    }
    ~Footage() {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }
    // A list that scrolls: cards of many colours.
    static imaging::Image pictureAt(int frame) {
        std::vector<imaging::Image> cards{imaging::Image::solid({0.95, 0.95, 0.97, 1})};
        for (int i = 0; i < 24; ++i)
            cards.push_back(imaging::Image::roundedRectangle({40, i * 150.0 - frame * 12.0, 724, 120}, 30,
                {0.5 + 0.5 * std::sin(i), 0.5 + 0.5 * std::sin(i + 2), 0.6, 1}));
        return imaging::Image::stacked(cards);
    }

    fs::path folder_;
};

CompositionSpec specOf(LayerContent content) {
    CompositionSpec spec;
    spec.output.widthPx = canvas.width;
    spec.output.heightPx = canvas.height;
    spec.output.fps = framesPerSec;
    spec.background = BackgroundImage::bundled("aurora");
    CompositionLayer layer;
    layer.content = std::move(content);
    CompositionScene scene;
    scene.durationSec = double(frameCount) / framesPerSec;
    scene.layers = {layer};
    spec.scenes = {scene};
    return spec;
}

DeviceContent device(ScreenSource screen, bool moves) {
    DeviceContent content;
    content.screen = std::move(screen);
    // Steps that follow each other closely keep the spring busy all the time.
    if (moves) {
        content.placement.emplace();
        for (int i = 0; i < 6; ++i)
            content.placement->track.push_back(
                {i * 0.6, {i % 2 ? 0.05 : -0.05, 0.02 * i}, 0.8 + 0.03 * i, {}, {}});
    }
    return content;
}

void drawFrames(benchmark::State& state, const CompositionSpec& spec) {
    imaging::Evaluator evaluator;
    ResolvedComposition resolved(spec, std::nullopt, evaluator, {});
    imaging::FrameSurface surface(evaluator, canvas);
    int frame = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(surface.update(resolved.frame(double(frame) / framesPerSec)));
        frame = (frame + 1) % frameCount;
    }
}

const VideoClip& clip() {
    static const VideoClip value{Footage::get().clip().string(), 0, std::nullopt, std::nullopt};
    return value;
}
StillScreen still() { return {Footage::get().still().string()}; }

void clipAlone(benchmark::State& state) {
    VideoContent video;
    video.clip = clip();
    video.rect = NormalizedRect{0.11, 0.07, 0.695, 0.85};   // about the screen of the device
    drawFrames(state, specOf(video));
}
void clipAtRest(benchmark::State& state) { drawFrames(state, specOf(device(clip(), false))); }
void clipOnTheMove(benchmark::State& state) { drawFrames(state, specOf(device(clip(), true))); }
void stillAtRest(benchmark::State& state) { drawFrames(state, specOf(device(still(), false))); }
void stillOnTheMove(benchmark::State& state) { drawFrames(state, specOf(device(still(), true))); }

BENCHMARK(clipAlone)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);
BENCHMARK(clipAtRest)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);
BENCHMARK(clipOnTheMove)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);
BENCHMARK(stillAtRest)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);
BENCHMARK(stillOnTheMove)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond);

}   // namespace
}   // namespace tavix
