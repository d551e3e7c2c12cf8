// Renders a reel to the film that was asked for.
#pragma once

#include "Engine/Output/FilmRender.h"
#include "Engine/Reel/ReelDocument.h"

namespace tavix::engine {

struct ReelFilmWishes {
    const FilmArguments& film;
    const FilmRender& render;
};

// Says what was written. Throws `DocumentError` for a document that cannot be rendered, `UsageError` for
// wishes that cannot be met, and `Failure`.
void renderReel(const ReelDocument& reel, const ReelFilmWishes& wishes, const FilmRender::Tellers& tellers);

}   // namespace tavix::engine
