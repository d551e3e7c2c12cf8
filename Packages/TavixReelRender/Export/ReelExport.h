// A reel as it leaves the program: a film with its sound cues under it, a GIF, or one still.
#pragma once

#include "TavixCore/Document/CompositionAudio.h"
#include "TavixReel/Document/EffectsSpec.h"
#include "TavixReelRender/Film/ReelFilm.h"
#include "TavixRender/Export/PieceRender.h"

#include <filesystem>
#include <stop_token>

namespace tavix::ReelExport {

struct Config {
    EffectsSpec spec;   // at the size that it is to have
    ReelFootage footage;
    std::filesystem::path assetRoot;   // of the document's relative paths
    FrameRate fps;                     // of the film
    FilmFile file = {};
    imaging::EvaluatorOptions evaluation = {};
    // Where finished pieces of films are kept for the next render; absent: nowhere.
    std::optional<std::filesystem::path> pieceStore = {};
    std::size_t memoryBytes = 0;   // that films may take; 0: a quarter of the machine's
};

// What is heard, on the finished reel's clock: cues in what is cut out come where the footage goes on.
CompositionAudio soundOf(const EffectsSpec& spec, const ReelFootage& footage);

// The recording's own sound is left out; a reel is heard by its cues alone. Throws
// `Failure` when there is nothing to show.
PiecedFilm filmOf(const Config& config);

// As FilmExport::write.
PieceRender::Report write(const Config& config, const RenderLog& log,
    const FilmWriter::Progress& onProgress = {}, const std::stop_token& stop = {});

// Writes one frame as a PNG. Throws `Failure`.
void writeStill(const Config& config, double compositionSec, const std::filesystem::path& file,
    const RenderLog& log = {});

}   // namespace tavix::ReelExport
