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

// One after another, all frames of the film. The places depend on the film's times alone: where something
// else begins to be seen, in seconds that rise, and evenly between, so that no piece is longer than two
// seconds. What begins within half a second of the one before begins no piece.
std::vector<FilmPiece> filmPieces(
    const std::vector<double>& startsSec, const FrameRate& fps, std::int64_t frameCount);
// Of a composition: where scenes begin to be seen.
std::vector<FilmPiece> filmPieces(const CompositionSpec& spec);

}   // namespace tavix
