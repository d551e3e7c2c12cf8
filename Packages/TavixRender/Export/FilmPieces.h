// Where a film is cut into pieces that are encoded one by one and joined again.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"

#include <cstdint>
#include <vector>

namespace tavix {

struct FilmPiece {
    std::int64_t firstFrame = 0, frameCount = 0;
    bool operator==(const FilmPiece&) const = default;
};

// One after another, all frames of the film. The places depend on the document alone: where scenes begin to
// be seen, and evenly between, so that no piece is longer than two seconds. A scene that begins within half a
// second of the one before begins no piece.
std::vector<FilmPiece> filmPieces(const CompositionSpec& spec);

}   // namespace tavix
