// A layer with a rectangle or an ellipse.
#pragma once

#include "TavixRender/Composition2D/CompositionLayerContentRenderer.h"
#include "TavixRender/Composition2D/LayerBuild.h"

namespace tavix {

class ShapeCompositionLayer final : public CompositionLayerContentRenderer {
public:
    ShapeCompositionLayer(const ShapeContent& shape, const CompositionLayer& layer, const LayerBuild& build);
    std::optional<imaging::Image> contentImage(double) override { return baked_; }

private:
    imaging::Image baked_;
};

}   // namespace tavix
