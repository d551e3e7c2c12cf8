// How large an export becomes and how long it takes, found out by exporting a stretch of it.
#pragma once

#include "TavixRender/Export/AnimationFit.h"
#include "TavixRender/Export/CompositionRenderer.h"

#include <cstdint>
#include <optional>
#include <stop_token>

namespace tavix::ExportTrial {

struct Outcome {
    double bytes = 0;   // of the pictures of the whole film
    double sec = 0;     // of work, on this machine as it is now
    // What it takes to keep to the bytes that the file may have; nothing where it does so as it usually is.
    std::optional<AnimationFit::Look> look = {};
    std::optional<std::int64_t> bitsPerSec = {};
};

// A stretch from the midst of the film, in a folder of its own that goes again. Takes some seconds at most
// beside opening the files. The output of the configuration counts for nothing. Throws `RenderStopped` when
// it is asked to stop, and `Failure` when nothing can be drawn or written.
Outcome run(const CompositionRenderer::Config& config, const std::stop_token& stop = {});

}   // namespace tavix::ExportTrial
