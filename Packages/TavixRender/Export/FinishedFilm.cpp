#include "TavixRender/Export/FinishedFilm.h"

#include "TavixCore/Support/SafeOutput.h"
#include "TavixRender/Encoding/RenderStopped.h"
#include "TavixRender/Encoding/SafePictures.h"
#include "TavixRender/Export/AnimationFit.h"
#include "TavixRender/Export/FilmCheck.h"
#include "TavixRender/Export/FilmExport.h"
#include "TavixRender/Export/RateFit.h"

namespace tavix::FinishedFilm {

namespace {

struct Run {
    const RenderLog& log;
    const FilmWriter::Progress& onProgress;
    const std::stop_token& stop;
};

PieceRender::Report writeUnfinished(PiecedFilm& film, const Run& run) {
    if (film.mostBytes && isAnimation(film.file.format)) {
        film = AnimationFit::write(film, *film.mostBytes, run.log, {}, run.onProgress, run.stop);
        return {};
    }
    if (film.mostBytes && film.file.format == ExportFormat::video && !isProRes(film.file.codec))
        return RateFit::write(film, *film.mostBytes, run.log, {}, run.onProgress, run.stop);
    return FilmExport::write(film, run.log, run.onProgress, run.stop);
}

// Makes it behind a safe output, which takes its name when `finish` has been called.
template <class Output, class Finish>
PieceRender::Report made(PiecedFilm& film, const Output& output, const std::filesystem::path& unfinished,
    const Run& run, const Finish& finish) try {
    film.file.output = unfinished;
    const PieceRender::Report report = writeUnfinished(film, run);
    finish();
    return report;
} catch (const RenderStopped&) {
    throw;
} catch (const Failure& failure) {
    throw Failure(output.unnamed(failure.what()));
}

}   // namespace

PieceRender::Report write(PiecedFilm film, const std::filesystem::path& target, const RenderLog& log,
    const FilmWriter::Progress& onProgress, const std::stop_token& stop) {
    const Run run{log, onProgress, stop};
    if (film.file.format == ExportFormat::png) {
        SafePictures output(target);
        return made(film, output, output.unfinished(), run, [&] { output.commit(film.frameCount); });
    }
    SafeOutput output(target);
    return made(film, output, output.partial(), run, [&] {
        if (film.file.format == ExportFormat::video) FilmCheck::probe(film, output.partial());
        output.commit();
    });
}

}   // namespace tavix::FinishedFilm
