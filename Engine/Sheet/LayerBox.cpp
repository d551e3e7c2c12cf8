#include "Engine/Sheet/LayerBox.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace tavix::engine {

namespace {

constexpr double longSidePx = 200;   // of the small picture that is looked at
constexpr int leastAlpha = 16;       // what is fainter is no part of it to the eye
constexpr double leastBoxFraction = 0.04;

std::optional<imaging::Image> drawnAlone(
    const ResolvedCompositionLayer& layer, double localSec, const imaging::Rect& bounds) {
    if (!layer.window.contains(localSec)) return std::nullopt;
    const double layerSec = localSec - layer.window.startSec;
    const auto content = layer.renderer->contentImage(layerSec);
    if (!content) return std::nullopt;
    return layer.finish(*content, layerSec, bounds.height, bounds);
}

// Of the pixels that can be seen; the first row is the top one.
std::optional<imaging::PixelRegion> inkOf(const imaging::Bitmap& picture) {
    const imaging::Size size = picture.size();
    imaging::PixelRegion ink{size.width, size.height, 0, 0};
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x)
            if (picture.view().row(y)[x * 4 + 3] >= leastAlpha)
                ink = {std::min(ink.x0, x), std::min(ink.y0, y), std::max(ink.x1, x + 1),
                    std::max(ink.y1, y + 1)};
    return ink.isEmpty() ? std::nullopt : std::optional(ink);
}

}   // namespace

LayerTime layerTime(
    const ResolvedComposition& composition, std::size_t scene, std::size_t layer, double localSec) {
    LayerTime time = LayerTime::never;
    for (const ResolvedCompositionLayer& resolved : composition.layers(scene)) {
        if (resolved.layer.origin.writtenAs != layer) continue;
        if (resolved.window.contains(localSec)) return LayerTime::now;
        const bool isInScene = resolved.window.startSec < composition.spec().scenes[scene].durationSec;
        if (isInScene && resolved.window.lengthSec() > 0) time = LayerTime::other;
    }
    return time;
}

std::optional<imaging::Rect> layerBox(ResolvedComposition& composition, std::size_t scene, std::size_t layer,
    double localSec, imaging::Evaluator& evaluator) {
    const imaging::Rect& bounds = composition.bounds();
    std::vector<imaging::Image> drawn;
    for (const ResolvedCompositionLayer& resolved : composition.layers(scene))
        if (resolved.layer.origin.writtenAs == layer)
            if (const auto image = drawnAlone(resolved, localSec, bounds)) drawn.push_back(*image);
    if (drawn.empty()) return std::nullopt;
    const double scale = std::min(longSidePx / std::max(bounds.width, bounds.height), 1.0);
    const imaging::Size small{std::max(int(std::ceil(bounds.width * scale)), 1),
        std::max(int(std::ceil(bounds.height * scale)), 1)};
    const imaging::Image shrunk =
        imaging::Image::stacked(drawn).transformed(imaging::Affine::scaling(scale, scale));
    const auto ink = inkOf(evaluator.draw(shrunk, {0, 0, small.width, small.height}));
    if (!ink) return std::nullopt;
    return imaging::Rect{
        ink->x0 / scale, (small.height - ink->y1) / scale, ink->width() / scale, ink->height() / scale};
}

std::optional<imaging::Rect> unseenBox(
    const CompositionGeometry& geometry, std::size_t scene, std::size_t layer, double localSec) {
    imaging::Rect box;
    for (std::size_t l = 0; l < geometry.layers(scene).size(); ++l)
        if (geometry.layers(scene)[l].layer->origin.writtenAs == layer)
            if (const auto drawn = geometry.layerAt(scene, l, localSec))
                for (const Outline& part : drawn->parts) box = imaging::unionOf(box, part.bounds());
    if (box.isEmpty()) return std::nullopt;
    const imaging::Rect& canvas = geometry.canvas();
    const double least = leastBoxFraction * std::min(canvas.width, canvas.height);
    const double x0 = std::clamp(box.x, 0.0, canvas.width - least);
    const double y0 = std::clamp(box.y, 0.0, canvas.height - least);
    return imaging::Rect{x0, y0, std::clamp(box.maxX() - x0, least, canvas.width - x0),
        std::clamp(box.maxY() - y0, least, canvas.height - y0)};
}

}   // namespace tavix::engine
