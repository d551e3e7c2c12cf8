#include "TavixRender/Composition2D/ShapeCompositionLayer.h"

#include "TavixRender/Compositor/CameraRenderer.h"

#include <algorithm>
#include <variant>

namespace tavix {

namespace {

using imaging::Image;
using imaging::Rect;

constexpr double ellipseCornerFraction = 0.5;

// The gradient of a shape spans the canvas.
Image colourSource(const ShapeFill& fill, const Rect& canvas) {
    if (const auto* gradient = std::get_if<LinearGradient>(&fill))
        return CameraRenderer::renderGradient(*gradient, canvas);
    return Image::solid(CameraRenderer::colorOf(std::get<RGBAColor>(fill))).cropped(canvas);
}

Image drawn(const ShapeContent& shape, const PixelPoint& center, const Rect& canvas) {
    const double width = shape.widthFraction * canvas.width, height = shape.heightFraction * canvas.height;
    const PixelRect rect{center.x - width / 2, center.y - height / 2, width, height};
    const bool isEllipse = shape.shape == ShapeKind::ellipse;
    const double cornerFraction = isEllipse ? ellipseCornerFraction : shape.cornerRadiusFraction;
    const Image mask =
        CameraRenderer::makeRoundedRectMask(rect, std::min(width, height) * cornerFraction, canvas);
    const Image cut = CameraRenderer::masked(colourSource(shape.fill, canvas), mask);
    if (!(shape.blurRadiusFraction > 0)) return cut;
    return cut.clampedToExtent().gaussianBlurred(canvas.height * shape.blurRadiusFraction).cropped(canvas);
}

}   // namespace

ShapeCompositionLayer::ShapeCompositionLayer(
    const ShapeContent& shape, const CompositionLayer& layer, const LayerBuild& build) {
    const auto drawnAt = [&](int detail) {
        const Rect canvas{0, 0, build.bounds.width * detail, build.bounds.height * detail};
        return drawn(shape, {layer.position.x * detail, layer.position.y * detail}, canvas);
    };
    baked_ = bakedForMagnification(drawnAt, peakMagnification(layer), build.evaluator);
}

}   // namespace tavix
