#include "TavixRender/KineticText/KineticImageFX.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tavix::KineticImageFX {

imaging::Image tint(const imaging::Image& image, const RGBAColor& color) {
    imaging::ColorMatrix matrix;
    matrix.r[0] = float(color.r);
    matrix.g[1] = float(color.g);
    matrix.b[2] = float(color.b);
    matrix.a[3] = float(color.a);
    return image.withColorMatrix(matrix);
}

imaging::Point seenInPerspective(imaging::Point point, const Tilt& tilt) {
    constexpr double eyeHeights = 1.2, nearestShare = 0.05;
    const double focal = eyeHeights * tilt.canvasHeight;
    const double rx = tilt.xDeg * std::numbers::pi / 180, ry = tilt.yDeg * std::numbers::pi / 180;
    const double dx = point.x - tilt.pivot.x, dy = point.y - tilt.pivot.y;
    const double x1 = std::cos(ry) * dx, z1 = -std::sin(ry) * dx;
    const double y1 = std::cos(rx) * dy - std::sin(rx) * z1, z2 = std::sin(rx) * dy + std::cos(rx) * z1;
    const double depth = std::max(focal - z2, nearestShare * focal);
    return {tilt.pivot.x + x1 * focal / depth, tilt.pivot.y + y1 * focal / depth};
}

imaging::Image applyPerspective(const imaging::Image& image, const Tilt& tilt) {
    const imaging::Rect extent = image.extent();
    if (extent.isEmpty()) return image;
    const auto seen = [&](double x, double y) { return seenInPerspective({x, y}, tilt); };
    return image.inPerspective({seen(extent.x, extent.maxY()), seen(extent.maxX(), extent.maxY()),
        seen(extent.x, extent.y), seen(extent.maxX(), extent.y)});
}

}   // namespace tavix::KineticImageFX
