#include "TavixRender/Composition2D/VideoCompositionLayer.h"

#include "TavixRender/Composition2D/CompositionAssets.h"
#include "TavixRender/Composition2D/CompositionSourceCrop.h"
#include "TavixRender/Compositor/CameraRenderer.h"

#include <algorithm>

namespace tavix {

namespace {

using imaging::Image;

PixelRect targetOf(const VideoContent& content, const imaging::Rect& bounds) {
    const NormalizedRect rect = content.rect.value_or(NormalizedRect{0, 0, 1, 1});
    return {rect.x * bounds.width, rect.y * bounds.height, rect.width * bounds.width,
        rect.height * bounds.height};
}

// About the middle of the target, as large as the scale makes it.
PixelRect centeredIn(const PixelRect& target, double width, double height) {
    return {target.x + (target.width - width) / 2, target.y + (target.height - height) / 2, width, height};
}

}   // namespace

VideoCompositionLayer::VideoCompositionLayer(const VideoContent& content, const LayerBuild& build)
    : clip_(CompositionAssets::resolved(content.clip.path, build.assetRoot), content.clip,
          content.holdLastFrame, build.log),
      fit_(content.fit), target_(targetOf(content, build.bounds)), sourceRect_(content.sourceRect),
      bounds_(build.bounds) {
    if (!(content.cornerRadiusFraction > 0)) return;
    const double radius = std::min(target_.width, target_.height) * content.cornerRadiusFraction;
    mask_ = CameraRenderer::makeRoundedRectMask(target_, radius, bounds_);
}

std::optional<Image> VideoCompositionLayer::contentImage(double localSec) {
    const auto frame = clip_.frame(localSec);
    if (!frame) return std::nullopt;
    const Image source = CompositionSourceCrop::apply(*frame, sourceRect_);
    const imaging::Rect extent = source.extent();
    if (extent.isEmpty()) return std::nullopt;
    const double across = target_.width / extent.width, down = target_.height / extent.height;
    const double scale = fit_ == VideoFit::cover ? std::max(across, down) : std::min(across, down);
    const PixelRect rect = centeredIn(target_, extent.width * scale, extent.height * scale);
    Image placed = CameraRenderer::place(source, rect, bounds_, CameraRenderer::Resampling::live);
    if (fit_ == VideoFit::cover) placed = placed.cropped(CameraRenderer::flipped(target_, bounds_));
    return mask_ ? CameraRenderer::masked(placed, *mask_) : placed;
}

}   // namespace tavix
