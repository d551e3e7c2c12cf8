#include "TavixAgent/Check/FilmFigures.h"

#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixPlatform/Media/AudioMixer.h"
#include "TavixRender/Audio/CompositionAudioMuxer.h"
#include "TavixRender/Audio/Loudness.h"
#include "TavixRender/Encoding/RenderStopped.h"
#include "TavixRender/Export/ExportTrial.h"

#include <cmath>
#include <vector>

namespace tavix {
namespace {

namespace fs = std::filesystem;
constexpr double audioBytesPerSec = 256'000 / 8.0;

double thousandths(double value) { return std::round(value * 1000) / 1000; }

void listen(const CompositionSpec& spec, const fs::path& assetRoot, FilmFigures& figures,
    const std::stop_token& stop) {
    if (!spec.audio) return;
    media::AudioTimeline timeline;
    if (!CompositionAudioMuxer::insertAudio(*spec.audio, timeline, assetRoot, figures.lengthSec)) return;
    timeline.frames = timeline.frameAt(figures.lengthSec);
    const media::AudioFormat format = timeline.format;
    LoudnessMeter meter(format.sampleRate, format.channels);
    media::AudioMixer mixer(std::move(timeline));
    std::vector<float> block(std::size_t(format.channels) * 16'384);
    while (const std::size_t read = mixer.read(block)) {
        if (stop.stop_requested()) throw RenderStopped();
        meter.take(std::span(block).first(read * std::size_t(format.channels)));
    }
    const LoudnessMeasure measure = meter.measure();
    if (measure.integratedLufs) figures.integratedLufs = thousandths(*measure.integratedLufs);
    if (std::isfinite(measure.truePeakDb)) figures.truePeakDb = thousandths(measure.truePeakDb);
    figures.clippedSamples = measure.clippedSamples;
}

void tryExport(const CompositionSpec& spec, const fs::path& assetRoot, FilmFigures& figures,
    const std::stop_token& stop) {
    CompositionRenderer::Config config;
    config.spec = spec;
    config.assetRoot = assetRoot;
    config.output = "trial.mp4";
    const ExportTrial::Outcome trial = ExportTrial::run(config, stop);
    figures.estimatedSec = thousandths(trial.sec);
    const double soundBytes = figures.integratedLufs ? audioBytesPerSec * figures.lengthSec : 0;
    figures.estimatedBytes = std::round(trial.bytes + soundBytes);
}

}   // namespace

const Fields<FilmFigures>& fieldsOf(std::type_identity<FilmFigures>) {
    using R = FilmFigures;
    static const Fields<R> table{"FilmFigures",
        {field<&R::lengthSec>("lengthSec", "How long the film is."),
            field<&R::frames>("frames", "How many frames it has."),
            field<&R::integratedLufs>(
                "integratedLufs", "How loud the mix is, by ITU-R BS.1770; films for the web are about -14."),
            field<&R::truePeakDb>("truePeakDb", "Its highest peak, of full scale; -1 and below is safe."),
            field<&R::clippedSamples>("clippedSamples", "How many samples stand at full scale."),
            field<&R::estimatedBytes>("estimatedBytes", "About how large an export is."),
            field<&R::estimatedSec>("estimatedSec", "About how long it takes on this machine.")}};
    return table;
}

FilmFigures figuresOf(const CompositionSpec& spec, const fs::path& assetRoot, const std::stop_token& stop) {
    FilmFigures figures;
    figures.lengthSec = thousandths(CompositionTimeline(spec).totalSec);
    figures.frames = CompositionRenderer::frameCount(spec);
    listen(spec, assetRoot, figures, stop);
    tryExport(spec, assetRoot, figures, stop);
    return figures;
}

}   // namespace tavix
