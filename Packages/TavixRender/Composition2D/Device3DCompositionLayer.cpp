#include "TavixRender/Composition2D/Device3DCompositionLayer.h"

#include "TavixRender/Compositor/DeviceFrame.h"
#include "TavixRender/DeviceScene/Composition3DRendererPool.h"
#include "TavixRender/DeviceScene/DeviceModelLoader.h"
#include "TavixRender/DeviceScene/DeviceSceneRenderer.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <utility>
#include <variant>

namespace tavix {

namespace {

using imaging::Image;
using imaging::Rect;

// Up to here motion is judged as if a canvas had twice as many pixels along a side.
constexpr double longestDoubledSidePx = 2048;
constexpr double sameAspect = 0.001;
// Within this a scrub shows the screen of before.
constexpr double heldScreenSec = 0.12;
// What a preview tells of a device that takes as long as a frame of 25 a second.
constexpr double toldSec = 0.041;

DeviceSceneRenderer::Settings settingsOf(
    const DeviceContent& content, const LayerBuild& build, const Rect& deviceRect) {
    const DeviceScene3D& scene3D = *content.scene3D;
    DeviceSceneRenderer::Settings settings;
    settings.initialScene = scene3D.asDeviceScene();
    settings.output = {static_cast<int>(build.bounds.width), static_cast<int>(build.bounds.height)};
    settings.quality = build.rendererPool != nullptr ? DeviceQuality::preview : DeviceQuality::full;
    settings.deviceRect = deviceRect;
    settings.fps = build.framesPerSec;
    settings.backdrop = Image::solid(imaging::Color::clear());
    settings.placementSpec = content.placement.value_or(placementOf(settings.initialScene));
    settings.motionBlurGain = scene3D.motionBlur;
    settings.blurScale = std::max(build.bounds.width, build.bounds.height) > longestDoubledSidePx ? 1 : 2;
    settings.depthTrack = scene3D.depthTrack;
    settings.smoothPose = true;
    settings.darkroom = build.darkroom;
    return settings;
}

}   // namespace

// What a picture of the device took.
struct Device3DCompositionLayer::Stages {
    double decodeSec = 0, passesSec = 0, rasterSec = 0;

    // Since the lap before, or the beginning.
    double lap() {
        const auto now = std::chrono::steady_clock::now();
        return std::chrono::duration<double>(now - std::exchange(before, now)).count();
    }
    std::chrono::steady_clock::time_point before = std::chrono::steady_clock::now();
};

bool Device3DCompositionLayer::canMake(const DeviceContent& content) {
    return content.scene3D && DeviceModelLoader::modelPath();
}

std::unique_ptr<Device3DCompositionLayer> Device3DCompositionLayer::make(
    const DeviceContent& content, const LayerBuild& build, const Composition3DRendererPool::Key& poolKey) {
    if (!canMake(content)) return nullptr;
    std::unique_ptr<Device3DCompositionLayer> layer(new Device3DCompositionLayer(content, build));
    const CanvasDrawing::DevicePlace device =
        CanvasDrawing::placeOfDevice(content.mockup, content.basePaddingPx, build.bounds, build.assetRoot);
    layer->screenAspect_ = device.screenRect.width / std::max(device.screenRect.height, 1.0);
    const PixelRect& frame = device.frameRect;
    const Rect deviceRect{frame.x, frame.y, frame.width, frame.height};
    const Composition3DRendererPool::Invariants invariants{
        build.bounds.width, build.bounds.height, build.framesPerSec, deviceRect, content.scene3D->finish};
    if (build.rendererPool != nullptr) {
        layer->shelf_ = Shelf{build.rendererPool, poolKey, invariants};
        layer->renderer_ = build.rendererPool->checkout(poolKey, invariants);
    }
    layer->needsApplyScene_ = layer->renderer_ != nullptr;
    if (layer->renderer_ != nullptr) return layer;
    layer->renderer_ = std::make_shared<DeviceSceneRenderer>(settingsOf(content, build, deviceRect));
    layer->appliedVersion_ = layer->renderer_->sceneVersion();
    if (build.rendererPool != nullptr) build.rendererPool->store(poolKey, invariants, layer->renderer_);
    return layer;
}

Device3DCompositionLayer::Device3DCompositionLayer(const DeviceContent& content, const LayerBuild& build)
    : evaluator_(build.evaluator), log_(build.log), bounds_(build.bounds), scene3D_(*content.scene3D),
      placement_(content.placement), screen_(screenFor(content.screen, build)) {}

std::optional<Image> Device3DCompositionLayer::contentImage(double localSec) {
    if (std::exchange(needsApplyScene_, false)) {
        renderer_->applyScene(scene3D_.asDeviceScene(), placement_, scene3D_.motionBlur, scene3D_.depthTrack);
        appliedVersion_ = renderer_->sceneVersion();
    }
    Stages took;
    const auto screen = screenAt(localSec);
    if (!screen) return std::nullopt;
    took.decodeSec = took.lap();
    renderer_->setRough(isRough_);
    const Digest hash = renderer_->frameHash(*screen, localSec);
    if (lastFrame_ && lastFrame_->hash == hash) return lastFrame_->image;
    const Image image = renderer_->render(*screen, localSec, {evaluator_, log_});
    took.passesSec = took.lap();
    // Drawn now: a finished frame is a part of what it is made from, which can go.
    lastFrame_ = {hash, evaluator_.drawnForFrame(image.cropped(bounds_), imaging::pixelsCovering(bounds_))};
    took.rasterSec = took.lap();
    if (shelf_) logStages(localSec, took);
    return lastFrame_->image;
}

void Device3DCompositionLayer::logStages(double localSec, const Stages& took) const {
    if (took.decodeSec + took.passesSec + took.rasterSec < toldSec) return;
    const auto inMs = [](double sec) { return std::lround(sec * 1000); };
    char line[128];
    std::snprintf(line, sizeof line, "dev3D u=%.2f decode=%ldms rk=%ldms raster=%ldms", localSec,
        inMs(took.decodeSec), inMs(took.passesSec), inMs(took.rasterSec));
    tell(log_, Finding::progress(RenderCode::scrub, line));
}

// The stages of devices may have been forgotten since: a drag finds this one there again.
void Device3DCompositionLayer::takenOver() {
    if (shelf_) shelf_->pool->store(shelf_->key, shelf_->invariants, renderer_);
    needsApplyScene_ = needsApplyScene_ || renderer_->sceneVersion() != appliedVersion_;
}

bool Device3DCompositionLayer::prepare() {
    const bool hasOpened = screen_->open();
    return renderer_->prepare({evaluator_, log_}) || hasOpened;
}

void Device3DCompositionLayer::rest() {
    screen_->rest();
    renderer_->rest();
    heldScreen_.reset();
    lastFrame_.reset();
}

std::optional<Image> Device3DCompositionLayer::screenAt(double localSec) {
    if (scrubQuality_ && heldScreen_ && std::abs(localSec - heldScreen_->sec) < heldScreenSec)
        return heldScreen_->fitted;
    const auto source = screen_->at(localSec, scrubQuality_);
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
