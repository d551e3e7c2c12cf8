// Where a layer is seen in a frame, by its pixels.
#pragma once

#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"
#include "TavixRender/Judge/FrameGeometry.h"

#include <cstddef>
#include <optional>

namespace tavix::engine {

// Layers count in the document as it was written: a formation is one layer, and a box is around all of its
// devices.

// Whether a layer has its time at a moment of its scene, at another one, or never.
enum class LayerTime { now, other, never };
LayerTime layerTime(
    const ResolvedComposition& composition, std::size_t scene, std::size_t layer, double localSec);

// The smallest box around what a layer draws at a moment of its scene, in pixels of the canvas, y up, to
// about a two-hundredth of the frame. Nothing where it draws nothing inside.
std::optional<imaging::Rect> layerBox(ResolvedComposition& composition, std::size_t scene, std::size_t layer,
    double localSec, imaging::Evaluator& evaluator);

// Where a layer stands that nothing is seen of; at the edge of the frame for one outside.
std::optional<imaging::Rect> unseenBox(
    const CompositionGeometry& geometry, std::size_t scene, std::size_t layer, double localSec);

}   // namespace tavix::engine
