#include "TavixReel/Document/ReelCanvas.h"

#include "TavixCore/Device/DeviceCatalog.h"
#include "TavixReel/Document/EffectsSpec.h"

namespace tavix::CanvasGeometry {
namespace {

double frameAspect(const DeviceMockup& device) {
    constexpr double customAspect = 0.4982;   // of a phone's frame, before its picture is known
    if (device.framePath) return customAspect;
    const BundledDevice* bundled = device.bundledID ? DeviceCatalog::device(*device.bundledID) : nullptr;
    return (bundled ? *bundled : DeviceCatalog::iPhone16Pro()).frameAspect;
}

}   // namespace

PixelRect deviceFrameRect(const EffectsSpec& spec) {
    return deviceFrameRect({double(spec.output.widthPx), double(spec.output.heightPx)},
        spec.background.padding, frameAspect(spec.background.device));
}

}   // namespace tavix::CanvasGeometry
