#include "TavixRender/Export/CompositionExport.h"

#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixRender/Audio/CompositionAudioMuxer.h"
#include "TavixRender/Encoding/HiddenFile.h"

namespace tavix::CompositionExport {

namespace {

constexpr double pictureShare = 0.95;   // of the progress

CompositionAudioMuxer::AssetRoot assetRootOf(const CompositionRenderer::Config& config) {
    if (config.assetRoot || !config.spec.assetRoot) return config.assetRoot;
    return *config.spec.assetRoot;
}

void writeWithSound(const CompositionRenderer::Config& config, const RenderLog& log,
    const CompositionRenderer::Progress& onProgress, const std::stop_token& stop) {
    const HiddenFile visual(config.output, ".tavix-visual-" + config.output.filename().string());
    CompositionRenderer::Config picture = config;
    picture.output = visual.path();
    const auto report = [&](double fraction) {
        if (onProgress) onProgress(fraction);
    };
    try {
        CompositionRenderer::render(
            picture, log, [&](double fraction) { report(fraction * pictureShare); }, stop);
        const double totalSec = CompositionTimeline(config.spec).totalSec;
        const bool isMov = isProRes(config.videoCodec) || config.container == ExportContainer::mov;
        CompositionAudioMuxer::mux(visual.path(), {*config.spec.audio, assetRootOf(config), totalSec},
            config.output, isMov ? ExportContainer::mov : ExportContainer::mp4, log, stop);
    } catch (const RenderStopped&) {
        throw;
    } catch (const Failure& failure) {
        throw Failure(visual.unnamed(failure.what()));
    }
    report(1);
}

}   // namespace

void write(const CompositionRenderer::Config& config, const RenderLog& log,
    const CompositionRenderer::Progress& onProgress, const std::stop_token& stop) {
    if (config.fileFormat == ExportFormat::video && config.spec.audio)
        writeWithSound(config, log, onProgress, stop);
    else
        CompositionRenderer::render(config, log, onProgress, stop);
}

}   // namespace tavix::CompositionExport
