#include "ClipSpeed.h"

#include "Cost.h"
#include "SpeedDocuments.h"

#include "TavixReelRender/Export/ReelExport.h"
#include "TavixRender/Export/CompositionExport.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <unistd.h>

namespace tavix::benchmarks {
namespace {

constexpr int widthPx = 1920, heightPx = 1080, fps = 30;
constexpr double lengthSec = 4;

// A folder that goes with what is in it.
struct WorkFolder {
    WorkFolder()
        : path(std::filesystem::temp_directory_path() / ("tavix-clip-speed-" + std::to_string(getpid()))) {
        std::filesystem::create_directory(path);
    }
    ~WorkFolder() { std::filesystem::remove_all(path); }
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;
    std::filesystem::path path;
};

// Frames in which everything moves, and much of it is sharp.
void makeClip(const std::filesystem::path& clip) {
    CompositionExport::write(
        {.spec = speedDocuments(widthPx, heightPx, fps, lengthSec)[1].spec, .output = clip}, {});
}

CompositionSpec documentOf(const std::filesystem::path& clip) {
    CompositionLayer layer;
    layer.position = {widthPx / 2.0, heightPx / 2.0};
    VideoContent content;
    content.clip.path = clip.string();
    layer.content = content;
    CompositionScene scene;
    scene.durationSec = lengthSec;
    scene.layers = {layer};
    CompositionSpec spec;
    spec.output = {widthPx, heightPx, fps};
    spec.scenes = {scene};
    return spec;
}

// With a camera that goes there and back, a caption, and the usual device and shadow.
ReelExport::Config reelOf(const std::filesystem::path& clip) {
    EffectsSpec spec;
    spec.output = {widthPx, heightPx, fps, OutputConfig::Aspect::landscape};
    spec.cameraTrack = {{0, 1, {960, 540}}, {1, 1.3, {700, 400}}, {2.5, 1, {960, 540}}};
    Narration narration;
    Caption caption;
    caption.text = "What passes below";
    caption.window = {1, 3};
    narration.captions = {caption};
    spec.narration = narration;
    return {.spec = spec,
        .footage = {clip, {widthPx, heightPx}, lengthSec, 0, lengthSec},
        .assetRoot = clip.parent_path(),
        .fps = FrameRate(fps)};
}

// What an export gives its encoder; see MovieEncoder.
std::string transcoding(const std::filesystem::path& clip, const std::filesystem::path& to) {
    const auto bitsPerSec = static_cast<long long>(0.5 * widthPx * heightPx * fps);
    return "ffmpeg -nostdin -loglevel error -y -i '" + clip.string() +
           "' -an -c:v libx264 -preset veryfast -profile:v high -b:v " + std::to_string(bitsPerSec) + " -g " +
           std::to_string(2 * fps) +
           " -x264-params cpu-independent=1:lookahead-threads=1:sync-lookahead=0:rc-lookahead=4:qpmin=10 -threads 3 '" +
           to.string() + "'";
}

void print(const char* what, const Cost& render, const Cost& transcode) {
    const double msPerFrame = 1000 / (lengthSec * fps);
    std::printf(
        "\n%s, %d x %d %d, against ffmpeg: render %.2f ms (cpu %.2f), transcoding %.2f ms (cpu %.2f), ratio %.2f (cpu %.2f)\n",
        what, widthPx, heightPx, fps, render.wallSec * msPerFrame, render.cpuSec * msPerFrame,
        transcode.wallSec * msPerFrame, transcode.cpuSec * msPerFrame, render.wallSec / transcode.wallSec,
        render.cpuSec / transcode.cpuSec);
}

}   // namespace

void measureClip(int rounds) {
    const WorkFolder folder;
    const std::filesystem::path clip = folder.path / "clip.mp4";
    makeClip(clip);
    const CompositionSpec spec = documentOf(clip);
    ReelExport::Config reel = reelOf(clip);
    reel.file.output = folder.path / "reel.mp4";
    const std::string command = transcoding(clip, folder.path / "transcoded.mp4");
    Cost render, renderReel, transcode;
    for (int i = 0; i < rounds; ++i) {
        render.keepLeast(measured(
            [&] { CompositionExport::write({.spec = spec, .output = folder.path / "film.mp4"}, {}); }));
        renderReel.keepLeast(measured([&] { ReelExport::write(reel, {}); }));
        int status = 0;
        transcode.keepLeast(measured([&] { status = std::system(command.c_str()); }));
        if (status != 0) {
            std::puts("The clip is not measured: the command ffmpeg is missing or failed.");
            return;
        }
    }
    print("One full-frame clip", render, transcode);
    print("A flat reel of it", renderReel, transcode);
}

}   // namespace tavix::benchmarks
