// The size and frame rate of an export, and the document made over for them.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixRender/Encoding/ExportOptions.h"

namespace tavix {

namespace ReelExporter {

// An animated picture grows fast with its size and rate. A WebP may show as many frames as a film.
constexpr int animatedWidthCap = 720;
constexpr int animatedFpsCap = 18;

// The shorter side becomes 1080 or 2160 pixels and the proportions stay; both sides are even.
imaging::Size targetDimensions(imaging::Size native, ResolutionPreset resolution, ExportFormat format);
FrameRate targetFps(const FrameRate& fps, ExportFormat format);

}   // namespace ReelExporter

// What is measured in pixels follows the new size: the places of layers, and the room around devices.
CompositionSpec scaledExportSpec(const CompositionSpec& spec, imaging::Size size, const FrameRate& fps);

}   // namespace tavix
