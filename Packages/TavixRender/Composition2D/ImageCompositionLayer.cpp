#include "TavixRender/Composition2D/ImageCompositionLayer.h"

#include "TavixRender/Composition2D/CompositionAssets.h"
#include "TavixRender/Composition2D/CompositionSourceCrop.h"
#include "TavixRender/Compositor/CameraRenderer.h"

#include <algorithm>

namespace tavix {

namespace {

using imaging::Image;
using imaging::Rect;

PixelRect scaledBy(const PixelRect& rect, double factor) {
    return {rect.x * factor, rect.y * factor, rect.width * factor, rect.height * factor};
}

PixelRect targetRect(
    const Image& source, const ImageContent& content, const PixelPoint& center, double canvasHeight) {
    const Rect extent = source.extent();
    const double height = content.heightFraction ? canvasHeight * *content.heightFraction : extent.height;
    const double width = height * extent.width / extent.height;
    return {center.x - width / 2, center.y - height / 2, width, height};
}

}   // namespace

ImageCompositionLayer::ImageCompositionLayer(
    const ImageContent& content, const CompositionLayer& layer, const LayerBuild& build) {
    const auto file = build.images.image(CompositionAssets::resolved(content.path, build.assetRoot));
    if (!file) return;
    const Image source = CompositionSourceCrop::apply(*file, content.sourceRect);
    const PixelRect rect = targetRect(source, content, layer.position, build.bounds.height);
    const auto drawnAt = [&](int detail) {
        const PixelRect target = scaledBy(rect, detail);
        const Rect canvas{0, 0, build.bounds.width * detail, build.bounds.height * detail};
        const Image placed = CameraRenderer::place(source, target, canvas, CameraRenderer::Resampling::still);
        if (!(content.cornerRadiusFraction > 0)) return placed;
        const double radius = std::min(target.width, target.height) * content.cornerRadiusFraction;
        return CameraRenderer::masked(placed, CameraRenderer::makeRoundedRectMask(target, radius, canvas));
    };
    // Drawing it larger than the file brings out nothing more.
    const double detailLeft = std::max(1.0, source.extent().height / std::max(rect.height, 1e-6));
    const double magnification = std::min(peakMagnification(layer), detailLeft);
    baked_ = bakedForMagnification(drawnAt, magnification, build.evaluator);
}

}   // namespace tavix
