#include "TavixRender/Export/CompositionExport.h"

#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixRender/Audio/FilmSound.h"

namespace tavix::CompositionExport {

namespace {

CompositionAudioMuxer::AssetRoot assetRootOf(const CompositionRenderer::Config& config) {
    if (config.assetRoot || !config.spec.assetRoot) return config.assetRoot;
    return *config.spec.assetRoot;
}

}   // namespace

void write(const CompositionRenderer::Config& config, const RenderLog& log,
    const CompositionRenderer::Progress& onProgress, const std::stop_token& stop) {
    if (!config.spec.audio) return CompositionRenderer::render(config, log, onProgress, stop);
    const double totalSec = CompositionTimeline(config.spec).totalSec;
    FilmSound::writeUnder(
        {*config.spec.audio, assetRootOf(config), totalSec}, CompositionRenderer::fileOf(config),
        [&](const FilmFile& file, const FilmWriter::Progress& report) {
            CompositionRenderer::Config picture = config;
            picture.output = file.output;
            CompositionRenderer::render(picture, log, report, stop);
        },
        log, onProgress, stop);
}

}   // namespace tavix::CompositionExport
