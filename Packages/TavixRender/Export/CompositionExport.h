// A composition as it leaves the program: the picture, and its sound under it.
#pragma once

#include "TavixRender/Export/CompositionRenderer.h"

namespace tavix::CompositionExport {

// A film of a document with sound is made in two passes: the picture is rendered to a hidden file beside the
// output, and then copied under the mixed sound. Whatever happens, no hidden file stays. A GIF, or a document
// that asks for no sound, is rendered straight to the output. The first pass takes up to 0.95 of the
// progress. Throws as CompositionRenderer::render does.
void write(const CompositionRenderer::Config& config, const RenderLog& log,
    const CompositionRenderer::Progress& onProgress = {}, const std::stop_token& stop = {});

}   // namespace tavix::CompositionExport
