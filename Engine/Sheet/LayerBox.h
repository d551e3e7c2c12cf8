// Where a layer is seen in a frame, by its pixels.
#pragma once

#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"

#include <cstddef>
#include <optional>

namespace tavix::engine {

// The smallest box around what a layer draws at a moment of its scene, in pixels of the canvas, y up, to
// about a two-hundredth of the frame. The layer counts in the document as it was written: a formation is one
// layer, with a box around all of its devices. Nothing where it draws nothing inside.
std::optional<imaging::Rect> layerBox(ResolvedComposition& composition, std::size_t scene, std::size_t layer,
    double localSec, imaging::Evaluator& evaluator);

}   // namespace tavix::engine
