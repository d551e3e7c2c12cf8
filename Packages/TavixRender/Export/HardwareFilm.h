// Films of a hardware encoder: made, decoded whole and compared with the document, and made again without it
// where there is none, or where what it wrote is another film.
#pragma once

#include "TavixRender/Export/FilmCheck.h"
#include "TavixRender/Export/PieceRender.h"

#include <functional>
#include <optional>
#include <stop_token>
#include <string>

namespace tavix::HardwareFilm {

struct Outcome {
    PieceRender::Report pieces;
    std::optional<FilmCheck::Likeness> likeness;   // of a film that the hardware made
    std::string refusal = {};   // why it did not, as part of a sentence; empty where it did
};

struct Steps {
    std::function<PieceRender::Report(PiecedFilm& film)> make;   // writes the film to its output
    std::function<void()> beginCheck = {};
    FilmWriter::Progress onCheck = {};
    std::function<void(const std::string& refusal)> onRefusal = {};   // before it is made again
};

// Makes the film as its file asks. After a refusal `film` names no hardware any more. Throws what `make`
// throws without hardware, and `RenderStopped`.
Outcome write(PiecedFilm& film, const Steps& steps, const std::stop_token& stop = {});

// "h264_nvenc was asked for and is not used (…); the film is encoded by libx264 instead."
std::string sentenceOf(const media::HardwareEncoder& asked, const std::string& refusal);

// In documents and on command lines codecs are of another kind than in files.
VideoCodec codecOf(const media::HardwareEncoder& encoder);

}   // namespace tavix::HardwareFilm
