#include "TavixRender/Composition2D/DeviceCompositionLayer.h"

#include "TavixCore/Animation/CompositionMath.h"
#include "TavixCore/Values/Clamp01.h"
#include "TavixRender/Composition2D/FlatDeviceMotion.h"
#include "TavixRender/Compositor/BezelShelf.h"
#include "TavixRender/Compositor/CanvasDrawing.h"
#include "TavixRender/Compositor/MovedDevice.h"

#include <algorithm>
#include <cmath>

namespace tavix {

namespace {

using CanvasDrawing::FittedDevice;
using CanvasDrawing::moved;
using imaging::Image;
using imaging::Rect;

constexpr double fullOpacity = 0.999;

// Keyframes whose mark was never found have no time.
std::vector<CompositionKeyframe> timedKeyframes(const std::vector<CompositionKeyframe>& track) {
    std::vector<CompositionKeyframe> timed;
    std::ranges::copy_if(
        track, std::back_inserter(timed), [](const CompositionKeyframe& k) { return !k.atMark; });
    return timed;
}

double peakScale(const DevicePlacementTrajectory& trajectory) {
    double peak = 1;
    for (const auto& frame : trajectory.frames) peak = std::max(peak, frame.scale);
    return peak;
}

PixelRect scaledBy(const PixelRect& rect, double factor) { return moved(rect, {factor, 0, 0}); }
Rect scaledBy(const Rect& rect, double factor) {
    return {rect.x * factor, rect.y * factor, rect.width * factor, rect.height * factor};
}

// White, or another colour, where the screen is. It is not cut at the canvas, which the layer may yet move.
Image screenShape(const FittedDevice& device, const CameraFrameTransform& move, const Rect& bounds,
    const imaging::Color& color) {
    const Rect rect = CanvasDrawing::flipped(moved(device.screenRect, move), bounds);
    return Image::roundedRectangle(rect, device.cornerRadiusPx * move.scale, color);
}

Image stillUnitAt(
    const FittedDevice& device, const Image& screen, int detail, const Rect& bounds, const Image& bezel) {
    const CameraFrameTransform enlarged{double(detail), 0, 0};
    const Rect canvas = scaledBy(bounds, detail);
    const Image placed = CanvasDrawing::place(
        screen, scaledBy(device.screenRect, detail), canvas, CanvasDrawing::Resampling::still);
    const Image shape = screenShape(device, enlarged, canvas, imaging::Color::white());
    return bezel.over(CanvasDrawing::masked(placed, shape));
}

// What the screen's pictures fill, with a little to spare for what moves about.
imaging::Size largestShown(const PixelRect& screen, double magnification) {
    constexpr double spare = 1.25, mostPx = 1 << 20;
    const auto side = [&](double px) {
        return int(std::ceil(std::clamp(spare * magnification * px, 1.0, mostPx)));
    };
    return {side(screen.width), side(screen.height)};
}

}   // namespace

DeviceCompositionLayer::DeviceCompositionLayer(
    const DeviceContent& content, const CompositionLayer& layer, const LayerBuild& build)
    : bounds_(build.bounds), screenFade_(timedKeyframes(content.screenOpacity)),
      trajectory_(FlatDeviceMotion::trajectoryOf(content, build.bounds, build.framesPerSec)) {
    const double magnification = peakMagnification(layer) * peakScale(trajectory_);
    if (build.rendererPool != nullptr) {   // a preview
        const CanvasDrawing::Bezel bezel = CanvasDrawing::keptBezel(
            content.mockup, content.basePaddingPx, bounds_, build.assetRoot, build.images, build.evaluator);
        device_ = {bezel.place, Image()};
        screen_ = screenFor(content.screen, build, true, largestShown(device_.screenRect, magnification));
        bake(bezel, magnification, build.evaluator);
        return;
    }
    screen_ = screenFor(content.screen, build);
    device_ = CanvasDrawing::resolveDevice(
        content.mockup, content.basePaddingPx, bounds_, build.assetRoot, build.images);
    bake({device_, device_.picture.extent().height,
             [this](int detail) { return CanvasDrawing::bezelAt(device_, detail, bounds_); }},
        magnification, build.evaluator);
}

void DeviceCompositionLayer::bake(
    const CanvasDrawing::Bezel& bezel, double magnification, imaging::Evaluator& evaluator) {
    // Drawing a picture larger than its file brings out nothing more.
    const auto detailLeft = [](double heightPx, const PixelRect& place) {
        return std::max(1.0, heightPx / std::max(place.height, 1e-6));
    };
    const double bezelDetail = detailLeft(bezel.pictureHeightPx, device_.frameRect);
    if (screen_->still() && screenFade_.empty()) {
        const double unitDetail =
            std::max(bezelDetail, detailLeft(screen_->still()->extent().height, device_.screenRect));
        stillUnit_ = bakedForMagnification(
            [&](int detail) {
                return stillUnitAt(device_, *screen_->still(), detail, bounds_, bezel.at(detail));
            },
            std::min(magnification, unitDetail), evaluator);
        device_.picture = Image();   // neither it nor the screen's is looked at again
        screen_.reset();
        return;
    }
    device_.picture = bakedForMagnification(bezel.at, std::min(magnification, bezelDetail), evaluator);
}

std::optional<Image> DeviceCompositionLayer::contentImage(double localSec) {
    const CameraFrameTransform move =
        FlatDeviceMotion::moveAt(trajectory_, localSec, device_.frameRect, bounds_.height);
    const imaging::Affine affine = CanvasDrawing::affineOf(move, bounds_);
    if (stillUnit_) return stillUnit_->transformed(affine);
    const std::optional<Image> screen = screen_->at(localSec);
    if (!screen) return std::nullopt;
    const double opacity =
        CompositionMath::sample(screenFade_, localSec, CompositionMath::Mixing::linear).value_or(1);
    return device_.picture.transformed(affine).over(screenAt(*screen, move, KineticMath::clamp01(opacity)));
}

// Each part is moved by itself: the screen's pixels are then looked up once only, and edges stay sharp.
Image DeviceCompositionLayer::screenAt(
    const Image& screen, const CameraFrameTransform& move, double opacity) const {
    const PixelRect place = moved(device_.screenRect, move);
    const Image placed = CanvasDrawing::cutToScreen(
        CanvasDrawing::place(screen, place, bounds_, CanvasDrawing::Resampling::live),
        CanvasDrawing::flipped(place, bounds_), device_.cornerRadiusPx * move.scale);
    if (opacity >= fullOpacity) return placed;
    // A screen goes dark; it does not become a window.
    return placed.withOpacity(opacity).over(screenShape(device_, move, bounds_, imaging::Color::black()));
}

}   // namespace tavix
