#include "TavixRender/Compositor/CanvasDrawing.h"

#include "TavixBase/Overloaded.h"
#include "TavixCore/Theme/BackgroundCatalog.h"
#include "TavixRender/Assets/BundledBackgrounds.h"
#include "TavixRender/Assets/CompositionAssets.h"

#include <algorithm>
#include <filesystem>
#include <variant>

namespace tavix::CanvasDrawing {

namespace {

using imaging::Affine;
using imaging::Color;
using imaging::Image;
using imaging::Rect;

constexpr Color backdropOfLastResort{0.1, 0.1, 0.12, 1};

Image aspectFilled(const Image& image, const Rect& bounds) {
    const Rect extent = image.extent();
    if (extent.isInfinite()) return image.cropped(bounds);
    const double scale = std::max(bounds.width / extent.width, bounds.height / extent.height);
    const double width = extent.width * scale, height = extent.height * scale;
    const PixelRect rect{(bounds.width - width) / 2, (bounds.height - height) / 2, width, height};
    return place(image, rect, bounds, Resampling::still).cropped(bounds);
}

}   // namespace

Color colorOf(const RGBAColor& color) { return {color.r, color.g, color.b, color.a}; }

Image resolveBackgroundFill(const BackgroundFill& fill, const Rect& bounds, StillImageCache& images) {
    return std::visit(
        Overloaded{
            [&](const RGBAColor& color) { return Image::solid(colorOf(color)).cropped(bounds); },
            [&](const LinearGradient& gradient) { return gradientAcross(gradient, bounds).cropped(bounds); },
            [&](const BackgroundImage& image) {
                return aspectFilled(resolveBackgroundImage(image, images), bounds);
            },
        },
        fill);
}

Image resolveBackgroundImage(const BackgroundImage& background, StillImageCache& images) {
    if (background.path && !background.path->empty())
        if (const auto image = images.image(CompositionAssets::tildeExpanded(*background.path)))
            return *image;
    if (background.bundledID)
        if (const auto* entry = BackgroundCatalog::background(*background.bundledID))
            if (const auto image = loadBundled(*entry, images)) return *image;
    if (const auto image = loadBundled(BackgroundCatalog::standard, images)) return *image;
    return Image::solid(backdropOfLastResort);
}

std::optional<Image> loadBundled(const BundledBackground& background, StillImageCache& images) {
    const auto file = BundledBackgrounds::url(background);
    return file ? images.image(*file) : std::nullopt;
}

Rect flipped(const PixelRect& rect, const Rect& bounds) {
    return {rect.x, bounds.height - (rect.y + rect.height), rect.width, rect.height};
}

Image place(const Image& image, const PixelRect& rect, const Rect& bounds, Resampling resampling) {
    const Rect extent = image.extent(), target = flipped(rect, bounds);
    if (extent.isEmpty()) return image;
    if (target.isEmpty()) return Image();
    const double sx = target.width / extent.width, sy = target.height / extent.height;
    const bool keepsSize = sx == 1 && sy == 1;
    if (resampling == Resampling::still && !keepsSize) return image.placedInto(target);
    return image.transformed(Affine{sx, 0, 0, sy, target.x - extent.x * sx, target.y - extent.y * sy});
}

Image makeRoundedRectMask(const PixelRect& rect, double cornerRadiusPx, const Rect& bounds) {
    const double radius = std::min(std::min(rect.width, rect.height) / 2, cornerRadiusPx);
    return Image::roundedRectangle(flipped(rect, bounds), radius, Color::white());
}

Image masked(const Image& image, const Image& mask) { return image.blendedWithMask(Image(), mask); }

}   // namespace tavix::CanvasDrawing
