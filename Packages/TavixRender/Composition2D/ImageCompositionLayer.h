// A layer with a still picture from a file.
#pragma once

#include "TavixCore/Values/PixelRect.h"
#include "TavixRender/Composition2D/CompositionLayerContentRenderer.h"
#include "TavixRender/Composition2D/LayerBuild.h"

namespace tavix {

class ImageCompositionLayer final : public CompositionLayerContentRenderer {
public:
    ImageCompositionLayer(
        const ImageContent& content, const CompositionLayer& layer, const LayerBuild& build);
    std::optional<imaging::Image> contentImage(double) override { return baked_; }

    // Where a picture of that size is shown, in pixels from the top left of the canvas.
    static PixelRect target(const imaging::Rect& source, const ImageContent& content,
        const PixelPoint& center, double canvasHeight);

private:
    std::optional<imaging::Image> baked_;   // nothing when the file cannot be read
};

}   // namespace tavix
