#include "TavixRender/Composition2D/CompositionLayerEffects.h"

#include "TavixCore/Paths/Limits.h"
#include "TavixCore/Typography/KineticNoise.h"
#include "TavixRender/Composition2D/CanvasEdge.h"
#include "TavixRender/Compositor/CanvasDrawing.h"
#include "TavixRender/KineticText/KineticImageFX.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <variant>

namespace tavix {

namespace {

using imaging::ColorMatrix;
using imaging::Image;
using imaging::Rect;

constexpr int grainSidePx = 128;
constexpr std::int64_t grainStream = 7;
constexpr double visibleGrain = 0.001;
constexpr double visibleRadiusPx = 0.01;
constexpr double visibleOffsetPx = 0.01;

// One overload for each kind of effect; fractions are of the canvas height. Every number is held inside the
// limits of its table.
struct Application {
    const Image& image;
    const Image& grain;
    const Rect& bounds;   // of the canvas
    const Rect& vignetted;

    Image operator()(const BlurEffect& effect) const {
        const double radiusPx = bounds.height * withinLimits(effect, effect.radiusFraction);
        if (radiusPx <= visibleRadiusPx) return image;
        return CanvasEdge::blurred(image, bounds, radiusPx);
    }
    Image operator()(const ColorControlsEffect& effect) const {
        return image.withColorControls(withinLimits(effect, effect.brightness),
            withinLimits(effect, effect.contrast), withinLimits(effect, effect.saturation));
    }
    Image operator()(const TintEffect& effect) const {
        const imaging::Color opaque{effect.color.r, effect.color.g, effect.color.b, 1};
        return image.withMonochrome(opaque, withinLimits(effect, effect.intensity));
    }
    Image operator()(const DuotoneEffect& effect) const {
        return image.withFalseColor(
            CanvasDrawing::colorOf(effect.shadow), CanvasDrawing::colorOf(effect.highlight));
    }
    Image operator()(const VignetteEffect& effect) const {
        return image.withVignette(
            withinLimits(effect, effect.intensity), withinLimits(effect, effect.radius), vignetted);
    }
    Image operator()(const GlowEffect& effect) const {
        const double radiusPx = bounds.height * withinLimits(effect, effect.radiusFraction);
        return image.litBy(
            CanvasEdge::blurred(image, bounds, radiusPx), withinLimits(effect, effect.intensity));
    }
    Image operator()(const NoiseEffect& effect) const {
        if (withinLimits(effect, effect.amount) <= visibleGrain) return image;
        return grain.atop(image);
    }
    Image operator()(const PixelateEffect& effect) const {
        const double scalePx = bounds.height * withinLimits(effect, effect.scaleFraction);
        if (scalePx <= 1) return image;
        return CanvasEdge::continued(image, bounds, scalePx).pixellated(bounds.center(), scalePx);
    }
    Image operator()(const ChromaticAberrationEffect& effect) const {
        const double offsetPx = bounds.height * withinLimits(effect, effect.offsetFraction);
        if (offsetPx <= visibleOffsetPx) return image;
        const Image all = CanvasEdge::continued(image, bounds, offsetPx);
        const Image red = all.withColorMatrix({.g = {}, .b = {}}).translated(offsetPx, 0);
        const Image green = all.withColorMatrix({.r = {}, .b = {}});
        const Image blue = all.withColorMatrix({.r = {}, .g = {}}).translated(-offsetPx, 0);
        // Their alphas are not added, which would darken every soft edge.
        return blue.lightestWith(red.lightestWith(green));
    }
    Image operator()(const UnknownEffect&) const { return image; }
};

imaging::BitmapRef grainBitmap(std::int64_t seed) {
    imaging::Bitmap pixels({grainSidePx, grainSidePx});
    const imaging::BitmapView view = pixels.view();
    for (int y = 0; y < grainSidePx; ++y)
        for (int x = 0; x < grainSidePx; ++x) {
            const double unit = KineticMath::unitDouble(seed, grainStream, y * grainSidePx + x);
            const auto grey = static_cast<std::uint8_t>(unit * 255);
            std::uint8_t* pixel = view.row(y) + 4 * x;
            pixel[0] = pixel[1] = pixel[2] = grey;
            pixel[3] = 255;
        }
    pixels.indexCoverage();
    return std::make_shared<const imaging::Bitmap>(std::move(pixels));
}

}   // namespace

CompositionLayerEffects::CompositionLayerEffects(
    const std::vector<LayerEffect>& effects, const Rect& bounds, Vignetted vignetted)
    : bounds_(bounds), vignetted_(vignetted) {
    for (const LayerEffect& effect : effects) {
        const auto* noise = std::get_if<NoiseEffect>(&effect);
        steps_.push_back(
            {effect, noise ? noiseTile(noise->seed, withinLimits(*noise, noise->amount)) : Image()});
    }
}

Image CompositionLayerEffects::apply(const Image& image) const {
    const Rect vignetted = vignetted_ == Vignetted::canvas ? bounds_ : image.extent();
    Image result = image;
    for (const Step& step : steps_)
        result = std::visit(Application{result, step.grain, bounds_, vignetted}, step.effect);
    return result;
}

Image CompositionLayerEffects::noiseTile(std::int64_t seed, double alpha) {
    return KineticImageFX::alphaMul(Image::bitmap(grainBitmap(seed)).tiled(), alpha);
}

}   // namespace tavix
