// What stays the same in every frame of a reel: the wallpaper, the device's frame and its shadow.
#pragma once

#include "TavixReel/Document/EffectsSpec.h"
#include "TavixRender/Composition2D/LayerBuild.h"
#include "TavixRender/Compositor/DeviceFrame.h"

#include <optional>

namespace tavix {

// Immutable; its pictures have the coordinates of the canvas.
struct CanvasBake {
    CanvasDrawing::FittedDevice device;     // its places at rest; its picture is the file's
    imaging::Image frame;                   // of the device, where it rests
    imaging::Image wallpaper;               // as large as the canvas
    std::optional<imaging::Image> shadow;   // of the device; none where it stands in space
    imaging::Image backdrop;                // the shadow over the wallpaper

    static CanvasBake make(const EffectsSpec& spec, const LayerBuild& build);
};

}   // namespace tavix
