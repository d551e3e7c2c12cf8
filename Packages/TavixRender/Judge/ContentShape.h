// Where the content of a layer has its ink, before the layer moves: the same as drawing it, without a pixel.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Values/PixelRect.h"
#include "TavixCore/Values/RGBAColor.h"
#include "TavixRender/Judge/FilmAssets.h"
#include "TavixRender/Judge/Outline.h"
#include "TavixRender/KineticText/KineticTextLayout.h"

#include <memory>
#include <variant>
#include <vector>

namespace tavix {

// What a layer is coloured with; nothing where only its pixels tell. A gradient spans the canvas.
using Paint = std::variant<std::monostate, RGBAColor, LinearGradient>;

struct ContentShape {
    std::vector<Outline> parts;   // that together hold its ink
    double opacity = 1;           // of its most visible part
    Outline solid;                // what hides all that lies behind it
    Paint paint = {};
};

// What is the same for all layers of a document.
struct ShapeSetting {
    const CompositionSpec& spec;
    FilmAssets& assets;
    imaging::Rect canvas;
    double framesPerSec;
};

// Of one layer. Answers any time, in seconds since the layer's start.
class ContentGeometry {
public:
    virtual ~ContentGeometry() = default;
    virtual ContentShape at(double localSec) const = 0;
    // Of a text; null for everything else and for a text without letters.
    virtual const KineticTextLayout::Result* layout() const { return nullptr; }
};

struct LayerPosition {
    std::size_t scene, layer;   // in the document
    double windowSec;
};

// Null for what cannot be drawn or would take long to measure.
std::unique_ptr<ContentGeometry> geometryOf(
    const CompositionLayer& layer, const LayerPosition& position, const ShapeSetting& setting);

// The kinds with a file of their own.
std::unique_ptr<ContentGeometry> textGeometry(const TextContent& text, const CompositionLayer& layer,
    const LayerPosition& position, const ShapeSetting& setting);
std::unique_ptr<ContentGeometry> flatDeviceGeometry(const DeviceContent& device, const ShapeSetting& setting);
std::unique_ptr<ContentGeometry> spaceDeviceGeometry(
    const DeviceContent& device, const ShapeSetting& setting);

// What a device shows: whether it is there, and whether one cannot see through it.
struct DeviceScreen {
    bool isThere = false, isOpaque = false;
};
DeviceScreen screenOf(const ScreenSource& source, FilmAssets& assets);

// The frame of a device, where it stands unmoved.
struct DeviceRects {
    PixelRect frame;          // of its picture
    PixelRect body, screen;   // the phone within that, and its screen
    double bodyRadiusPx = 0, screenRadiusPx = 0;
};
DeviceRects deviceRectsOf(const DeviceContent& device, const ShapeSetting& setting);

}   // namespace tavix
