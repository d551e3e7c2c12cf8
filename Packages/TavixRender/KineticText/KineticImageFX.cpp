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

imaging::Image applyPerspective(
    const imaging::Image& image, imaging::Point pivot, double rotXDeg, double rotYDeg, double canvasHeight) {
    constexpr double eyeHeights = 1.2, nearestShare = 0.05;
    const imaging::Rect extent = image.extent();
    if (extent.isEmpty()) return image;
    const double focal = eyeHeights * canvasHeight;
    const double rx = rotXDeg * std::numbers::pi / 180, ry = rotYDeg * std::numbers::pi / 180;
    const auto seen = [&](double x, double y) {
        const double dx = x - pivot.x, dy = y - pivot.y;
        const double x1 = std::cos(ry) * dx, z1 = -std::sin(ry) * dx;
        const double y1 = std::cos(rx) * dy - std::sin(rx) * z1, z2 = std::sin(rx) * dy + std::cos(rx) * z1;
        const double depth = std::max(focal - z2, nearestShare * focal);
        return imaging::Point{pivot.x + x1 * focal / depth, pivot.y + y1 * focal / depth};
    };
    return image.inPerspective({seen(extent.x, extent.maxY()), seen(extent.maxX(), extent.maxY()),
        seen(extent.x, extent.y), seen(extent.maxX(), extent.y)});
}

}   // namespace tavix::KineticImageFX
