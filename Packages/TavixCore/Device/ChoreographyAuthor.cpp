#include "TavixCore/Device/ChoreographyAuthor.h"

#include "TavixCore/Support/Names.h"
#include "TavixCore/Values/Clamp01.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tavix::ChoreographyAuthor {
namespace {

using KineticMath::clamp01;

// Of the model at scale 1: height as a fraction of the canvas height, and width as a fraction of its height.
constexpr double modelHeightFraction = 0.83 * 1.04;
constexpr double modelAspect = 0.46;

// A device at scale 1 within its canvas.
struct DeviceExtent {
    double widthFraction;    // of the canvas width
    double heightFraction;   // of the canvas height
    double canvasAspect;     // canvas height over its width

    // The largest scale that keeps the device within these fractions; a device of no size does not limit it.
    double scaleWithin(double mostWidth, double mostHeight, double mostScale) const {
        constexpr double leastFraction = 0.0001;
        double scale = mostScale;
        if (widthFraction >= leastFraction) scale = std::min(scale, mostWidth / widthFraction);
        if (heightFraction >= leastFraction) scale = std::min(scale, mostHeight / heightFraction);
        return scale;
    }
};

// Beside the text column, near the left edge.
ResolvedPlacement parkedLeft(const DeviceExtent& device) {
    constexpr double columnFraction = 1 - parkTextColumnFraction - parkEdgeMarginFraction;
    const double scale = device.scaleWithin(columnFraction, 1 - 2 * parkEdgeMarginFraction, 1);
    const double fromMiddle = device.widthFraction * scale / 2 + parkEdgeMarginFraction - 0.5;
    const double offsetX = device.canvasAspect > 0 ? parkInsetFactor * fromMiddle / device.canvasAspect : 0;
    return {offsetX, 0, scale};
}

// Almost as wide as the canvas, its upper edge just below that of the canvas.
ResolvedPlacement scannedTop(const DeviceExtent& device) {
    constexpr double mostWidth = 0.88, mostScale = 2.4, marginFraction = 0.05;
    constexpr double unlimited = std::numeric_limits<double>::infinity();
    const double scale = device.scaleWithin(mostWidth, unlimited, mostScale);
    return {0, marginFraction + device.heightFraction * scale / 2 - 0.5, scale};
}

ResolvedPlacement placed(PhoneMove move, const DeviceExtent& device) {
    constexpr double offscreenScale = 0.9;
    switch (move) {
    case PhoneMove::center: return {0, 0, 1};
    case PhoneMove::parkLeft: return parkedLeft(device);
    case PhoneMove::parkRight: {
        const ResolvedPlacement mirrored = parkedLeft(device);
        return {-mirrored.offsetX, 0, mirrored.scale};
    }
    case PhoneMove::heroZoom: return {0, -0.02, 1.15};
    case PhoneMove::offscreenBottom:
        return {0, device.heightFraction * offscreenScale / 2 + 0.5, offscreenScale};
    case PhoneMove::scanTop: return scannedTop(device);
    case PhoneMove::scanBottom: {
        const ResolvedPlacement mirrored = scannedTop(device);
        return {0, -mirrored.offsetY, mirrored.scale};
    }
    }
    return {};
}

}   // namespace

ResolvedPlacement resolvePlacement(PhoneMove move, const CanvasSize& canvas) {
    const double canvasAspect = canvas.heightPx / std::max(canvas.widthPx, 1.0);
    return placed(
        move, {modelHeightFraction * modelAspect * canvasAspect, modelHeightFraction, canvasAspect});
}

ResolvedPlacement resolvePlacement2D(PhoneMove move, const CanvasSize& frame, const CanvasSize& canvas) {
    const double widthPx = std::max(canvas.widthPx, 1.0), heightPx = std::max(canvas.heightPx, 1.0);
    return placed(move, {frame.widthPx / widthPx, frame.heightPx / heightPx, canvas.heightPx / widthPx});
}

std::vector<DevicePoseKeyframe> flipTrack(std::vector<double> flipTimesSec, const Vector3& base) {
    constexpr double earliestFlipSec = 0.05, wholeTurnDegrees = 360;
    if (flipTimesSec.empty()) return {};
    std::sort(flipTimesSec.begin(), flipTimesSec.end());
    std::vector<DevicePoseKeyframe> track{{0, base}};
    double yaw = base.y;
    for (const double tSec : flipTimesSec) {
        yaw += wholeTurnDegrees;
        track.push_back({std::max(tSec, earliestFlipSec), {base.x, yaw, base.z}});
    }
    return track;
}

double parkPoseBlend(double offsetX) {
    return clamp01((std::abs(offsetX) - parkPoseBlendStart) / (parkPoseBlendFull - parkPoseBlendStart));
}

double parkPoseBlend(double offsetX, double basePitchDegrees) {
    constexpr double freePitchDegrees = 15, fadePitchDegrees = 30;
    return parkPoseBlend(offsetX) *
           (1 - clamp01((std::abs(basePitchDegrees) - freePitchDegrees) / fadePitchDegrees));
}

Vector3 parkedPose(const Vector3& basePose, double offsetX) {
    const double share = parkPoseBlend(offsetX, basePose.x);
    if (!(share > 0)) return basePose;
    const double yaw = offsetX < 0 ? parkYawDegrees : -parkYawDegrees;
    return {basePose.x + (parkPitchDegrees - basePose.x) * share, basePose.y + (yaw - basePose.y) * share,
        basePose.z * (1 - share)};
}

const Names<PhoneMove>& namesOf(std::type_identity<PhoneMove>) {
    using enum PhoneMove;
    static const Names<PhoneMove> table{"phone move",
        {{center, "center"}, {parkLeft, "park-left"}, {parkRight, "park-right"}, {heroZoom, "hero-zoom"},
            {offscreenBottom, "offscreen-bottom"}, {scanTop, "scan-top"}, {scanBottom, "scan-bottom"}}};
    return table;
}

}   // namespace tavix::ChoreographyAuthor
