#include "TavixReelLive/Operations/LookEdits.h"

#include "TavixCore/Device/DeviceCatalog.h"
#include "TavixReelLive/Operations/CaptionEdits.h"

#include <cmath>
#include <string>

namespace tavix::LookEdits {

void setCanvasFormat(EffectsSpec& spec, ReelFormat format, const VideoProbe& probe) {
    spec.output = outputOf(format, probe.widthPx, probe.heightPx, std::llround(probe.fps));
    CaptionEdits::placeDeviceAnew(spec);
}

bool setBundledDevice(EffectsSpec& spec, std::string_view id) {
    const BundledDevice* const device = DeviceCatalog::device(id);
    if (device) spec.background.device = DeviceMockup::bundled(*device);
    return device != nullptr;
}

void setDeviceFrame(EffectsSpec& spec, std::string_view path, const std::optional<NormalizedRect>& screen,
    double cornerRadiusFraction) {
    DeviceMockup& device = spec.background.device;
    device.framePath = std::string(path);
    device.bundledID.reset();
    if (!screen) return;
    device.screen = *screen;
    device.screenCornerRadiusFraction = cornerRadiusFraction;
}

void setBackgroundPicture(EffectsSpec& spec, std::string_view path) {
    BackgroundImage image;
    image.path = std::string(path);
    spec.background.fill = image;
}

void setBundledBackground(EffectsSpec& spec, std::string_view id) {
    BackgroundImage image;
    image.bundledID = std::string(id);
    spec.background.fill = image;
}

void setDeviceTilt(EffectsSpec& spec, const Vector3& tiltDegrees) {
    if (spec.deviceScene) spec.deviceScene->setBaseTilt(tiltDegrees);
}

}   // namespace tavix::LookEdits
