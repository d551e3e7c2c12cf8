#include "TavixRender/Export/CompositionRenderer.h"

#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"
#include "TavixRender/Encoding/FrameOutput.h"
#include "TavixRender/Encoding/FrameSequenceEncoder.h"

#include <cstdio>
#include <string>

namespace tavix::CompositionRenderer {

std::string headline(const CompositionSpec& spec, double totalSec, std::int64_t frameCount) {
    char seconds[64];
    std::snprintf(seconds, sizeof seconds, "%.1f", totalSec);
    return std::to_string(spec.output.widthPx) + "×" + std::to_string(spec.output.heightPx) + " @ " +
           spec.output.fps.shown() + "fps — " + std::to_string(spec.scenes.size()) + " scenes, " + seconds +
           "s (" + std::to_string(frameCount) + " frames)";
}

FilmFile fileOf(const Config& config) {
    return {config.output, config.fileFormat, config.videoCodec, config.container, config.effort, config.rate,
        config.hardware};
}

void render(
    const Config& config, const RenderLog& log, const Progress& onProgress, const std::stop_token& stop) {
    const std::int64_t count = frameCount(config.spec);
    if (count < 1) throw Failure("The composition is empty (0 frames).");
    const imaging::Size size = canvasSize(config.spec);
    FrameOutput::requireDrawableSize(size);
    imaging::Evaluator evaluator(config.evaluation);
    ResolvedComposition resolved(config.spec, config.assetRoot, evaluator, log);
    tell(log,
        Finding::progress(RenderCode::rendering, headline(config.spec, resolved.timeline().totalSec, count)));
    const FilmFrames film{
        size, config.spec.output.fps, count, [&](double atSec) { return resolved.frame(atSec); }};
    FilmWriter::write(film, fileOf(config), evaluator, log, onProgress, stop);
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
    return FilmWriter::frameCount(CompositionTimeline(spec).totalSec, spec.output.fps);
}

std::optional<double> globalTime(const CompositionSpec& spec, std::string_view sceneID, double localSec) {
    for (std::size_t i = 0; i < spec.scenes.size(); ++i)
        if (spec.scenes[i].displayName(i) == sceneID)
            return CompositionTimeline(spec).globalTime(i, localSec);
    return std::nullopt;
}

}   // namespace tavix::CompositionRenderer
