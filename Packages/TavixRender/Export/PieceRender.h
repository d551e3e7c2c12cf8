// Films of pieces: each piece is drawn and encoded by itself, side by side on large machines, and all are
// joined in the end. The film is the same, byte by byte, however many are made at once and whether they are
// made or found.
#pragma once

#include "TavixRender/Export/PiecedFilm.h"

#include <cstddef>
#include <filesystem>
#include <stop_token>
#include <string>
#include <vector>

namespace tavix::PieceRender {

// All of these throw `Failure`; `stop` ends in `RenderStopped`.

// One piece to a file.
void write(const PiecedFilm& film, const FilmPiece& piece, const std::filesystem::path& file,
    const RenderLog& log, const FilmWriter::Progress& onProgress = {}, const std::stop_token& stop = {});

struct Report {
    std::size_t pieces = 0, reused = 0;
    std::string storeFault = {};   // a sentence, where pieces could not be kept; the film is none the worse
};

// All pieces of the film, one file each. The film's store is asked for every one and keeps what is new.
Report writeAll(const PiecedFilm& film, const std::vector<FilmPiece>& pieces,
    const std::vector<std::filesystem::path>& files, const RenderLog& log,
    const FilmWriter::Progress& onProgress = {}, const std::stop_token& stop = {});

// The film of these pieces, with its sound under it.
void join(const PiecedFilm& film, const std::vector<std::filesystem::path>& files, const RenderLog& log,
    const std::stop_token& stop = {});

// How many pieces are made at once.
int workerCount(const PiecedFilm& film, std::size_t pieces);

}   // namespace tavix::PieceRender
