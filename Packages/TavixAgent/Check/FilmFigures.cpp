#include "TavixAgent/Check/FilmFigures.h"

#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixPlatform/Media/AudioMixer.h"
#include "TavixRender/Audio/CompositionAudioMuxer.h"
#include "TavixRender/Audio/Loudness.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"
#include "TavixRender/DeviceScene/Composition3DRendererPool.h"
#include "TavixRender/Encoding/FrameSequenceEncoder.h"
#include "TavixRender/Export/CompositionRenderer.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <string>
#include <system_error>
#include <vector>

namespace tavix {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr double trialSec = 3;   // of work
constexpr std::int64_t trialFrames = 30;
constexpr double trialAtFraction = 0.4;   // of the film
constexpr double audioBytesPerSec = 256'000 / 8.0;

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

double thousandths(double value) { return std::round(value * 1000) / 1000; }

// A folder that goes with its content.
class TrialFolder {
public:
    TrialFolder() {
        std::string pattern = (fs::temp_directory_path() / "tavix-trial-XXXXXX").string();
        if (!::mkdtemp(pattern.data()))
            throw Failure("There is no folder for a trial export in \"" + fs::temp_directory_path().string() +
                          "\"; make one that can be written.");
        path_ = pattern;
    }
    ~TrialFolder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    TrialFolder(const TrialFolder&) = delete;
    TrialFolder& operator=(const TrialFolder&) = delete;

    const fs::path& path() const { return path_; }

private:
    fs::path path_;
};

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

// Exports a stretch from the midst of the film.
void tryExport(const CompositionSpec& spec, const fs::path& assetRoot, FilmFigures& figures,
    const std::stop_token& stop) {
    const TrialFolder folder;
    const fs::path file = folder.path() / "trial.mp4";
    const imaging::Size size{static_cast<int>(spec.output.widthPx), static_cast<int>(spec.output.heightPx)};
    const auto count = std::min(figures.frames, trialFrames);
    const auto first =
        std::min(std::int64_t(double(figures.frames) * trialAtFraction), figures.frames - count);
    imaging::Evaluator evaluator;
    Composition3DRendererPool stages;
    ResolvedComposition resolved(spec, assetRoot, evaluator, {}, &stages);
    resolved.frame(spec.output.fps.secAt(first));   // files are opened once for the whole film
    FrameSequenceEncoder encoder({.output = file, .size = size, .fps = spec.output.fps}, evaluator);
    const auto start = Clock::now();
    std::int64_t done = 0;
    while (done < count && (done == 0 || secondsSince(start) < trialSec)) {
        if (stop.stop_requested()) throw RenderStopped();
        encoder.append(resolved.frame(spec.output.fps.secAt(first + done)), done);
        ++done;
    }
    encoder.finish();
    const double share = double(figures.frames) / double(done);
    figures.estimatedSec = thousandths(secondsSince(start) * share);
    const double soundBytes = figures.integratedLufs ? audioBytesPerSec * figures.lengthSec : 0;
    figures.estimatedBytes = std::round(double(fs::file_size(file)) * share + soundBytes);
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
