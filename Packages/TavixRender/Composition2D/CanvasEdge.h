// What lies past a layer for an operation that looks at a pixel's neighbours. Past its own edges there is
// nothing, so that the layer bleeds outward; but where it meets the canvas's edge it goes on, or the frame
// would fade at its border.
#pragma once

#include "TavixPlatform/Imaging/Image.h"

namespace tavix::CanvasEdge {

// The border pixels of the sides that reach the canvas's edge go on, as far as `reachPx` past that edge. A
// layer that lies within the canvas comes back as it is, and so does one without an end.
imaging::Image continued(const imaging::Image& layer, const imaging::Rect& canvas, double reachPx);

// Of a layer that may yet move: whatever it has past the canvas counts.
imaging::Image blurred(const imaging::Image& layer, const imaging::Rect& canvas, double sigmaPx);

// Of one that stands where it is seen: past an edge that it hardly crosses it goes on as it is seen there.
imaging::Image blurredInPlace(const imaging::Image& layer, const imaging::Rect& canvas, double sigmaPx);

}   // namespace tavix::CanvasEdge
