#include "TavixRender/DeviceScene/DeviceSceneRenderer.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Device/DeviceDepthTrajectory.h"
#include "TavixPlatform/Imaging/Hash.h"
#include "TavixPlatform/Scene3D/SceneError.h"
#include "TavixRender/DeviceScene/DeviceModelLoader.h"
#include "TavixRender/DeviceScene/DeviceMotionBlur.h"
#include "TavixRender/DeviceScene/DeviceStage.h"
#include "TavixRender/DeviceScene/ToneCurve.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <new>
#include <string>
#include <utility>

namespace tavix {

namespace {

using imaging::Image;
using imaging::PixelRegion;
using imaging::Rect;

Rect boundsOf(imaging::Size size) { return {0, 0, double(size.width), double(size.height)}; }

Image clearIn(const Rect& rect) { return Image::solid(imaging::Color::clear()).cropped(rect); }

std::vector<DeviceScalarKeyframe> inOrder(std::vector<DeviceScalarKeyframe> track) {
    std::ranges::stable_sort(track, {}, &DeviceScalarKeyframe::tSec);
    return track;
}

Image imageOf(scene3d::EncodedFrame frame) {
    if (frame.region.isEmpty()) return {};
    frame.pixels.indexCoverage();
    return Image::bitmap(std::make_shared<const imaging::Bitmap>(std::move(frame.pixels)),
        {double(frame.region.x0), double(frame.region.y0)});
}

// Reduced to half its size: the region of the frame alone, with room around it for the filter.
Image halved(scene3d::EncodedFrame frame, imaging::Size whole) {
    if (frame.region.isEmpty()) return {};
    constexpr int roomPx = 8;
    const auto even = [](int px) { return px - px % 2; };
    const PixelRegion& r = frame.region;
    const PixelRegion around = imaging::intersection(PixelRegion{0, 0, whole.width, whole.height},
        PixelRegion{even(r.x0 - roomPx), even(r.y0 - roomPx), even(r.x1 + roomPx), even(r.y1 + roomPx)});
    const Rect rect = around.rect();
    return Image::stacked({clearIn(rect), imageOf(std::move(frame))})
        .placedInto({rect.x / 2, rect.y / 2, rect.width / 2, rect.height / 2});
}

imaging::Size reduced(imaging::Size size, int reduction) {
    const auto side = [&](int px) { return std::max((px + reduction - 1) / reduction, 1); };
    return {side(size.width), side(size.height)};
}

Image enlarged(const Image& image, imaging::Size from, imaging::Size to) {
    if (from == to) return image;
    return image.transformed(
        imaging::Affine::scaling(double(to.width) / from.width, double(to.height) / from.height));
}

}   // namespace

DeviceSceneRenderer::DeviceSceneRenderer(Settings settings)
    : settings_(std::move(settings)), scene_(settings_.initialScene), placement_(settings_.placementSpec),
      motion_(scene_, placement_, rules()) {
    if (!settings_.darkroom) settings_.darkroom = std::make_shared<DeviceDarkroom>();
    settings_.motionBlurGain = std::max(settings_.motionBlurGain, 0.0);
    settings_.depthTrack = inOrder(std::move(settings_.depthTrack));
    deriveMotion();
}

DeviceSceneRenderer::~DeviceSceneRenderer() = default;

Image DeviceSceneRenderer::render(const Image& deviceLayer, double outputSec, const Context& context) {
    prepare(context);
    if (state_ == State::failed) return backdrop();
    const Image screen = screenImage(transitionWindows_, deviceLayer, motion_, outputSec);
    const DeviceStance stance = stanceAt(outputSec);
    stage_->stand(stance);
    updateScreen(thinned(screen, stance), outputSec, context);
    try {
        Image device = photographed(stance);
        if (const auto blur = blurAt(outputSec))
            device = device.clampedToExtent().motionBlurred(blur->radiusPx, blur->angleRad);
        return device.over(backdrop()).cropped(boundsOf(settings_.output));
    } catch (const scene3d::SceneError& error) {
        tell(context.log, Finding::warning(RenderCode::phoneNotDrawn,
                              std::string("A frame of the device in 3D is not drawn: ") + error.what()));
        return backdrop();
    }
}

bool DeviceSceneRenderer::prepare(const Context& context) {
    if (state_ != State::fresh) return false;
    build(context);
    return true;
}

// A stage is built once. One that cannot be stays so, and the backdrop shows for good.
void DeviceSceneRenderer::build(const Context& context) {
    state_ = State::failed;
    try {
        const scene3d::EntityRef model = DeviceModelLoader::freshModelInstance();
        if (!model) throw Failure("the phone's model is not there");
        auto stage = DeviceStage::build(model, scene_.finish);
        if (!stage) throw Failure("the phone's model has no screen");
        stage_ = std::make_unique<DeviceStage>(std::move(*stage));
        setUpStage();
        state_ = State::built;
    } catch (const std::bad_alloc&) {
        throw;   // no frame that comes after can be trusted
    } catch (const std::exception& error) {
        stage_.reset();
        tell(context.log,
            Finding::warning(RenderCode::phoneNotBuilt, std::string("The device scene failed to build (") +
                                                            error.what() + "); frames render backdrop-only"));
    }
}

void DeviceSceneRenderer::setUpStage() {
    const double height = settings_.output.height;
    stage_->setUp(scene_, height > 0 ? std::optional(settings_.deviceRect.height / height) : std::nullopt);
}

void DeviceSceneRenderer::deriveMotion() {
    motion_ = DeviceSceneMotion(scene_, placement_, rules());
    ++sceneVersion_;
    lastBody_.reset();
    transitionWindows_ =
        transitionWindows(settings_.transitionInputs, motion_, scene_.tiltDegrees.y, settings_.timeRemap);
}

// In a preview a picture with more texels than the screen has pixels is drawn smaller, and then costs less to
// filter.
Image DeviceSceneRenderer::thinned(const Image& screen, const DeviceStance& stance) const {
    const DevicePassPlan plan = passPlan();
    const double nearness = settings_.deviceRect.height * stage_->magnification(stance) / plan.reduction;
    if (!plan.mayHalveScreen || !(nearness > 0)) return screen;
    const Rect extent = screen.extent();
    const double scale = std::ldexp(1.0, -halvingsOfScreen(extent.height / nearness));
    if (scale >= 1 || extent.isInfinite() || extent.isEmpty()) return screen;
    const auto wholeScale = [scale](double side) { return std::max(std::round(side * scale), 1.0) / side; };
    return screen.transformed(imaging::Affine::scaling(wholeScale(extent.width), wholeScale(extent.height)));
}

DevicePassPlan DeviceSceneRenderer::passPlan() const {
    return devicePassPlan(settings_.output, isRough_ ? DeviceQuality::rough : settings_.quality);
}

// The texture of the screen, brought up to date. When that fails the picture of before stays on it.
void DeviceSceneRenderer::updateScreen(const Image& screen, double outputSec, const Context& context) {
    if (liveMode_ && lastBlitSec_ == outputSec) return;
    lastBlitSec_ = outputSec;
    if (lastBlit_ == screen.hash()) return;
    try {
        const Rect extent = screen.extent();
        const PixelRegion region = imaging::pixelsCovering({std::round(extent.x), std::round(extent.y),
            std::round(extent.width), std::round(extent.height)});
        // The screen shines by itself and hides what is behind it.
        settings_.darkroom->show(
            screen_, screen.hash(), [&] { return context.evaluator.opaquePixels(screen, region); });
        stage_->showOnScreen(screen_->texture);
        lastBlit_ = screen.hash();
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        if (!std::exchange(hasToldOfScreen_, true))
            tell(context.log, Finding::warning(RenderCode::screenNotUpdated,
                                  std::string("The update of a screen texture failed: ") + error.what()));
    }
}

// Both passes, one over the other. The lit body goes through the tone curve and the screen does not: its
// pixels are those of its picture.
Image DeviceSceneRenderer::photographed(const DeviceStance& stance) {
    const DevicePassPlan plan = passPlan();
    return Image::stacked({clearIn(boundsOf(settings_.output)), bodyPass(plan, stance), screenPass(plan)});
}

struct DeviceSceneRenderer::BodyPicture {
    DeviceStance stance;
    bool isRough;
    Image image;
};

Image DeviceSceneRenderer::bodyPass(const DevicePassPlan& plan, const DeviceStance& stance) {
    if (lastBody_ && lastBody_->stance == stance && lastBody_->isRough == isRough_) return lastBody_->image;
    lastBody_.reset();   // its memory serves the next one
    const imaging::Size size = reduced(settings_.output, plan.reduction);
    const scene3d::LinearFrame light =
        settings_.darkroom->engine.renderLinear(stage_->bodyScene(), {size, plan.body});
    const Image image = enlarged(
        imageOf(DeviceStudio::applyACES(light, settings_.darkroom->pictures)), size, settings_.output);
    lastBody_ = std::make_unique<BodyPicture>(BodyPicture{stance, isRough_, image});
    return image;
}

Image DeviceSceneRenderer::screenPass(const DevicePassPlan& plan) {
    const imaging::Size output = reduced(settings_.output, plan.reduction);
    const scene3d::Pass pass{
        {output.width * plan.screenScale, output.height * plan.screenScale}, plan.screen, plan.screenTexture};
    scene3d::EncodedFrame frame = settings_.darkroom->engine.renderEncoded(stage_->screenScene(), pass);
    return plan.screenScale > 1 ? halved(std::move(frame), pass.size)
                                : enlarged(imageOf(std::move(frame)), output, settings_.output);
}

DeviceStance DeviceSceneRenderer::stanceAt(double outputSec) const {
    return {motion_.posed(outputSec), motion_.placement(outputSec),
        DeviceDepthTrajectory::sample(settings_.depthTrack, outputSec)};
}

std::optional<DeviceMotionBlur> DeviceSceneRenderer::blurAt(double outputSec) const {
    const double scale = settings_.blurScale;
    const BlurredDevice moving{motion_, settings_.output.height * scale, settings_.deviceRect.width * scale,
        settings_.deviceRect.height * scale, settings_.fps};
    auto blur = motionBlurOf(moving, settings_.motionBlurGain, outputSec);
    if (blur) blur->radiusPx /= scale;
    return blur;
}

Digest DeviceSceneRenderer::frameHash(const Image& deviceLayer, double outputSec) const {
    const DeviceStance stance = stanceAt(outputSec);
    Hash hash;
    hash.add(sceneVersion_).add(isRough_);
    hash.add(screenImage(transitionWindows_, deviceLayer, motion_, outputSec).hash());
    hash.add(stance.poseDegrees.x).add(stance.poseDegrees.y).add(stance.poseDegrees.z);
    const auto& place = stance.placement;
    if (hash.add(place.has_value()); place) hash.add(place->offset.x).add(place->offset.y).add(place->scale);
    if (hash.add(stance.depth.has_value()); stance.depth) hash.add(*stance.depth);
    const auto blur = blurAt(outputSec);
    if (hash.add(blur.has_value()); blur) hash.add(blur->radiusPx).add(blur->angleRad);
    return hash.digest();
}

Image DeviceSceneRenderer::backdrop() const { return settings_.backdrop.cropped(boundsOf(settings_.output)); }

void DeviceSceneRenderer::applyScene(const DeviceScene& scene,
    const std::optional<DevicePlacementSpec>& placement, std::optional<double> motionBlur,
    const std::optional<std::vector<DeviceScalarKeyframe>>& depthTrack) {
    scene_ = scene;
    if (motionBlur) settings_.motionBlurGain = std::max(*motionBlur, 0.0);
    if (depthTrack) settings_.depthTrack = inOrder(*depthTrack);
    placement_ = placement.value_or(placementOf(scene));
    deriveMotion();
    if (state_ == State::built) setUpStage();
}

void DeviceSceneRenderer::liveUpdateTilt(const Vector3& tiltDegrees) {
    scene_.setBaseTilt(tiltDegrees);
    deriveMotion();
}

void DeviceSceneRenderer::rest() {
    if (state_ != State::built) return;
    state_ = State::fresh;
    stage_.reset();
    screen_.reset();
    lastBody_.reset();
    lastBlitSec_.reset();
    lastBlit_.reset();
}

void DeviceSceneRenderer::setLiveMode(bool isOn) {
    if (liveMode_ != isOn) lastBlitSec_.reset();
    liveMode_ = isOn;
}

DeviceMotionRules DeviceSceneRenderer::rules() const {
    return {double(settings_.output.width), double(settings_.output.height), settings_.fps,
        settings_.smoothPose, settings_.parkPoseTurn, settings_.timeRemap};
}

}   // namespace tavix
