// What content renderers are built from, and how large a picture that is drawn once should be kept.
#pragma once

#include "TavixCore/Document/CompositionLayer.h"
#include "TavixCore/Document/LayerWindow.h"
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Media/DecoderRoom.h"
#include "TavixPlatform/Text/FontBook.h"
#include "TavixRender/Assets/RenderLog.h"
#include "TavixRender/Assets/StillImageCache.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

namespace tavix {

class Composition3DRendererPool;
class ScreenShelf;
struct DeviceDarkroom;

struct LayerBuild {
    imaging::Rect bounds;   // of the canvas
    double framesPerSec;
    std::optional<std::filesystem::path> assetRoot;
    imaging::Evaluator& evaluator;
    StillImageCache& images;
    const text::FontBook& fonts;                         // of this build alone
    RenderLog log = {};                                  // told while frames are drawn too
    Composition3DRendererPool* rendererPool = nullptr;   // without one each 3D layer has its own stage
    std::shared_ptr<DeviceDarkroom> darkroom = {};       // that 3D layers share; without one each has its own
    ScreenShelf* screens = nullptr;                      // without one each layer opens its clip itself
    std::shared_ptr<media::DecoderRoom> decoders =
        {};   // that clips share; without one each has what it needs
    // Of the layer.
    std::size_t scene = 0;
    LayerWindow window = {};
};

// The largest factor by which the layer's keyframes and phases enlarge its content; at least 1.
double peakMagnification(const CompositionLayer& layer);

// Draws a picture that stays the same. One that the layer enlarges is drawn at twice its size and
// scaled down again, so that it stays sharp; `draw` gets that factor and returns the picture in canvas
// coordinates times it. A picture too large to keep stays a graph.
imaging::Image bakedForMagnification(const std::function<imaging::Image(int detail)>& draw,
    double magnification, imaging::Evaluator& evaluator);

}   // namespace tavix
