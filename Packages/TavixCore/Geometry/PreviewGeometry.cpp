#include "TavixCore/Geometry/PreviewGeometry.h"

#include <algorithm>

namespace tavix::PreviewGeometry {

PixelRect fitRect(double canvasWidth, double canvasHeight, double containerWidth, double containerHeight) {
    if (!(canvasWidth > 0 && canvasHeight > 0 && containerWidth > 0 && containerHeight > 0)) return {};
    const double scale = std::min(containerWidth / canvasWidth, containerHeight / canvasHeight);
    const double width = canvasWidth * scale, height = canvasHeight * scale;
    return {(containerWidth - width) / 2, (containerHeight - height) / 2, width, height};
}

PixelPoint toCanvas(const PixelPoint& viewPoint, const PixelRect& fit, double canvasWidth) {
    if (!(canvasWidth > 0 && fit.width > 0)) return {};
    const double scale = fit.width / canvasWidth;
    return {(viewPoint.x - fit.x) / scale, (viewPoint.y - fit.y) / scale};
}

}   // namespace tavix::PreviewGeometry
