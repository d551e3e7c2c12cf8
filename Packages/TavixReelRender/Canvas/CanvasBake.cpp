#include "TavixReelRender/Canvas/CanvasBake.h"

#include "TavixRender/Composition2D/FillCompositionLayer.h"
#include "TavixRender/Compositor/CanvasDrawing.h"

namespace tavix {

namespace {

using imaging::Image;
using imaging::Rect;

// The whole device throws the shadow: its frame, and the screen that shows through the frame's hole.
Image silhouette(const CanvasBake& bake, const Rect& bounds) {
    const Image screen =
        CanvasDrawing::makeRoundedRectMask(bake.device.screenRect, bake.device.cornerRadiusPx, bounds);
    return bake.frame.over(screen);
}

std::optional<Image> castShadow(const Image& shape, const Shadow& shadow, const LayerBuild& build) {
    if (!(shadow.radius > 0) || !(shadow.opacity > 0)) return std::nullopt;
    RGBAColor color = shadow.color;
    const double alpha = color.a * shadow.opacity;
    color.a = 1;
    const Image cast = Image::solid(CanvasDrawing::colorOf(color))
                           .atop(shape)
                           .withOpacity(alpha)
                           .translated(0, -shadow.offsetY)
                           .gaussianBlurred(shadow.radius);
    return build.evaluator.baked(cast.cropped(build.bounds), imaging::pixelsCovering(build.bounds));
}

}   // namespace

CanvasBake CanvasBake::make(const EffectsSpec& spec, const LayerBuild& build) {
    const Background& background = spec.background;
    CanvasBake bake;
    bake.device = CanvasDrawing::resolveDevice(
        background.device, background.padding, build.bounds, build.assetRoot, build.images);
    const Image placed = CanvasDrawing::place(
        bake.device.picture, bake.device.frameRect, build.bounds, CanvasDrawing::Resampling::still);
    bake.frame = build.evaluator.baked(placed, imaging::pixelsCovering(build.bounds));
    bake.wallpaper = FillCompositionLayer::drawn(background.fill, build);
    bake.backdrop = bake.wallpaper;
    if (spec.deviceScene && spec.deviceScene->enabled) return bake;
    bake.shadow = castShadow(silhouette(bake, build.bounds), background.shadow, build);
    if (bake.shadow)
        bake.backdrop =
            build.evaluator.baked(bake.shadow->over(bake.wallpaper), imaging::pixelsCovering(build.bounds));
    return bake;
}

}   // namespace tavix
