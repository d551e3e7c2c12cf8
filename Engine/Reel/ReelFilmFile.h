// Renders a reel to the film that was asked for.
#pragma once

#include "Engine/Output/FilmArguments.h"
#include "Engine/Reel/ReelDocument.h"

namespace tavix::engine {

class Interruption;

// Says what was written. Throws `DocumentError` for a document that cannot be rendered, `UsageError` for
// wishes that cannot be met, and `Failure`.
void renderReel(const ReelDocument& reel, const FilmArguments& wishes, const Interruption& interruption,
    Terminal& terminal);

}   // namespace tavix::engine
