// How a film of pieces keeps to a rate: all of its pictures are coded equally coarse, so that every piece
// gets the bits that it needs, and neither what it is encoded beside nor the machine matters. A piece that
// kept to the rate by itself would take too much where little happens, and too little where much does. How
// coarse that is, copies of the pieces tell that are small enough to be made quickly.
#pragma once

#include "TavixRender/Export/PiecedFilm.h"

#include <cstdint>
#include <optional>
#include <stop_token>

namespace tavix::RatePlan {

// Whether it is one of the films whose rate can be planned: of pieces, by an encoder of ours that knows how
// coarse; hardware has scales of its own and keeps to rates by itself.
bool isFor(const FilmFile& file);

// Pictures are so fine where no rate is asked for.
double usualCoarseness(VideoCodec codec);
double mostCoarseness(VideoCodec codec);
// The next step that can be told from this one, or this one where it is a step; never finer.
double steppedUp(VideoCodec codec, double coarseness);
// What takes half of the bits, in steps of the scale, as a rule.
double stepsPerHalf(VideoCodec codec);

// How coarse the film is coded when its pictures take so many bytes, not rounded: the same on every machine,
// for every number of workers, and whatever the store has. Nothing where it would be finer than the scale
// goes. Makes small pieces, in a folder for such that is gone afterwards, and keeps them in the film's store.
// Throws `Failure`; `stop` ends in `RenderStopped`.
std::optional<double> coarsenessFor(const PiecedFilm& film, double bytes,
    const FilmWriter::Progress& onProgress = {}, const std::stop_token& stop = {});

// The rate that the pieces of the film are encoded at: how coarse, for bits a second; any other as it is.
ExportRate settled(
    const PiecedFilm& film, const FilmWriter::Progress& onProgress = {}, const std::stop_token& stop = {});

}   // namespace tavix::RatePlan
