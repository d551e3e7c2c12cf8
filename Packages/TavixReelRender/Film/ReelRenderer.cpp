#include "TavixReelRender/Film/ReelRenderer.h"

#include "TavixCore/Device/ChoreographyAuthor.h"
#include "TavixRender/Composition2D/FillCompositionLayer.h"
#include "TavixRender/Composition2D/FlatDeviceMotion.h"
#include "TavixRender/Compositor/CanvasDrawing.h"
#include "TavixRender/Compositor/MovedDevice.h"
#include "TavixRender/DeviceScene/DeviceModelLoader.h"
#include "TavixRender/DeviceScene/DeviceSceneRenderer.h"

#include <algorithm>

namespace tavix {

using imaging::Image;

ReelRenderer::ReelRenderer(const EffectsSpec& spec, Footage footage, const LayerBuild& build)
    : bounds_(build.bounds), evaluator_(build.evaluator), log_(build.log),
      bake_(CanvasBake::make(spec, build)), screen_(spec, footage.size, std::move(footage.transitions)),
      captions_(spec, build) {
    const PixelRect& content = bake_.device.screenRect;
    screenAspect_ = content.width / std::max(content.height, 1.0);
    for (const TitleCard& card : spec.titleCards) cards_.emplace_back(card, spec.background.fill, build);
    if (spec.cutDressing) cutDressing_.emplace(*spec.cutDressing, std::move(footage.seamsSec));
    if (spec.deviceScene && spec.deviceScene->enabled) buildSpace(spec, footage.compositionSec, build);
    if (space_ || !spec.devicePlacement()) return;
    const DevicePlacementSpec& placement = *spec.devicePlacement();
    placement_ = DevicePlacementTrajectory::chasing(
        placement.resolvedTrack(bounds_.width, bounds_.height, footage.compositionSec), build.framesPerSec,
        {placement.responseSec, placement.damping});
}

ReelRenderer::~ReelRenderer() = default;

namespace {

// A flip turns the device; a document that was written by hand may not say how.
std::vector<DevicePoseKeyframe> poseTrackOf(const EffectsSpec& spec) {
    const DeviceScene& scene = *spec.deviceScene;
    if (!scene.poseTrack.empty()) return scene.poseTrack;
    std::vector<double> flipsSec;
    for (const ScreenTransition& transition : spec.transitions())
        if (transition.style == TransitionStyle::flip) flipsSec.push_back(transition.atSec);
    if (flipsSec.empty()) return {};
    return ChoreographyAuthor::flipTrack(std::move(flipsSec), scene.tiltDegrees);
}

}   // namespace

void ReelRenderer::buildSpace(
    const EffectsSpec& spec, const TimeRemap& compositionSec, const LayerBuild& build) {
    if (!DeviceModelLoader::modelPath()) {
        tell(log_, Finding::warning(RenderCode::phoneMissing,
                       "deviceScene requested but the phone model is unavailable; rendering flat."));
        return;
    }
    DeviceSceneRenderer::Settings settings;
    settings.initialScene = *spec.deviceScene;
    settings.initialScene.poseTrack = poseTrackOf(spec);
    settings.output = {int(bounds_.width), int(bounds_.height)};
    const PixelRect& content = bake_.device.screenRect;
    settings.deviceRect = {content.x, content.y, content.width, content.height};
    settings.fps = build.framesPerSec;
    const auto& backdrop = spec.deviceScene->backdrop;
    settings.backdrop = backdrop ? FillCompositionLayer::drawn(*backdrop, build) : bake_.wallpaper;
    settings.transitionInputs = screen_.transitionsAlone(screenAspect_);
    settings.placementSpec = spec.devicePlacement().value_or(DevicePlacementSpec{});
    settings.parkPoseTurn = true;
    settings.timeRemap = compositionSec;
    space_ = std::make_unique<DeviceSceneRenderer>(std::move(settings));
}

Image ReelRenderer::flat(
    const std::optional<Image>& recording, double preCutSec, double compositionSec) const {
    CameraFrameTransform move;
    if (placement_)
        move = FlatDeviceMotion::moveAt(*placement_, compositionSec, bake_.device.frameRect, bounds_.height);
    const bool isMoved = move != CameraFrameTransform{};
    const imaging::Affine affine = CanvasDrawing::affineOf(move, bounds_);
    std::vector<Image> bottomToTop{isMoved ? bake_.wallpaper : bake_.backdrop};
    if (isMoved && bake_.shadow) bottomToTop.push_back(bake_.shadow->transformed(affine));
    if (recording) {
        const PixelRect content = CanvasDrawing::moved(bake_.device.screenRect, move);
        bottomToTop.push_back(CanvasDrawing::cutToScreen(screen_.on(content, bounds_, *recording, preCutSec),
            CanvasDrawing::flipped(content, bounds_), bake_.device.cornerRadiusPx * move.scale));
    }
    bottomToTop.push_back(isMoved ? bake_.frame.transformed(affine) : bake_.frame);
    return Image::stacked(bottomToTop);
}

Image ReelRenderer::inSpace(const std::optional<Image>& recording, double preCutSec, double compositionSec) {
    const Image screen = recording ? screen_.alone(screenAspect_, *recording, preCutSec)
                                   : Image::solid(imaging::Color::black()).cropped(bounds_);
    const Image device = space_->render(screen, compositionSec, {evaluator_, log_});
    // Drawn now: a finished frame is a part of what it is made from, which can go.
    return evaluator_.drawnForFrame(device, imaging::pixelsCovering(bounds_));
}

Image ReelRenderer::footage(const std::optional<Image>& recording, double preCutSec, double compositionSec) {
    Image frame =
        space_ ? inSpace(recording, preCutSec, compositionSec) : flat(recording, preCutSec, compositionSec);
    if (recording) frame = captions_.applyPlain(frame, preCutSec);
    frame = captions_.applyMoving(frame, preCutSec);
    if (cutDressing_) frame = cutDressing_->apply(frame, compositionSec, bounds_);
    return frame.cropped(bounds_);
}

void ReelRenderer::turnDevice(const Vector3& tiltDegrees) {
    if (space_) space_->liveUpdateTilt(tiltDegrees);
}

Image ReelRenderer::card(std::size_t index, double localSec) {
    return index < cards_.size() ? cards_[index].frame(localSec) : footage(std::nullopt, 0, 0);
}

}   // namespace tavix
