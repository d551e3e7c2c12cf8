// The picture of a device's frame, fitted into a canvas with its screen's place.
#pragma once

#include "TavixCore/Device/DeviceMockup.h"
#include "TavixCore/Values/PixelRect.h"
#include "TavixPlatform/Imaging/Image.h"
#include "TavixRender/Assets/StillImageCache.h"

#include <filesystem>
#include <optional>

namespace tavix::CanvasDrawing {

// Where a device and its screen lie. Rectangles have a top-left origin.
struct DevicePlace {
    PixelRect frameRect, screenRect;
    double cornerRadiusPx = 0;
};
// The picture is the file's, in its own size; it is empty when there is none to read, and the rectangles are
// those of the catalog's shape then.
struct FittedDevice : DevicePlace {
    imaging::Image picture;
};

// As large as it fits into the canvas with that padding on all sides, in its middle.
FittedDevice resolveDevice(const DeviceMockup& mockup, double paddingPx, const imaging::Rect& bounds,
    const std::optional<std::filesystem::path>& assetRoot, StillImageCache& images);

// The same without the picture: files of frames are asked for their sizes alone.
DevicePlace placeOfDevice(const DeviceMockup& mockup, double paddingPx, const imaging::Rect& bounds,
    const std::optional<std::filesystem::path>& assetRoot);

// The mockup's own picture, or that of its catalog device, or of the default one: the first that can be read;
// empty when none can. Frames stay decoded while the program runs and their files stay.
imaging::Image resolveFrameImage(const DeviceMockup& mockup,
    const std::optional<std::filesystem::path>& assetRoot, StillImageCache& images);

}   // namespace tavix::CanvasDrawing
