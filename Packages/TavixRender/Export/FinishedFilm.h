// A film under its name: it appears whole or not at all.
#pragma once

#include "TavixRender/Export/PieceRender.h"

#include <filesystem>
#include <stop_token>

namespace tavix::FinishedFilm {

// Writes the film, as small as it is to be, to another file than its own `output`; it takes the target's name
// when it is whole and has been looked at. Pictures, whose names the target has a place for (`FrameNames`),
// take theirs when all are there. Whatever happens until then, what stood there before stays. Throws
// `Failure`; `stop` ends in `RenderStopped`.
PieceRender::Report write(PiecedFilm film, const std::filesystem::path& target, const RenderLog& log,
    const FilmWriter::Progress& onProgress = {}, const std::stop_token& stop = {});

}   // namespace tavix::FinishedFilm
