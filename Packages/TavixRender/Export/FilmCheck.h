// Looks at a finished film: whether it is what was made.
#pragma once

#include "TavixRender/Export/CompositionRenderer.h"

#include <cstdint>
#include <filesystem>
#include <stop_token>

namespace tavix::FilmCheck {

// Throws `Failure` with what is wrong unless the file has all frames of the film, each at its time, in its
// size. Decodes nothing.
void probe(const CompositionRenderer::Config& config, const std::filesystem::path& film);

struct Likeness {
    std::int64_t framesDecoded = 0, framesCompared = 0;
    // Of the worst frame: structural similarity of brightness, 1 for the same (Wang et al. 2004), and how far
    // the mean colour of a ninth of the frame lies off, in 255ths.
    double leastSimilarity = 1, mostColorError = 0;
};

// Decodes the whole film and compares a frame of every second, and the last one, with the document's, drawn
// anew. Throws `Failure` where a frame is not to be had or looks like another one; `RenderStopped`.
Likeness verify(const CompositionRenderer::Config& config, const std::filesystem::path& film,
    const CompositionRenderer::Progress& onProgress = {}, const std::stop_token& stop = {});

}   // namespace tavix::FilmCheck
