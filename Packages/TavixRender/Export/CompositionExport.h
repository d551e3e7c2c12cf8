// A composition as it leaves the program: the picture, and its sound under it.
#pragma once

#include "TavixRender/Export/CompositionRenderer.h"
#include "TavixRender/Export/PieceRender.h"

namespace tavix::CompositionExport {

// A film is made of pieces, which lie in hidden files beside the output while it is made, and joined under
// the mixed sound; whatever happens, no hidden file stays. Pieces take up to 0.95 of the progress. A GIF is
// rendered straight to the output. Throws `Failure`; `stop` ends in `RenderStopped`.
PieceRender::Report write(const CompositionRenderer::Config& config, const RenderLog& log,
    const CompositionRenderer::Progress& onProgress = {}, const std::stop_token& stop = {});

}   // namespace tavix::CompositionExport
