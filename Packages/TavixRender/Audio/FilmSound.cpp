#include "TavixRender/Audio/FilmSound.h"

#include "TavixBase/Failure.h"
#include "TavixRender/Encoding/HiddenFile.h"
#include "TavixRender/Encoding/RenderStopped.h"

namespace tavix::FilmSound {

namespace {

constexpr double pictureShare = 0.95;   // of the progress

}   // namespace

void writeUnder(const CompositionAudioMuxer::Mix& mix, const FilmFile& film, const PictureWriter& picture,
    const RenderLog& log, const FilmWriter::Progress& onProgress, const std::stop_token& stop) {
    if (film.format == ExportFormat::gif) return picture(film, onProgress);
    const HiddenFile visual(film.output, ".tavix-visual-" + film.output.filename().string());
    FilmFile silent = film;
    silent.output = visual.path();
    const auto report = [&](double fraction) {
        if (onProgress) onProgress(fraction);
    };
    try {
        picture(silent, [&](double fraction) { report(fraction * pictureShare); });
        CompositionAudioMuxer::mux(visual.path(), mix, film.output, film.finalContainer(), log, stop);
    } catch (const RenderStopped&) {
        throw;
    } catch (const Failure& failure) {
        throw Failure(visual.unnamed(failure.what()));
    }
    report(1);
}

}   // namespace tavix::FilmSound
