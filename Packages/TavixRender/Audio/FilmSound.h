// A film with sound: the picture is written first, and then copied under the mix.
#pragma once

#include "TavixRender/Audio/CompositionAudioMuxer.h"
#include "TavixRender/Encoding/FilmWriter.h"

#include <functional>
#include <stop_token>

namespace tavix::FilmSound {

// Writes the film without its sound.
using PictureWriter = std::function<void(const FilmFile& file, const FilmWriter::Progress& onProgress)>;

// The picture goes to a hidden file beside the output, which is gone when the work ends, however it ends. It
// takes up to 0.95 of the progress. A GIF is written by itself. Throws `Failure`; `stop` ends in
// `RenderStopped`.
void writeUnder(const CompositionAudioMuxer::Mix& mix, const FilmFile& film, const PictureWriter& picture,
    const RenderLog& log, const FilmWriter::Progress& onProgress = {}, const std::stop_token& stop = {});

}   // namespace tavix::FilmSound
