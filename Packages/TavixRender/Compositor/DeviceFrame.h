// The picture of a device's frame, fitted into a canvas with its screen's place.
#pragma once

#include "TavixCore/Device/DeviceMockup.h"
#include "TavixCore/Values/PixelRect.h"
#include "TavixPlatform/Imaging/Image.h"
#include "TavixRender/Assets/StillImageCache.h"

#include <filesystem>
#include <optional>
#include <vector>

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

// Whether a picture that is decoded now is likely to be asked for again.
enum class Keeping { decoded, nothing };

// As large as it fits into the canvas with that padding on all sides, in its middle.
FittedDevice resolveDevice(const DeviceMockup& mockup, double paddingPx, const imaging::Rect& bounds,
    const std::optional<std::filesystem::path>& assetRoot, StillImageCache& images,
    Keeping keeping = Keeping::decoded);

// The same without the picture: files of frames are asked for their sizes alone.
DevicePlace placeOfDevice(const DeviceMockup& mockup, double paddingPx, const imaging::Rect& bounds,
    const std::optional<std::filesystem::path>& assetRoot);

// The mockup's own picture, or that of its catalog device, or of the default one: the first that can be read;
// empty when none can. Frames that are kept stay decoded while the program runs and their files stay.
imaging::Image resolveFrameImage(const DeviceMockup& mockup,
    const std::optional<std::filesystem::path>& assetRoot, StillImageCache& images,
    Keeping keeping = Keeping::decoded);

// The files that it may be read from, the best first.
std::vector<std::filesystem::path> frameFiles(
    const DeviceMockup& mockup, const std::optional<std::filesystem::path>& assetRoot);

}   // namespace tavix::CanvasDrawing
