#include "TavixRender/Composition2D/FillCompositionLayer.h"

#include "TavixRender/Composition2D/CompositionAssets.h"
#include "TavixRender/Compositor/CameraRenderer.h"

#include <variant>

namespace tavix {

FillCompositionLayer::FillCompositionLayer(const BackgroundFill& fill, const LayerBuild& build)
    : baked_(drawn(fill, build)) {}

imaging::Image FillCompositionLayer::drawn(const BackgroundFill& fill, const LayerBuild& build) {
    const BackgroundFill absolute = CompositionAssets::absolutized(fill, build.assetRoot);
    const imaging::Image image = CameraRenderer::resolveBackgroundFill(absolute, build.bounds, build.images);
    // A colour needs no pixels and a gradient has its own; only a picture is scaled.
    if (!std::holds_alternative<BackgroundImage>(absolute)) return image;
    return build.evaluator.baked(image, imaging::pixelsCovering(build.bounds));
}

}   // namespace tavix
