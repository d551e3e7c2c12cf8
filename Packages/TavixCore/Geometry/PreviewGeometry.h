// A canvas shown in a view.
#pragma once

#include "TavixCore/Values/PixelRect.h"

namespace tavix::PreviewGeometry {

// The canvas as large as it fits, in the middle; all zero when either has no area.
PixelRect fitRect(double canvasWidth, double canvasHeight, double containerWidth, double containerHeight);

// A point of the view in pixels of the canvas; (0, 0) when nothing is shown.
PixelPoint toCanvas(const PixelPoint& viewPoint, const PixelRect& fit, double canvasWidth);

}   // namespace tavix::PreviewGeometry
