#include "TavixCore/Device/DeviceCatalog.h"
#include "TavixCore/Geometry/CanvasGeometry.h"
#include "TavixRender/Composition2D/FlatDeviceMotion.h"
#include "TavixRender/Compositor/CanvasDrawing.h"
#include "TavixRender/Judge/ContentShape.h"

#include <algorithm>

namespace tavix {
namespace {

// The frame pictures of the catalog are clear round the phone: so much of the way from their edge to the
// screen.
constexpr double clearLeft = 0.5, clearTop = 0.56;

double frameAspectOf(const DeviceMockup& mockup, FilmAssets& assets) {
    if (mockup.framePath && !mockup.framePath->empty())
        if (const auto& header = assets.still(*mockup.framePath).header)
            return double(header->size.width) / header->size.height;
    const BundledDevice* device = mockup.bundledID ? DeviceCatalog::device(*mockup.bundledID) : nullptr;
    return (device != nullptr ? *device : DeviceCatalog::defaultDevice()).frameAspect;
}

class FlatDevice final : public ContentGeometry {
public:
    FlatDevice(const DeviceContent& device, const ShapeSetting& setting)
        : canvas_(setting.canvas), rects_(deviceRectsOf(device, setting)),
          screen_(screenOf(device.screen, setting.assets)),
          trajectory_(FlatDeviceMotion::trajectoryOf(device, canvas_, setting.framesPerSec)) {
        const bool fades = std::ranges::any_of(
            device.screenOpacity, [](const CompositionKeyframe& keyframe) { return !keyframe.atMark; });
        // A still that is missing leaves the bezel, unless it was to fade; a clip that is missing leaves
        // nothing.
        drawsNothing_ = !screen_.isThere && (fades || !std::holds_alternative<StillScreen>(device.screen));
    }

    ContentShape at(double localSec) const override {
        if (drawsNothing_) return {};
        const CameraFrameTransform move =
            FlatDeviceMotion::moveAt(trajectory_, localSec, rects_.frame, canvas_.height);
        const auto moved = [&](const PixelRect& rect) {
            return CanvasDrawing::flipped(
                {rect.x * move.scale + move.translateX, rect.y * move.scale + move.translateY,
                    rect.width * move.scale, rect.height * move.scale},
                canvas_);
        };
        ContentShape shape;
        shape.parts = {Outline::ofRounded(moved(rects_.body), rects_.bodyRadiusPx * move.scale)};
        if (screen_.isOpaque)
            shape.solid = Outline::ofRounded(moved(rects_.screen), rects_.screenRadiusPx * move.scale);
        return shape;
    }

private:
    imaging::Rect canvas_;
    DeviceRects rects_;
    DeviceScreen screen_;
    DevicePlacementTrajectory trajectory_;
    bool drawsNothing_ = false;
};

}   // namespace

DeviceScreen screenOf(const ScreenSource& source, FilmAssets& assets) {
    if (const auto* clip = std::get_if<VideoClip>(&source)) {
        const bool isThere = assets.clip(clip->path).size.has_value();
        return {isThere, isThere};
    }
    if (const auto* reel = std::get_if<ReelClip>(&source)) {
        const bool isThere = assets.clip(reel->recordingPath()).size.has_value();
        return {isThere, isThere};
    }
    const auto& header = assets.still(std::get<StillScreen>(source).path).header;
    return {header.has_value(), header && header->isOpaque};
}

DeviceRects deviceRectsOf(const DeviceContent& device, const ShapeSetting& setting) {
    const DeviceMockup& mockup = device.mockup;
    DeviceRects rects;
    rects.frame = CanvasGeometry::deviceFrameRect({setting.canvas.width, setting.canvas.height},
        device.basePaddingPx, frameAspectOf(mockup, setting.assets));
    const PixelRect& frame = rects.frame;
    rects.screen = {frame.x + mockup.screen.x * frame.width, frame.y + mockup.screen.y * frame.height,
        mockup.screen.width * frame.width, mockup.screen.height * frame.height};
    rects.screenRadiusPx =
        std::min(rects.screen.width, rects.screen.height) * mockup.screenCornerRadiusFraction;
    const bool isOwnPicture = mockup.framePath && !mockup.framePath->empty();
    const double left = (rects.screen.x - frame.x) * (isOwnPicture ? 0 : clearLeft);
    const double top = (rects.screen.y - frame.y) * (isOwnPicture ? 0 : clearTop);
    rects.body = {frame.x + left, frame.y + top, frame.width - 2 * left, frame.height - 2 * top};
    rects.bodyRadiusPx = rects.screenRadiusPx + std::max(rects.screen.x - rects.body.x, 0.0);
    return rects;
}

std::unique_ptr<ContentGeometry> flatDeviceGeometry(
    const DeviceContent& device, const ShapeSetting& setting) {
    return std::make_unique<FlatDevice>(device, setting);
}

}   // namespace tavix
