#include "TavixRender/Composition2D/FillCompositionLayer.h"

#include "TavixRender/Assets/CompositionAssets.h"
#include "TavixRender/Compositor/CanvasDrawing.h"

#include <algorithm>
#include <variant>

namespace tavix {

FillCompositionLayer::FillCompositionLayer(const BackgroundFill& fill, const LayerBuild& build)
    : baked_(drawn(fill, build)) {}

imaging::Image FillCompositionLayer::drawn(const BackgroundFill& fill, const LayerBuild& build) {
    const BackgroundFill absolute = CompositionAssets::absolutized(fill, build.assetRoot);
    const imaging::Image image = CanvasDrawing::resolveBackgroundFill(absolute, build.bounds, build.images);
    if (std::holds_alternative<RGBAColor>(absolute)) return image;   // needs no pixels
    if (std::max(build.bounds.width, build.bounds.height) > imaging::Bitmap::maxSidePx) return image;
    return build.evaluator.baked(image, imaging::pixelsCovering(build.bounds));
}

}   // namespace tavix
