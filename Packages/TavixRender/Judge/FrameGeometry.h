// Where everything of a film is at a time, after all motion: the boxes that rendering would fill with ink,
// without rendering. It agrees with the renderer to a pixel where edges are sharp; blurs, glows and shadows
// reach further.
#pragma once

#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixRender/Composition2D/LayerMotion.h"
#include "TavixRender/Composition2D/ResolvedCompositionLayer.h"
#include "TavixRender/Judge/ContentShape.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

namespace tavix {

// What one layer shows at one time. Rectangles are in pixels from the top left of the canvas.
struct LayerGeometry {
    std::size_t layer = 0;         // its index in the scene
    PixelRect box;                 // of all its ink, in and out of the frame
    PixelRect visibleBox;          // the part within the frame; without a size when there is none
    double visibleFraction = 0;    // of its area, 0 to 1
    double opacity = 0;            // 0 to 1, of its most visible part
    std::vector<Outline> parts;    // convex, in image coordinates
    Outline solid;                 // what hides all that lies behind it
    Paint paint = {};              // of a layer without effects or blur
    imaging::Affine motion = {};   // from where the content rests

    bool isVisible() const { return opacity > 0 && visibleFraction > 0; }
};

struct FrameGeometry {
    std::size_t scene = 0;
    double localSec = 0;
    std::vector<LayerGeometry> layers;   // those of this time that draw anything, from back to front
};

// Of a document with its times in seconds. Measures texts and reads the heads of files when it is made; then
// it answers any time.
class CompositionGeometry {
public:
    CompositionGeometry(const CompositionSpec& spec, FilmAssets& assets);
    ~CompositionGeometry();

    struct Layer {
        const CompositionLayer* layer = nullptr;
        LayerWindow window;
        std::unique_ptr<ContentGeometry> content;   // null: nothing to draw, or not measured
    };

    const CompositionSpec& spec() const { return spec_; }
    const CompositionTimeline& timeline() const { return timeline_; }
    const imaging::Rect& canvas() const { return canvas_; }
    const std::vector<Layer>& layers(std::size_t scene) const { return scenes_[scene]; }

    FrameGeometry frame(std::size_t scene, double localSec) const;
    // One layer alone; nothing outside its window and where it draws nothing.
    std::optional<LayerGeometry> layerAt(std::size_t scene, std::size_t layer, double localSec) const;

private:
    const CompositionSpec& spec_;
    CompositionTimeline timeline_;
    imaging::Rect canvas_;
    std::vector<std::vector<Layer>> scenes_;
};

}   // namespace tavix
