#include "TavixRender/Export/CompositionRenderer.h"

#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"
#include "TavixRender/Encoding/FrameOutput.h"
#include "TavixRender/Encoding/FrameSequenceEncoder.h"
#include "TavixRender/Encoding/FrameSequenceGIFEncoder.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

namespace tavix::CompositionRenderer {

namespace {

// A count past this would take longer than any machine lives; it keeps the conversion to an integer defined.
constexpr double maxFrameCount = 1e15;
constexpr int secondsPerLogLine = 5;

struct Run {
    ResolvedComposition& resolved;
    std::int64_t frameCount;
    const RenderLog& log;
    const Progress& onProgress;
    std::stop_token stop;
};

std::string headline(const CompositionSpec& spec, double totalSec, std::int64_t frameCount) {
    char seconds[64];
    std::snprintf(seconds, sizeof seconds, "%.1f", totalSec);
    return std::to_string(spec.output.widthPx) + "×" + std::to_string(spec.output.heightPx) + " @ " +
           spec.output.fps.shown() + "fps — " + std::to_string(spec.scenes.size()) + " scenes, " + seconds +
           "s (" + std::to_string(frameCount) + " frames)";
}

template <class Encoder> void walkFrames(Encoder& encoder, const Run& run) {
    const FrameRate fps = run.resolved.spec().output.fps;
    const std::int64_t framesPerReport = std::max<std::int64_t>(fps.frameNearest(1), 1);
    for (std::int64_t i = 0; i < run.frameCount; ++i) {
        if (run.stop.stop_requested()) throw RenderStopped();
        encoder.append(run.resolved.frame(fps.secAt(i)), i);
        const double done = double(i) / double(run.frameCount);
        if (i % framesPerReport == 0 && run.onProgress) run.onProgress(done);
        if (i % (secondsPerLogLine * framesPerReport) == 0)
            tell(run.log, Finding::progress(RenderCode::rendered, std::to_string(int(done * 100)) + "%"));
    }
    encoder.finish();
}

}   // namespace

void render(const Config& config, const RenderLog& log, const Progress& onProgress, std::stop_token stop) {
    const std::int64_t count = frameCount(config.spec);
    if (count < 1) throw Failure("The composition is empty (0 frames).");
    const imaging::Size size = canvasSize(config.spec);
    FrameOutput::requireDrawableSize(size);
    imaging::Evaluator evaluator(config.evaluation);
    ResolvedComposition resolved(config.spec, config.assetRoot, evaluator, log);
    tell(log,
        Finding::progress(RenderCode::rendering, headline(config.spec, resolved.timeline().totalSec, count)));
    const Run run{resolved, count, log, onProgress, std::move(stop)};
    const FrameRate fps = config.spec.output.fps;
    if (config.fileFormat == ExportFormat::gif) {
        FrameSequenceGIFEncoder encoder({config.output, size, fps}, evaluator);
        walkFrames(encoder, run);
    } else {
        FrameSequenceEncoder encoder(
            {config.output, size, fps, config.videoCodec, config.container, config.effort}, evaluator);
        walkFrames(encoder, run);
    }
    if (onProgress) onProgress(1);
    tell(log, Finding::note(RenderCode::written, "Wrote " + config.output.string()));
}

void renderStill(
    const Config& config, double atSec, const std::filesystem::path& file, const RenderLog& log) {
    const imaging::Size size = canvasSize(config.spec);
    FrameOutput::requireDrawableSize(size);
    imaging::Evaluator evaluator(config.evaluation);
    ResolvedComposition resolved(config.spec, config.assetRoot, evaluator, log);
    FrameSequenceEncoder::writeStill(resolved.frame(atSec), size, file, evaluator);
}

std::int64_t frameCount(const CompositionSpec& spec) {
    const double frames = CompositionTimeline(spec).totalSec * double(spec.output.fps);
    return frames > 0 ? std::llround(std::min(frames, maxFrameCount)) : 0;
}

std::optional<double> globalTime(const CompositionSpec& spec, std::string_view sceneID, double localSec) {
    for (std::size_t i = 0; i < spec.scenes.size(); ++i)
        if (spec.scenes[i].displayName(i) == sceneID)
            return CompositionTimeline(spec).globalTime(i, localSec);
    return std::nullopt;
}

}   // namespace tavix::CompositionRenderer
