#include "TavixRender/Composition2D/ResolvedCompositionLayer.h"

#include "TavixRender/Composition2D/CanvasEdge.h"
#include "TavixRender/KineticText/KineticImageFX.h"

namespace tavix {

namespace {

constexpr double visibleOpacity = 0.001;
constexpr double fullOpacity = 0.999;
constexpr double visibleBlurFraction = 0.0005;

}   // namespace

std::optional<imaging::Image> ResolvedCompositionLayer::finish(
    const imaging::Image& image, double localSec, double outputHeight, const imaging::Rect& bounds) const {
    const LayerMotion motion = LayerMotion::at(layer, localSec, window.lengthSec());
    if (motion.opacity <= visibleOpacity) return std::nullopt;
    imaging::Image result = effects.apply(image);
    if (!motion.movesNothing()) result = result.transformed(motion.transform(anchor, outputHeight));
    if (motion.blurFraction > visibleBlurFraction)
        result = CanvasEdge::blurredInPlace(result, bounds, motion.blurFraction * outputHeight);
    if (motion.opacity < fullOpacity) result = KineticImageFX::alphaMul(result, motion.opacity);
    return result.cropped(bounds);
}

}   // namespace tavix
