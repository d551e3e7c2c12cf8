// A reel named on the command line: its recording with its document.
#pragma once

#include "Engine/Reel/ReelRecording.h"
#include "TavixReelRender/Film/ReelFilm.h"

#include <filesystem>
#include <optional>
#include <string>

namespace tavix::engine {

struct ReelDocument {
    ReelRecording recording;
    EffectsSpec spec;
    std::filesystem::path file;        // of the document, which need not be there
    std::filesystem::path assetRoot;   // of its relative paths; absolute
    std::string name;                  // of what is made from it: "walk-note"

    imaging::Size size() const { return {int(spec.output.widthPx), int(spec.output.heightPx)}; }
    ReelFootage footage() const;
    double durationSec() const;   // of the finished reel
};

// The document where the recording keeps it, or another file. Where there is none the reel is what the steps
// alone make of it, which is told. Throws as openRecording does, and a `DocumentError` for a document that
// cannot be read.
ReelDocument openReel(const std::string& recording, const std::optional<std::string>& effects,
    Terminal& terminal, ProbeMemory memory = ProbeMemory::used);

// Throws a `DocumentError` for a frame size, a rate or a length that nobody can mean.
void requireRenderable(const ReelDocument& reel);

// Throws `UsageError` when writing the target would destroy a file of the reel.
void requireNoPart(const std::filesystem::path& target, const ReelDocument& reel);

}   // namespace tavix::engine
