// Looks at a finished film: whether it is what was made.
#pragma once

#include "TavixRender/Export/PiecedFilm.h"

#include <cstdint>
#include <filesystem>
#include <stop_token>

namespace tavix::FilmCheck {

// Throws `Failure` with what is wrong unless the file has all frames of the film, each at its time, in its
// size. Decodes nothing.
void probe(const PiecedFilm& film, const std::filesystem::path& file);

struct Likeness {
    std::int64_t framesDecoded = 0, framesCompared = 0;
    // Of the worst frame: structural similarity of brightness, 1 for the same (Wang et al. 2004), and how far
    // the mean colour of a ninth of the frame lies off, in 255ths.
    double leastSimilarity = 1, mostColorError = 0;
};

// Decodes the whole film and compares a frame of every second, and the last one, with the film's, drawn anew.
// Throws `Failure` where a frame is not to be had or looks like another one; `RenderStopped`.
Likeness verify(const PiecedFilm& film, const std::filesystem::path& file,
    const FilmWriter::Progress& onProgress = {}, const std::stop_token& stop = {});

}   // namespace tavix::FilmCheck
