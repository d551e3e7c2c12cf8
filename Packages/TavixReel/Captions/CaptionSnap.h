// What a caption that is dragged about the canvas sticks to: the safe edges and the middle.
#pragma once

#include "TavixCore/Geometry/CanvasGeometry.h"
#include "TavixCore/Support/Tables.h"
#include "TavixCore/Values/PixelRect.h"

#include <type_traits>
#include <vector>

namespace tavix::CaptionSnap {

enum class GuideKind { leftEdge, rightEdge, topEdge, bottomEdge, centerX, centerY };

struct Guide {
    GuideKind kind = GuideKind::leftEdge;
    double coordinate = 0;   // of the guide, in canvas pixels
    bool operator==(const Guide&) const = default;
};

struct Result {
    PixelRect rect;              // as large as it was
    std::vector<Guide> guides;   // that it sticks to: at most one in each direction, the horizontal first
    bool operator==(const Result&) const = default;
};

// In canvas pixels, origin at the top left. A guide holds within `thresholdPx`, the nearest one first.
Result resolve(const PixelRect& proposed, const CanvasGeometry::CanvasSize& canvas, double safeInsetPx,
    double thresholdPx);

const Names<GuideKind>& namesOf(std::type_identity<GuideKind>);

}   // namespace tavix::CaptionSnap
