// Which rate brings a video under a number of bytes.
#pragma once

#include "TavixRender/Export/PieceRender.h"

#include <cstdint>
#include <functional>
#include <stop_token>

namespace tavix::RateFit {

// What that many bytes leave to a second of the pictures, in bits, by the length of the film and its sound.
// Throws `Failure` when that is nothing that can be shown.
std::int64_t bitsPerSec(const PiecedFilm& film, std::int64_t mostBytes);

// Writes the film: as it usually is where that fits, and else as coarse as it takes (RatePlan.h); again, and
// coarser, where it came out too large. `tell` is called once, with the rate that the bytes leave. The film
// keeps the rate that it was written with. Throws `Failure` when nothing that can be shown fits; `stop` ends
// in `RenderStopped`.
using Tell = std::function<void(std::int64_t bitsPerSec)>;
PieceRender::Report write(PiecedFilm& film, std::int64_t mostBytes, const RenderLog& log, const Tell& tell,
    const FilmWriter::Progress& onProgress = {}, const std::stop_token& stop = {});

}   // namespace tavix::RateFit
