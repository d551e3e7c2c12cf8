// A film as a file: the picture, and its sound under it.
#pragma once

#include "TavixRender/Export/PieceRender.h"

namespace tavix::FilmExport {

// A film is made of pieces, which lie in hidden files beside the output while it is made, and joined under
// the mixed sound; whatever happens, no hidden file stays. Pieces take up to 0.95 of the progress. A GIF is
// made in one go, straight to the output. Blocks until the file is written. Throws `Failure`; `stop` ends in
// `RenderStopped`.
PieceRender::Report write(const PiecedFilm& film, const RenderLog& log,
    const FilmWriter::Progress& onProgress = {}, const std::stop_token& stop = {});

}   // namespace tavix::FilmExport
