#include "TavixRender/Composition2D/CanvasEdge.h"

#include <algorithm>

namespace tavix::CanvasEdge {

namespace {

using imaging::Image;
using imaging::Rect;

// A side within that distance of the canvas's edge shares its pixels.
constexpr double samePx = 1;
// Beyond it a Gaussian has no weight.
constexpr double reachOfSigma = 4;

// A side counts outward: how far the layer and the canvas go in one direction.
struct Side {
    double layer, canvas;
    bool meets() const { return layer > canvas - samePx; }
    double continued(double reachPx) const { return meets() ? std::max(layer, canvas + reachPx) : layer; }
    // Cut at the canvas when it ends within the reach of it.
    double cut(double reachPx) const { return layer > canvas && layer < canvas + reachPx ? canvas : layer; }
};

template <class Move> Rect withSides(const Rect& layer, const Rect& canvas, const Move& move) {
    return Rect::fromEdges(-move(Side{-layer.x, -canvas.x}), -move(Side{-layer.y, -canvas.y}),
        move(Side{layer.maxX(), canvas.maxX()}), move(Side{layer.maxY(), canvas.maxY()}));
}

}   // namespace

Image continued(const Image& layer, const Rect& canvas, double reachPx) {
    const Rect extent = layer.extent();
    if (extent.isEmpty() || extent.isInfinite()) return layer;
    const Rect held = withSides(extent, canvas, [&](const Side& side) { return side.continued(reachPx); });
    return held == extent ? layer : layer.clampedToExtent().cropped(held);
}

Image blurred(const Image& layer, const Rect& canvas, double sigmaPx) {
    return continued(layer, canvas, reachOfSigma * sigmaPx).gaussianBlurred(sigmaPx);
}

Image blurredInPlace(const Image& layer, const Rect& canvas, double sigmaPx) {
    const Rect extent = layer.extent();
    if (extent.isInfinite()) return layer.gaussianBlurred(sigmaPx);
    const double reachPx = reachOfSigma * sigmaPx;
    const Rect seen = withSides(extent, canvas, [&](const Side& side) { return side.cut(reachPx); });
    return blurred(layer.cropped(seen), canvas, sigmaPx);
}

}   // namespace tavix::CanvasEdge
