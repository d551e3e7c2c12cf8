#include "TavixReelRender/Export/ReelExport.h"

#include "TavixCore/Support/Decimals.h"
#include "TavixRender/Audio/FilmSound.h"
#include "TavixRender/Encoding/FrameOutput.h"
#include "TavixRender/Encoding/FrameSequenceEncoder.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace tavix::ReelExport {

namespace {

// The document with a clock that has a tick for every frame.
EffectsSpec clocked(const Config& config) {
    EffectsSpec spec = config.spec;
    spec.output.fps = std::max<std::int64_t>(std::llround(double(config.fps)), 1);
    return spec;
}

std::string headline(const Config& config, const ReelFilm& film) {
    const EffectsOutput& output = config.spec.output;
    return std::to_string(output.widthPx) + "×" + std::to_string(output.heightPx) + " @ " +
           config.fps.shown() + "fps — " + std::to_string(film.segmentCount()) + " segments, " +
           decimals(film.durationSec(), 1) + "s (" + std::to_string(frameCount(config)) + " frames)";
}

void writePicture(const Config& config, const FilmFile& file, const RenderLog& log,
    const FilmWriter::Progress& onProgress, const std::stop_token& stop) {
    imaging::Evaluator evaluator(config.evaluation);
    ReelFilm film(clocked(config), config.footage, config.assetRoot, evaluator, log);
    FrameOutput::requireDrawableSize(film.size());
    tell(log, Finding::progress(RenderCode::rendering, headline(config, film)));
    const FilmFrames frames{
        film.size(), config.fps, frameCount(config), [&](double atSec) { return film.frame(atSec); }};
    FilmWriter::write(frames, file, evaluator, log, onProgress, stop);
}

double durationSec(const Config& config) {
    return ReelTimeline::outputDurationSec(reelSegments(config.spec, config.footage));
}

}   // namespace

CompositionAudio soundOf(const EffectsSpec& spec, const ReelFootage& footage) {
    const auto segments = reelSegments(spec, footage);
    CompositionAudio audio{.music = std::nullopt, .cues = spec.soundCues};
    for (SoundCue& cue : audio.cues) cue.atSec = ReelTimeline::compositionSec(cue.atSec, segments);
    return audio;
}

std::int64_t frameCount(const Config& config) {
    return std::max<std::int64_t>(FilmWriter::frameCount(durationSec(config), config.fps), 1);
}

void write(const Config& config, const FilmFile& file, const RenderLog& log,
    const FilmWriter::Progress& onProgress, const std::stop_token& stop) {
    if (config.spec.soundCues.empty()) return writePicture(config, file, log, onProgress, stop);
    const CompositionAudio audio = soundOf(config.spec, config.footage);
    FilmSound::writeUnder(
        {audio, config.assetRoot, durationSec(config)}, file,
        [&](const FilmFile& silent, const FilmWriter::Progress& report) {
            writePicture(config, silent, log, report, stop);
        },
        log, onProgress, stop);
}

void writeStill(
    const Config& config, double compositionSec, const std::filesystem::path& file, const RenderLog& log) {
    imaging::Evaluator evaluator(config.evaluation);
    ReelFilm film(clocked(config), config.footage, config.assetRoot, evaluator, log);
    FrameOutput::requireDrawableSize(film.size());
    FrameSequenceEncoder::writeStill(film.frame(compositionSec), film.size(), file, evaluator);
}

}   // namespace tavix::ReelExport
