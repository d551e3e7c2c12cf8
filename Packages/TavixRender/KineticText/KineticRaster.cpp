#include "TavixRender/KineticText/KineticRaster.h"

#include "TavixCore/Typography/KineticStyle.h"
#include "TavixCore/Values/TextShadow.h"
#include "TavixPlatform/Imaging/Evaluator.h"

#include <algorithm>
#include <cmath>

namespace tavix::KineticRaster {

namespace {

using imaging::Bitmap;
using imaging::Image;
using imaging::PixelRegion;

// A clear border, so that sampling between the last pixel and nothing is soft.
constexpr int borderPx = 1;

// What no letter of a sound document exceeds; all of it is memory.
constexpr int mostSidePx = 16384;
constexpr double mostPixels = 4 * maxFragmentPixels;

PixelRegion limited(const PixelRegion& region) {
    PixelRegion result = region;
    result.x1 = std::min(result.x1, result.x0 + mostSidePx);
    const int rows = int(std::min<double>(mostSidePx, mostPixels / std::max(result.width(), 1)));
    result.y1 = std::min(result.y1, result.y0 + rows);
    return result;
}

// The shape of a picture in one premultiplied colour.
imaging::BitmapRef silhouetteOf(const Bitmap& shape, const RGBAColor& color, double alpha) {
    const double channels[4] = {color.b * alpha, color.g * alpha, color.r * alpha, alpha};
    auto result = std::make_shared<Bitmap>(Bitmap::uninitialised(shape.size()));
    for (int y = 0; y < shape.size().height; ++y) {
        const std::uint8_t* from = shape.view().row(y);
        std::uint8_t* to = result->view().row(y);
        for (int x = 0; x < shape.size().width; ++x)
            for (int c = 0; c < 4; ++c)
                to[x * 4 + c] = std::uint8_t(std::clamp(from[x * 4 + 3] * channels[c] + 0.5, 0.0, 255.0));
    }
    result->indexCoverage();
    return result;
}

}   // namespace

Image deriveShadow(const imaging::BitmapRef& glyph, imaging::Point origin, const TextShadow& shadow,
    double canvasHeight, double scale, imaging::Evaluator& evaluator) {
    constexpr double leastRadiusPx = 0.1, mostRadiusHeights = 0.25;
    const double unit = canvasHeight * scale;
    const double radius = std::clamp(shadow.radiusFraction * unit, leastRadiusPx, mostRadiusHeights * unit);
    const double alpha = std::clamp(shadow.color.a * shadow.opacity, 0.0, 1.0);
    const Image cast = Image::bitmap(silhouetteOf(*glyph, shadow.color, alpha), origin)
                           .translated(shadow.offset.x * unit, -shadow.offset.y * unit)
                           .gaussianBlurred(radius);
    const PixelRegion region = imaging::pixelsCovering(cast.extent());
    if (region != limited(region)) return {};
    return evaluator.baked(cast, region);
}

std::optional<Raster> drawn(const Request& request, imaging::Evaluator& evaluator) {
    const double magnification = request.rest.emphasisScale * request.scale;
    if (!(magnification > 0)) return std::nullopt;
    // In the frame a point p of the layout rests at pivot + e (p - pivot), which is e (p + (1/e - 1) pivot).
    const double shift = 1 / request.rest.emphasisScale - 1;
    const KineticTextLayout::Fragment& fragment = request.fragment;
    const imaging::Point origin{fragment.lineOriginX + shift * request.rest.pivot.x,
        fragment.baselineY + shift * request.rest.pivot.y};
    const PixelRegion ink = text::inkRegion(fragment.line, origin, fragment.part(), magnification);
    if (ink.isEmpty()) return std::nullopt;
    const PixelRegion region = limited(imaging::grownBy(ink, borderPx));
    auto bitmap =
        std::make_shared<Bitmap>(text::drawn(fragment.line, origin, fragment.part(), magnification, region));
    bitmap->indexCoverage();

    const imaging::Point corner{double(region.x0), double(region.y0)};
    Raster raster{Image::bitmap(bitmap, corner), {}, {}};
    raster.baked = raster.glyph;
    if (request.shadow) {
        raster.shadow =
            deriveShadow(bitmap, corner, *request.shadow, request.canvasHeight, magnification, evaluator);
        const Image both = raster.glyph.over(*raster.shadow);
        raster.baked = evaluator.baked(both, imaging::pixelsCovering(both.extent()));
    }
    return raster;
}

int peakScale(const KineticStyle& style) {
    double peak = 1;
    if (style.idle && style.idle->target == IdlePhase::Target::scale) peak += style.idle->amplitude;
    if (style.inPhase.scale >= 1) peak = std::max(peak, style.inPhase.scale);
    if (std::max(style.inPhase.scale, style.outPhase.scale) >= 1) peak = std::max(peak, style.outPhase.scale);
    return peak > 2 ? 3 : peak > 1 ? 2 : 1;
}

double padPx(const std::optional<TextShadow>& shadow, double canvasHeight) {
    constexpr double leastPx = 4;
    if (!shadow) return leastPx;
    const double reach = shadow->radiusFraction + std::hypot(shadow->offset.x, shadow->offset.y);
    return std::ceil(canvasHeight * reach) + leastPx;
}

int affordableScale(const imaging::Rect& fragment, double padPx, int scale) {
    const auto pixels = [&](int s) {
        return std::trunc((2 * padPx + fragment.width) * s) * std::trunc((2 * padPx + fragment.height) * s);
    };
    while (scale > 1 && pixels(scale) > maxFragmentPixels) --scale;
    return scale;
}

}   // namespace tavix::KineticRaster
