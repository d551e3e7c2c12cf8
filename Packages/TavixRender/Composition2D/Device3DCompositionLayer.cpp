#include "TavixRender/Composition2D/Device3DCompositionLayer.h"

#include "TavixRender/Composition2D/CompositionAssets.h"
#include "TavixRender/Compositor/DeviceFrame.h"
#include "TavixRender/DeviceScene/Composition3DRendererPool.h"
#include "TavixRender/DeviceScene/DeviceModelLoader.h"
#include "TavixRender/DeviceScene/RealityDeviceSceneRenderer.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <variant>

namespace tavix {

namespace {

using imaging::Image;
using imaging::Rect;

// A canvas with a longer side has pixels enough by itself.
constexpr double longestDoubledSidePx = 2048;
constexpr double sameAspect = 0.001;
// Within this a scrub shows the screen of before.
constexpr double heldScreenSec = 0.12;
constexpr int renderScaleInPool = 1, renderScaleAlone = 2;

Rect scaledRect(const PixelRect& rect, int scale) {
    return {rect.x * scale, rect.y * scale, rect.width * scale, rect.height * scale};
}

imaging::Size scaledSize(const Rect& bounds, int scale) {
    return {static_cast<int>(bounds.width * scale), static_cast<int>(bounds.height * scale)};
}

RealityDeviceSceneRenderer::Settings settingsOf(
    const DeviceContent& content, const LayerBuild& build, const Rect& deviceRect, int layerScale) {
    const DeviceScene3D& scene3D = *content.scene3D;
    RealityDeviceSceneRenderer::Settings settings;
    settings.initialScene = scene3D.asDeviceScene();
    settings.output = scaledSize(build.bounds, layerScale);
    settings.renderScale = build.rendererPool != nullptr ? renderScaleInPool : renderScaleAlone;
    settings.deviceRect = deviceRect;
    settings.fps = build.framesPerSec;
    settings.backdrop = Image::solid(imaging::Color::clear());
    settings.placementSpec = content.placement.value_or(placementOf(settings.initialScene));
    settings.motionBlurGain = scene3D.motionBlur;
    settings.depthTrack = scene3D.depthTrack;
    settings.smoothPose = true;
    return settings;
}

}   // namespace

int Device3DCompositionLayer::renderScaleFor(const Rect& bounds) {
    return std::max(bounds.width, bounds.height) > longestDoubledSidePx ? 1 : 2;
}

std::unique_ptr<Device3DCompositionLayer> Device3DCompositionLayer::make(
    const DeviceContent& content, const LayerBuild& build, const std::string& poolKey) {
    if (!DeviceModelLoader::modelURL()) return nullptr;
    std::unique_ptr<Device3DCompositionLayer> layer(new Device3DCompositionLayer(content, build));
    const CameraRenderer::FittedDevice device = CameraRenderer::resolveDevice(
        content.mockup, content.basePaddingPx, build.bounds, build.assetRoot, build.images);
    layer->screenAspect_ = device.screenRect.width / std::max(device.screenRect.height, 1.0);
    const int scale = layer->renderScale_;
    const Rect deviceRect = scaledRect(device.frameRect, scale);
    const Composition3DRendererPool::Invariants invariants{build.bounds.width * scale,
        build.bounds.height * scale, build.framesPerSec, deviceRect, content.scene3D->finish};
    if (build.rendererPool != nullptr) layer->renderer_ = build.rendererPool->checkout(poolKey, invariants);
    layer->needsApplyScene_ = layer->renderer_ != nullptr;
    if (layer->renderer_ != nullptr) return layer;
    layer->renderer_ =
        std::make_shared<RealityDeviceSceneRenderer>(settingsOf(content, build, deviceRect, scale));
    if (build.rendererPool != nullptr) build.rendererPool->store(poolKey, invariants, layer->renderer_);
    return layer;
}

Device3DCompositionLayer::Device3DCompositionLayer(const DeviceContent& content, const LayerBuild& build)
    : evaluator_(build.evaluator), log_(build.log), bounds_(build.bounds), scene3D_(*content.scene3D),
      placement_(content.placement), renderScale_(renderScaleFor(build.bounds)) {
    if (const auto* still = std::get_if<StillScreen>(&content.screen))
        stillScreen_ = build.images.image(CompositionAssets::resolved(still->path, build.assetRoot));
    else if (const auto* video = std::get_if<VideoClip>(&content.screen))
        clip_.emplace(CompositionAssets::resolved(video->path, build.assetRoot), *video, true, build.log);
}

std::optional<Image> Device3DCompositionLayer::contentImageOnMain(double localSec) {
    if (std::exchange(needsApplyScene_, false))
        renderer_->applyScene(scene3D_.asDeviceScene(), placement_, scene3D_.motionBlur, scene3D_.depthTrack);
    const auto screen = screenAt(localSec);
    if (!screen) return std::nullopt;
    const imaging::Digest hash = renderer_->frameHash(*screen, localSec);
    if (lastFrame_ && lastFrame_->hash == hash) return lastFrame_->image;
    Image image = renderer_->render(*screen, localSec, {evaluator_, log_});
    if (renderScale_ > 1) image = image.placedInto(bounds_);
    // Drawn now: at the canvas's own size a frame is a quarter of what it is made from, which can go.
    lastFrame_ = {hash, evaluator_.drawnForFrame(image.cropped(bounds_), imaging::pixelsCovering(bounds_))};
    return lastFrame_->image;
}

std::optional<Image> Device3DCompositionLayer::screenAt(double localSec) {
    if (scrubQuality_ && heldScreen_ && std::abs(localSec - heldScreen_->sec) < heldScreenSec)
        return heldScreen_->fitted;
    const auto source = stillScreen_ ? stillScreen_
                        : clip_      ? clip_->frame(localSec, scrubQuality_)
                                     : std::nullopt;
    if (!source) return std::nullopt;
    heldScreen_ = {coverCrop(*source, screenAspect_), localSec};
    return heldScreen_->fitted;
}

Image coverCrop(const Image& image, double aspect) {
    const Rect extent = image.extent();
    const double w = extent.width, h = extent.height;
    if (!(w > 0 && h > 0 && aspect > 0) || std::abs(w / h - aspect) < sameAspect) return image;
    const bool isTooWide = w / h > aspect;
    const double width = isTooWide ? h * aspect : w, height = isTooWide ? h : w / aspect;
    const Image cut = image.cropped({extent.x + (w - width) / 2, extent.y + (h - height) / 2, width, height});
    return cut.translated(-cut.extent().x, -cut.extent().y);
}

}   // namespace tavix
