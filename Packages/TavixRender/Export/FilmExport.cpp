#include "TavixRender/Export/FilmExport.h"

#include "TavixRender/Encoding/FrameOutput.h"
#include "TavixRender/Encoding/HiddenFile.h"
#include "TavixRender/Encoding/RenderStopped.h"
#include "TavixRender/Export/MachineShare.h"
#include "TavixRender/Export/RatePlan.h"

#include <deque>
#include <string>

namespace tavix::FilmExport {

namespace {

constexpr double pictureShare = 0.95;   // of the progress, with that of the plan
constexpr double planShare = 0.15;      // where there is a rate to be planned

// Names beside the output, whose files are gone when this is.
class PieceFiles {
public:
    PieceFiles(const std::filesystem::path& output, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            hidden_.emplace_back(
                output, ".tavix-piece-" + std::to_string(i) + "-" + output.filename().string());
            paths_.push_back(hidden_.back().path());
        }
    }
    const std::vector<std::filesystem::path>& paths() const { return paths_; }
    // A sentence with the name of the film instead of a piece's.
    std::string unnamed(std::string sentence) const {
        for (const HiddenFile& file : hidden_) sentence = file.unnamed(std::move(sentence));
        return sentence;
    }

private:
    std::deque<HiddenFile> hidden_;
    std::vector<std::filesystem::path> paths_;
};

void writeWhole(const PiecedFilm& film, const RenderLog& log, const FilmWriter::Progress& onProgress,
    const std::stop_token& stop) {
    imaging::Evaluator evaluator(MachineShare::evaluation(film.evaluation, film.memoryBytes, 1));
    const auto painter = film.painter(evaluator, log, MachineShare::roomOf(film.memoryBytes, 1));
    const FilmFrames frames{
        film.size, film.fps, film.frameCount, [&](double atSec) { return painter->frame(atSec); }};
    FilmWriter::write(frames, film.file, evaluator, log, onProgress, stop);
}

}   // namespace

PieceRender::Report write(const PiecedFilm& film, const RenderLog& log,
    const FilmWriter::Progress& onProgress, const std::stop_token& stop) {
    FrameOutput::requireDrawableSize(film.size);
    tell(log, Finding::progress(RenderCode::rendering, film.headline));
    if (film.file.format != ExportFormat::video) {
        writeWhole(film, log, onProgress, stop);
        return {};
    }
    const auto report = [&](double fraction) {
        if (onProgress) onProgress(fraction);
    };
    PiecedFilm planned = film;
    const bool isPlanned = film.file.rate.bitsPerSec && RatePlan::isFor(film.file);
    const double begin = isPlanned ? planShare : 0;
    planned.file.rate = RatePlan::settled(
        film, [&](double done) { report(done * planShare); }, stop);
    const PieceFiles files(film.file.output, film.pieces.size());
    PieceRender::Report made;
    try {
        made = PieceRender::writeAll(
            planned, film.pieces, files.paths(), log,
            [&](double done) { report(begin + done * (pictureShare - begin)); }, stop);
        report(pictureShare);
        PieceRender::join(planned, files.paths(), log, stop);
    } catch (const RenderStopped&) {
        throw;
    } catch (const Failure& failure) {
        throw Failure(files.unnamed(failure.what()));
    }
    report(1);
    tell(log, Finding::note(RenderCode::written, "Wrote " + film.file.output.string()));
    return made;
}

}   // namespace tavix::FilmExport
