// A layer with a still picture from a file.
#pragma once

#include "TavixRender/Composition2D/CompositionLayerContentRenderer.h"
#include "TavixRender/Composition2D/LayerBuild.h"

namespace tavix {

class ImageCompositionLayer final : public CompositionLayerContentRenderer {
public:
    ImageCompositionLayer(
        const ImageContent& content, const CompositionLayer& layer, const LayerBuild& build);
    std::optional<imaging::Image> contentImage(double) override { return baked_; }

private:
    std::optional<imaging::Image> baked_;   // nothing when the file cannot be read
};

}   // namespace tavix
