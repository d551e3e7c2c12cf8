#include "TavixRender/Composition2D/CompositionSourceCrop.h"

#include <algorithm>

namespace tavix::CompositionSourceCrop {

namespace {

constexpr double minSideFraction = 0.001;

// At most what is left beyond the start, but never so little that nothing is shown.
double heldSide(double side, double start) { return std::min(std::max(side, minSideFraction), 1 - start); }

}   // namespace

imaging::Rect partOf(const imaging::Rect& extent, const NormalizedRect& rect) {
    const double x = std::clamp(rect.x, 0.0, 1.0), y = std::clamp(rect.y, 0.0, 1.0);
    const double width = heldSide(rect.width, x), height = heldSide(rect.height, y);
    return {extent.x + x * extent.width, extent.y + (1 - y - height) * extent.height, width * extent.width,
        height * extent.height};
}

imaging::Image apply(const imaging::Image& image, const std::optional<NormalizedRect>& rect) {
    if (!rect) return image;
    const imaging::Image cut = image.cropped(partOf(image.extent(), *rect));
    return cut.translated(-cut.extent().x, -cut.extent().y);
}

}   // namespace tavix::CompositionSourceCrop
