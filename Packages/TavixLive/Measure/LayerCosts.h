// Which layers of a document make it dear.
#pragma once

#include "TavixLive/Measure/Rehearsal.h"

namespace tavix {

// Of every layer, as if it were alone on its scene: what its document takes to build, and a frame in the
// middle of its time to draw, beyond the same without it. The dearest first.
std::vector<RehearsalReport::LayerCost> layerCosts(const CompositionSpec& spec,
    const std::optional<std::filesystem::path>& assetRoot, imaging::Size room, const RenderLog& log);

}   // namespace tavix
