#include "TavixRender/Compositor/MovedDevice.h"

#include "TavixRender/Compositor/CanvasDrawing.h"

#include <algorithm>
#include <cmath>

namespace tavix::CanvasDrawing {

using imaging::Image;
using imaging::Rect;

PixelRect moved(const PixelRect& rect, const CameraFrameTransform& move) {
    return {rect.x * move.scale + move.translateX, rect.y * move.scale + move.translateY,
        rect.width * move.scale, rect.height * move.scale};
}

imaging::Affine affineOf(const CameraFrameTransform& move, const Rect& bounds) {
    return {
        move.scale, 0, 0, move.scale, move.translateX, (1 - move.scale) * bounds.height - move.translateY};
}

Image cutToScreen(const Image& picture, const Rect& screen, double cornerRadiusPx) {
    const Image shown =
        masked(picture, Image::roundedRectangle(screen, cornerRadiusPx, imaging::Color::white()));
    const double radius = std::clamp(cornerRadiusPx, 0.0, std::min(screen.width, screen.height) / 2);
    const Rect inner = Rect::fromEdges(std::ceil(screen.x), std::ceil(screen.y + radius),
        std::floor(screen.maxX()), std::floor(screen.maxY() - radius));
    if (!(inner.width > 0 && inner.height > 0)) return shown;
    const auto rim = [&](double left, double bottom, double right, double top) {
        return shown.cropped(Rect::fromEdges(left, bottom, right, top));
    };
    return Image::stacked(
        {rim(screen.x, screen.y, screen.maxX(), inner.y), rim(screen.x, inner.y, inner.x, inner.maxY()),
            picture.cropped(inner), rim(inner.maxX(), inner.y, screen.maxX(), inner.maxY()),
            rim(screen.x, inner.maxY(), screen.maxX(), screen.maxY())});
}

}   // namespace tavix::CanvasDrawing
