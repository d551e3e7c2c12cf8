// What a drag on the stage does to a layer: always from how it was when the drag began.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Values/PixelRect.h"

#include <optional>
#include <vector>

namespace tavix {

// The handles around a box: -1, 0 or 1 across and down; both 0 is the box itself.
struct StageHandle {
    int x = 0, y = 0;
    bool isCorner() const { return x != 0 && y != 0; }
    bool operator==(const StageHandle&) const = default;
};

// A line that the drag has snapped to, from one side of the canvas to the other.
struct StageGuide {
    enum class Axis { vertical, horizontal };
    Axis axis = Axis::vertical;
    double atPx = 0;
    bool operator==(const StageGuide&) const = default;
};

struct SnappedMove {
    double dxPx = 0, dyPx = 0;
    std::vector<StageGuide> guides;
};
// How a layer stands on the canvas at the time of a drag, by its motion.
struct StageStand {
    double canvasWidthPx = 1080, canvasHeightPx = 1920;
    double windowSec = 0;          // how long it is shown
    PixelPoint shiftPx = {};       // of the place that the document gives it
    double across = 1, down = 1;   // how much larger it is shown
    // Of a picture that is shown in its own pixels, on the canvas.
    std::optional<double> heightFraction = {};
};
// By how much a box grows, about a place that stays where it is.
struct StageGrowth {
    double across = 1, down = 1;
    PixelPoint about;
};

namespace StageEdits {

// The edges and the middle of a moved box take hold of those of the canvas and of the other boxes, the
// nearest first, when they lie closer than the tolerance; each axis by itself.
SnappedMove snappedMove(const PixelRect& box, double dxPx, double dyPx, const PixelRect& canvas,
    const std::vector<PixelRect>& others, double tolerancePx);

// By how much a box grows when its handle is dragged that far: evenly by a corner, along one side by an edge.
// Its opposite side stays; never under a twentieth.
StageGrowth growth(const PixelRect& box, StageHandle handle, double dxPx, double dyPx);
PixelRect grown(const PixelRect& box, const StageGrowth& by);

// Every kind of layer but a device, which has keyframes for that (`DeviceOperations`).
void moveLayer(CompositionLayer& layer, double dxPx, double dyPx, const StageStand& stand);
// Sizes follow, in the unit of the content: text grows evenly, and by its sides becomes wider to break its
// lines elsewhere; pictures grow evenly; all others follow both ways. A fill, which has no size of its own,
// grows by keyframes of its scale. Devices stay as they are.
void growLayer(CompositionLayer& layer, const StageGrowth& by, StageHandle handle, const StageStand& stand);
// Clockwise, about its middle: added to the turn that it has at any time.
void turnLayer(CompositionLayer& layer, double degrees, double windowSec);

}   // namespace StageEdits

}   // namespace tavix
