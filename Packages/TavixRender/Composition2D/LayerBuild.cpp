#include "TavixRender/Composition2D/LayerBuild.h"

#include <algorithm>

namespace tavix {

namespace {

// Enough for a picture of 4K at twice its size; 128 MiB.
constexpr double maxBakedPixels = 1 << 25;
// Below this the loss of enlarging cannot be seen, and twice the size would cost four times the memory.
constexpr double visibleMagnification = 1.25;

double peakOf(const CompositionLayer& layer, AnimProperty property) {
    double peak = 1;
    for (const PropertyTrack& track : layer.tracks)
        if (track.property == property)
            for (const CompositionKeyframe& keyframe : track.keyframes) peak = std::max(peak, keyframe.value);
    return peak;
}

// Twice the size at most: more would take sixteen times the memory for what is seen but for a moment.
int detailFor(double magnification) { return magnification > visibleMagnification ? 2 : 1; }

bool canBeKept(const imaging::Rect& extent) {
    return !extent.isInfinite() && extent.width * extent.height <= maxBakedPixels &&
           std::max(extent.width, extent.height) <= imaging::Bitmap::maxSidePx;
}

}   // namespace

double peakMagnification(const CompositionLayer& layer) {
    const double stretch = std::max(peakOf(layer, AnimProperty::scaleX), peakOf(layer, AnimProperty::scaleY));
    double peak = peakOf(layer, AnimProperty::scale) * stretch;
    if (layer.enter) peak *= std::max(1.0, layer.enter->scale);
    if (layer.exit) peak *= std::max(1.0, layer.exit->scale);
    return peak;
}

imaging::Image bakedForMagnification(
    const std::function<imaging::Image(int)>& draw, double magnification, imaging::Evaluator& evaluator) {
    for (int detail = detailFor(magnification); detail >= 1; detail /= 2) {
        const imaging::Image image = draw(detail);
        if (!canBeKept(image.extent())) continue;
        const imaging::Image baked = evaluator.baked(image, imaging::pixelsCovering(image.extent()));
        return detail == 1 ? baked : baked.transformed(imaging::Affine::scaling(1.0 / detail, 1.0 / detail));
    }
    return draw(1);
}

}   // namespace tavix
