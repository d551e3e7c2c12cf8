// A composition as a film of pieces.
#pragma once

#include "TavixRender/Export/CompositionRenderer.h"
#include "TavixRender/Export/PieceRender.h"

namespace tavix::CompositionExport {

// Throws a `Failure` for a composition without a frame.
PiecedFilm filmOf(const CompositionRenderer::Config& config);

// As FilmExport::write.
PieceRender::Report write(const CompositionRenderer::Config& config, const RenderLog& log,
    const CompositionRenderer::Progress& onProgress = {}, const std::stop_token& stop = {});

}   // namespace tavix::CompositionExport
