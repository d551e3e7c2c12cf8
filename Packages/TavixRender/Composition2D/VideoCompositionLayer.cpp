#include "TavixRender/Composition2D/VideoCompositionLayer.h"

#include "TavixRender/Composition2D/CompositionSourceCrop.h"
#include "TavixRender/Compositor/CanvasDrawing.h"

#include <algorithm>
#include <cmath>

namespace tavix {

namespace {

using imaging::Image;

PixelRect targetOf(const VideoContent& content, const imaging::Rect& bounds) {
    const NormalizedRect rect = content.rect.value_or(NormalizedRect{0, 0, 1, 1});
    return {rect.x * bounds.width, rect.y * bounds.height, rect.width * bounds.width,
        rect.height * bounds.height};
}

// The box that the whole frame fills one way at least, with a little to spare for what moves about.
imaging::Size largestShown(const VideoContent& content, const imaging::Rect& bounds, double magnification) {
    constexpr double spare = 1.25, mostPx = 1 << 20;
    const PixelRect target = targetOf(content, bounds);
    const NormalizedRect part = content.sourceRect.value_or(NormalizedRect{0, 0, 1, 1});
    const auto side = [&](double px, double fraction) {
        const double whole = spare * magnification * px / std::max(fraction, 1e-3);
        return int(std::ceil(std::min(std::abs(whole), mostPx)));
    };
    return {side(target.width, part.width), side(target.height, part.height)};
}

// About the middle of the target, as large as the scale makes it.
PixelRect centeredIn(const PixelRect& target, double width, double height) {
    return {target.x + (target.width - width) / 2, target.y + (target.height - height) / 2, width, height};
}

}   // namespace

VideoCompositionLayer::Place VideoCompositionLayer::placeOf(
    const VideoContent& content, const imaging::Rect& source, const imaging::Rect& bounds) {
    const PixelRect target = targetOf(content, bounds);
    const double across = target.width / source.width, down = target.height / source.height;
    const double scale = content.fit == VideoFit::cover ? std::max(across, down) : std::min(across, down);
    return {target, centeredIn(target, source.width * scale, source.height * scale)};
}

VideoCompositionLayer::VideoCompositionLayer(
    const VideoContent& content, const LayerBuild& build, double magnification)
    : clip_(screenFor(
          content.clip, build, content.holdLastFrame, largestShown(content, build.bounds, magnification))),
      content_(content), bounds_(build.bounds) {
    if (!(content.cornerRadiusFraction > 0)) return;
    const PixelRect target = targetOf(content, bounds_);
    const double radius = std::min(target.width, target.height) * content.cornerRadiusFraction;
    mask_ = CanvasDrawing::makeRoundedRectMask(target, radius, bounds_);
}

std::optional<Image> VideoCompositionLayer::contentImage(double localSec) {
    const auto frame = clip_->at(localSec);
    if (!frame) return std::nullopt;
    const Image source = CompositionSourceCrop::apply(*frame, content_.sourceRect);
    if (source.extent().isEmpty()) return std::nullopt;
    const Place place = placeOf(content_, source.extent(), bounds_);
    Image placed = CanvasDrawing::place(source, place.shown, bounds_, CanvasDrawing::Resampling::live);
    if (content_.fit == VideoFit::cover)
        placed = placed.cropped(CanvasDrawing::flipped(place.target, bounds_));
    return mask_ ? CanvasDrawing::masked(placed, *mask_) : placed;
}

}   // namespace tavix
