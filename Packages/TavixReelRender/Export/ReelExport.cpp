#include "TavixReelRender/Export/ReelExport.h"

#include "TavixCore/Support/Decimals.h"
#include "TavixReelRender/Export/ReelPieceKeys.h"
#include "TavixRender/Encoding/FrameOutput.h"
#include "TavixRender/Encoding/FrameSequenceEncoder.h"
#include "TavixRender/Export/FilmExport.h"
#include "TavixRender/Export/MachineShare.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>

namespace tavix::ReelExport {

namespace {

// With a clock that has a tick for every frame.
Config clocked(Config config) {
    config.spec.output.fps = std::max<std::int64_t>(std::llround(double(config.fps)), 1);
    return config;
}

std::string headline(const PiecedFilm& film, std::size_t segments, double totalSec) {
    return std::to_string(film.size.width) + "×" + std::to_string(film.size.height) + " @ " +
           film.fps.shown() + "fps — " + std::to_string(segments) +
           (segments == 1 ? " segment, " : " segments, ") + decimals(totalSec, 1) + "s (" +
           std::to_string(film.frameCount) + " frames)";
}

// A reel is made ready as a whole, so all of it is one part.
class Painter final : public PiecedFilm::Painter {
public:
    Painter(const Config& config, imaging::Evaluator& evaluator, const RenderLog& log)
        : film_(config.spec, config.footage, config.assetRoot, evaluator, log) {}

    imaging::Image frame(double atSec) override { return film_.frame(atSec); }
    std::vector<std::size_t> partsAt(double) const override { return {0}; }

private:
    ReelFilm film_;
};

std::vector<double> startsSec(const std::vector<ReelTimeline::ReelSegment>& segments) {
    std::vector<double> starts;
    double sec = 0;
    for (const auto& segment : segments) {
        starts.push_back(sec);
        sec += ReelTimeline::durationSec(segment);
    }
    return starts;
}

}   // namespace

CompositionAudio soundOf(const EffectsSpec& spec, const ReelFootage& footage) {
    const auto segments = reelSegments(spec, footage);
    CompositionAudio audio{.music = std::nullopt, .cues = spec.soundCues};
    for (SoundCue& cue : audio.cues) cue.atSec = ReelTimeline::compositionSec(cue.atSec, segments);
    return audio;
}

PiecedFilm filmOf(const Config& config) {
    const auto kept = std::make_shared<const Config>(clocked(config));
    const EffectsSpec& spec = kept->spec;
    const auto segments = ReelFilm::segmentsOf(spec, kept->footage);
    const double totalSec = ReelTimeline::outputDurationSec(segments);
    PiecedFilm film;
    film.file = config.file;
    film.size = {int(spec.output.widthPx), int(spec.output.heightPx)};
    film.fps = config.fps;
    film.frameCount = std::max<std::int64_t>(FilmWriter::frameCount(totalSec, config.fps), 1);
    film.headline = headline(film, segments.size(), totalSec);
    film.pieces = filmPieces(startsSec(segments), config.fps, film.frameCount);
    if (!spec.soundCues.empty()) film.sound = {soundOf(spec, kept->footage), config.assetRoot, totalSec};
    film.painter = [kept](imaging::Evaluator& evaluator, const RenderLog& log, const RenderRoom&) {
        return std::make_unique<Painter>(*kept, evaluator, log);
    };
    film.keys = [kept](const FilmFile& encoding) { return std::make_unique<ReelPieceKeys>(*kept, encoding); };
    film.evaluation = config.evaluation;
    film.pieceStore = config.pieceStore;
    film.memoryBytes = config.memoryBytes;
    return film;
}

PieceRender::Report write(const Config& config, const RenderLog& log, const FilmWriter::Progress& onProgress,
    const std::stop_token& stop) {
    return FilmExport::write(filmOf(config), log, onProgress, stop);
}

void writeStill(
    const Config& config, double compositionSec, const std::filesystem::path& file, const RenderLog& log) {
    const PiecedFilm film = filmOf(config);
    FrameOutput::requireDrawableSize(film.size);
    imaging::Evaluator evaluator(config.evaluation);
    const auto painter = film.painter(evaluator, log, MachineShare::roomOf(film.memoryBytes, 1));
    FrameSequenceEncoder::writeStill(painter->frame(compositionSec), film.size, file, evaluator);
}

}   // namespace tavix::ReelExport
