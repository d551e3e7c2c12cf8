// Which size, rate and quality bring an animated picture under a number of bytes.
#pragma once

#include "TavixRender/Export/PiecedFilm.h"

#include <cstdint>
#include <functional>
#include <stop_token>
#include <string>

namespace tavix::AnimationFit {

struct Look {
    imaging::Size size;
    FrameRate fps;
    int quality = 0;   // 0 to 100; of no meaning to a GIF
    bool operator==(const Look&) const = default;
};

Look lookOf(const PiecedFilm& film);
// The film made over for a look: drawn at its own size and reduced, at fewer moments.
PiecedFilm made(const PiecedFilm& film, const Look& look);
// What it takes to bring a film to that share of its bytes, roughly: less is never finer. Quality goes first,
// down to what may still be shown, then width and rate together.
Look reduced(const PiecedFilm& film, double share);
// "about 3.4 MB at 540 × 960, 18 frames a second"; the bytes as they are to be shown.
std::string shown(const PiecedFilm& film, const Look& look);

// What a film would be under that many bytes, and how many it would have: told by stretches of it that are
// written beside its output. Throws as `write` does.
struct Estimate {
    Look look;
    double bytes = 0;
};
Estimate estimated(const PiecedFilm& film, std::int64_t mostBytes, const std::stop_token& stop = {});

// Searches by estimates, then writes the film, and again with less when it came out too large after all.
// `tell` is called with the look and the bytes of each estimate. Throws `Failure` when nothing that can be
// shown fits; `stop` ends in `RenderStopped`.
using Tell = std::function<void(const Look& look, double bytes)>;
PiecedFilm write(const PiecedFilm& film, std::int64_t mostBytes, const RenderLog& log, const Tell& tell,
    const FilmWriter::Progress& onProgress = {}, const std::stop_token& stop = {});

}   // namespace tavix::AnimationFit
