#include "TavixRender/Composition2D/ImageCompositionLayer.h"

#include "TavixRender/Assets/CompositionAssets.h"
#include "TavixRender/Composition2D/CompositionSourceCrop.h"
#include "TavixRender/Compositor/CanvasDrawing.h"

#include <algorithm>

namespace tavix {

namespace {

using imaging::Image;
using imaging::Rect;

PixelRect scaledBy(const PixelRect& rect, double factor) {
    return {rect.x * factor, rect.y * factor, rect.width * factor, rect.height * factor};
}

}   // namespace

PixelRect ImageCompositionLayer::target(
    const Rect& source, const ImageContent& content, const PixelPoint& center, double canvasHeight) {
    const double height = content.heightFraction ? canvasHeight * *content.heightFraction : source.height;
    const double width = height * source.width / source.height;
    return {center.x - width / 2, center.y - height / 2, width, height};
}

ImageCompositionLayer::ImageCompositionLayer(
    const ImageContent& content, const CompositionLayer& layer, const LayerBuild& build) {
    const auto file = build.images.image(CompositionAssets::resolved(content.path, build.assetRoot));
    if (!file) return;
    const Image source = CompositionSourceCrop::apply(*file, content.sourceRect);
    const PixelRect rect = target(source.extent(), content, layer.position, build.bounds.height);
    const auto drawnAt = [&](int detail) {
        const PixelRect place = scaledBy(rect, detail);
        const Rect canvas{0, 0, build.bounds.width * detail, build.bounds.height * detail};
        const Image placed = CanvasDrawing::place(source, place, canvas, CanvasDrawing::Resampling::still);
        if (!(content.cornerRadiusFraction > 0)) return placed;
        const double radius = std::min(place.width, place.height) * content.cornerRadiusFraction;
        return CanvasDrawing::masked(placed, CanvasDrawing::makeRoundedRectMask(place, radius, canvas));
    };
    // Drawing it larger than the file brings out nothing more.
    const double detailLeft = std::max(1.0, source.extent().height / std::max(rect.height, 1e-6));
    const double magnification = std::min(peakMagnification(layer), detailLeft);
    baked_ = bakedForMagnification(drawnAt, magnification, build.evaluator);
}

}   // namespace tavix
