// The frames of devices in the size in which a preview shows them. The pictures in their files are some ten
// times as large, and are let go of as soon as they are drawn small.
#pragma once

#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixRender/Compositor/DeviceFrame.h"

#include <functional>

namespace tavix::CanvasDrawing {

struct Bezel {
    DevicePlace place;
    double pictureHeightPx = 0;   // of the file; 0 without one
    // On a canvas that is so many times as large.
    std::function<imaging::Image(int detail)> at;
};

// Drawn from the device's own picture.
imaging::Image bezelAt(const FittedDevice& device, double detail, const imaging::Rect& bounds);
// The same, drawn and kept for all previews of the program that show it in that place, until its file
// changes. From any thread.
Bezel keptBezel(const DeviceMockup& mockup, double paddingPx, const imaging::Rect& bounds,
    const std::optional<std::filesystem::path>& assetRoot, StillImageCache& images,
    imaging::Evaluator& evaluator);

}   // namespace tavix::CanvasDrawing
