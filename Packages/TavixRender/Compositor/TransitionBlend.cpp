#include "TavixRender/Compositor/TransitionBlend.h"

#include "TavixRender/Compositor/Kernels/CrosswarpKernel.h"
#include "TavixRender/Compositor/Kernels/RippleKernel.h"

#include <memory>
#include <numbers>

namespace tavix::TransitionBlend {

namespace {

using imaging::Affine;
using imaging::Color;
using imaging::Image;
using imaging::Rect;

constexpr double softEdgeOfWidth = 0.06;
constexpr double zoomBlurOfHeight = 0.03;
constexpr double visibleBlurPx = 0.01;
constexpr double visibleFlash = 0.001;

constexpr double defaultCrossZoomScale = 1.4;
constexpr double defaultDreamyZoomScale = 1.2;
constexpr double defaultDreamyZoomRotationDeg = 6;
constexpr double defaultRippleAmplitude = 30;
constexpr double defaultRippleSpeed = 30;

// A white band with a soft edge sweeps from left to right, and what it has passed is the incoming picture.
Image wipe(const Pictures& p, double e) {
    const double edge = p.rect.width * softEdgeOfWidth;
    const double x = p.rect.x + (p.rect.width + 2 * edge) * e - edge, middleY = p.rect.center().y;
    const Image mask =
        Image::smoothLinearGradient({x - edge, middleY}, Color::white(), {x + edge, middleY}, Color::black());
    return p.incoming.blendedWithMask(p.outgoing, mask.cropped(p.rect));
}

// The pictures meet edge to edge: where a pixel holds both, their shares add up to one, which laying one over
// the other would not give. Pushed too far, the picture in view goes on with its edge pixels.
Image push(const Pictures& p, double e) {
    const double leavingBy = -e * p.rect.width, enteringBy = (1 - e) * p.rect.width;
    if (e < 0) return p.outgoing.clampedToExtent().translated(leavingBy, 0);
    if (e > 1) return p.incoming.clampedToExtent().translated(enteringBy, 0);
    return p.incoming.translated(enteringBy, 0)
        .cropped(p.rect)
        .adding(p.outgoing.translated(leavingBy, 0).cropped(p.rect));
}

Image zoomedAndBlurred(const Image& picture, const Rect& rect, double zoom, double blurPx) {
    // Past the ends a picture shrinks; its edge pixels then fill the rest.
    const Image source = zoom < 1 ? picture.clampedToExtent() : picture;
    const Image zoomed = source.transformed(Affine::scaling(zoom, zoom).about(rect.center())).cropped(rect);
    if (blurPx <= visibleBlurPx) return zoomed;
    return zoomed.clampedToExtent().gaussianBlurred(blurPx).cropped(rect);
}

Image crossZoom(const Pictures& p, double e, double scale) {
    const double growth = (scale - 1) * e, blurMaxPx = p.rect.height * zoomBlurOfHeight;
    const Image leaving = zoomedAndBlurred(p.outgoing, p.rect, 1 + growth, blurMaxPx * e);
    const Image entering = zoomedAndBlurred(p.incoming, p.rect, scale - growth, blurMaxPx * (1 - e));
    return entering.withOpacity(e).over(leaving);
}

// One picture at a time, changed over under a white flash. The edge pixels are continued before the turn, so
// that the corners it uncovers are filled.
Image dreamyZoom(const Pictures& p, double e, double rotationDeg, double scale) {
    const bool isFirstHalf = e < 0.5;
    const double strength = isFirstHalf ? 2 * e : 1 - 2 * (e - 0.5);
    const double zoom = 1 + strength * (scale - 1);
    const Affine turn = Affine::rotation(strength * rotationDeg * std::numbers::pi / 180);
    const Affine move = turn.then(Affine::scaling(zoom, zoom)).about(p.rect.center());
    const Image& source = isFirstHalf ? p.outgoing : p.incoming;
    const Image moved =
        move.isIdentity() ? source : source.clampedToExtent().transformed(move).cropped(p.rect);
    if (strength <= visibleFlash) return moved;
    return Image::solid(Color{1, 1, 1, strength}).cropped(p.rect).over(moved);
}

Image crosswarp(const Pictures& p, double e) {
    return Image::warped(p.outgoing, p.incoming, std::make_shared<CrosswarpKernel>(p.rect, float(e)), p.rect);
}

Image ripple(const Pictures& p, double e, const RippleKernel::Shape& shape) {
    return Image::warped(
        p.outgoing, p.incoming, std::make_shared<RippleKernel>(p.rect, float(e), shape), p.rect);
}

Image fade(const Pictures& p, double e) { return p.incoming.withOpacity(e).over(p.outgoing); }

Image drawn(const Pictures& p, double e, TransitionStyle style, const TransitionParams& params) {
    switch (style) {
    case TransitionStyle::flip:   // a turn of the 3D device; with no device to turn it is a wipe
    case TransitionStyle::wipe: return wipe(p, e);
    case TransitionStyle::push: return push(p, e);
    case TransitionStyle::crossZoom: return crossZoom(p, e, params.scale.value_or(defaultCrossZoomScale));
    case TransitionStyle::dreamyZoom:
        return dreamyZoom(p, e, params.rotation.value_or(defaultDreamyZoomRotationDeg),
            params.scale.value_or(defaultDreamyZoomScale));
    case TransitionStyle::crosswarp: return crosswarp(p, e);
    case TransitionStyle::ripple:
        return ripple(p, e,
            {.amplitude = float(params.amplitude.value_or(defaultRippleAmplitude)),
                .speed = float(params.speed.value_or(defaultRippleSpeed))});
    case TransitionStyle::fade: break;
    }
    return fade(p, e);
}

}   // namespace

imaging::Image blend(const Pictures& pictures, double eased, TransitionStyle style,
    const std::optional<TransitionParams>& params) {
    const Rect& rect = pictures.rect;
    const Pictures cropped{pictures.outgoing.cropped(rect), pictures.incoming.cropped(rect), rect};
    return drawn(cropped, eased, style, params.value_or(TransitionParams{})).cropped(rect);
}

}   // namespace tavix::TransitionBlend
