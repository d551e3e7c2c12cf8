// A layer that fills the canvas: a colour, a gradient or a backdrop picture.
#pragma once

#include "TavixRender/Composition2D/CompositionLayerContentRenderer.h"
#include "TavixRender/Composition2D/LayerBuild.h"

namespace tavix {

class FillCompositionLayer final : public CompositionLayerContentRenderer {
public:
    FillCompositionLayer(const BackgroundFill& fill, const LayerBuild& build);
    std::optional<imaging::Image> contentImage(double) override { return baked_; }

    // Shared with the backgrounds of scenes. Relative paths of the fill belong to the asset root.
    static imaging::Image drawn(const BackgroundFill& fill, const LayerBuild& build);

private:
    imaging::Image baked_;
};

}   // namespace tavix
