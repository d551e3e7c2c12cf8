// A layer that is ready to be drawn: its content, when it is shown, and about which point it moves.
#pragma once

#include "TavixCore/Document/LayerWindow.h"
#include "TavixRender/Composition2D/CompositionLayerContentRenderer.h"
#include "TavixRender/Composition2D/CompositionLayerEffects.h"
#include "TavixRender/Composition2D/LayerMotion.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace tavix {

struct ResolvedCompositionLayer {
    CompositionLayer layer;
    std::shared_ptr<CompositionLayerContentRenderer> renderer;   // shared with the memory of the build
    LayerWindow window;
    imaging::Point anchor;             // image coordinates
    CompositionLayerEffects effects;   // of `layer.effects`, made ready for this canvas
    std::uint64_t lookID = 0;          // as in BuildMemory; 0 without one

    // Effects, motion, blur and opacity, in this order. Nothing when the layer cannot be seen at that time.
    std::optional<imaging::Image> finish(
        const imaging::Image& image, double localSec, double outputHeight, const imaging::Rect& bounds) const;
};

}   // namespace tavix
