// Edits of the canvas of a reel, its device and what is behind it.
#pragma once

#include "TavixReel/Document/EffectsSpec.h"
#include "TavixReel/Recording/VideoProbe.h"

#include <filesystem>
#include <string_view>

namespace tavix::LookEdits {

// The frame, and where the device steps aside for captions its moves for that.
void setCanvasFormat(EffectsSpec& spec, ReelFormat format, const VideoProbe& probe);

// Whether there is such a device.
bool setBundledDevice(EffectsSpec& spec, std::string_view id);
// A picture of a device, as a path for the document, with the place of the screen in it where one was found.
void setDeviceFrame(EffectsSpec& spec, std::string_view path, const std::optional<NormalizedRect>& screen,
    double cornerRadiusFraction);

void setBackgroundPicture(EffectsSpec& spec, std::string_view path);
void setBundledBackground(EffectsSpec& spec, std::string_view id);

// How the device in space is turned, with what flips it.
void setDeviceTilt(EffectsSpec& spec, const Vector3& tiltDegrees);

}   // namespace tavix::LookEdits
