#include "TavixRender/Composition2D/ShapeCompositionLayer.h"

#include "TavixBase/Overloaded.h"
#include "TavixRender/Composition2D/CanvasEdge.h"
#include "TavixRender/Compositor/CanvasDrawing.h"

#include <algorithm>
#include <variant>

namespace tavix {

namespace {

using imaging::Image;
using imaging::Rect;

constexpr double ellipseCornerFraction = 0.5;

// The gradient of a shape spans the canvas. The shape itself may be larger, and is not cut: it may yet move.
Image filled(const ShapeFill& fill, const PixelRect& rect, double radiusPx, const Rect& canvas) {
    return std::visit(Overloaded{
                          [&](const RGBAColor& color) {
                              return Image::roundedRectangle(CanvasDrawing::flipped(rect, canvas), radiusPx,
                                  CanvasDrawing::colorOf(color));
                          },
                          [&](const LinearGradient& gradient) {
                              const Image mask = CanvasDrawing::makeRoundedRectMask(rect, radiusPx, canvas);
                              const Image colors = CanvasDrawing::gradientAcross(gradient, canvas);
                              return CanvasDrawing::masked(colors.cropped(mask.extent()), mask);
                          },
                      },
        fill);
}

Image drawn(const ShapeContent& shape, const PixelPoint& center, const Rect& canvas) {
    const double width = shape.widthFraction * canvas.width, height = shape.heightFraction * canvas.height;
    const PixelRect rect{center.x - width / 2, center.y - height / 2, width, height};
    const bool isEllipse = shape.shape == ShapeKind::ellipse;
    const double cornerFraction = isEllipse ? ellipseCornerFraction : shape.cornerRadiusFraction;
    const Image sharp = filled(shape.fill, rect, std::min(width, height) * cornerFraction, canvas);
    if (!(shape.blurRadiusFraction > 0)) return sharp;
    return CanvasEdge::blurred(sharp, canvas, canvas.height * shape.blurRadiusFraction);
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
