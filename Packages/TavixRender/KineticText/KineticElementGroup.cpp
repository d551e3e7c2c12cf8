#include "TavixRender/KineticText/KineticElementGroup.h"

#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixRender/KineticText/KineticImageFX.h"
#include "TavixRender/KineticText/KineticTextMotion.h"

#include <algorithm>
#include <cmath>

namespace tavix {

namespace {

using imaging::Affine;
using imaging::Image;
using imaging::Rect;
using KineticRaster::Raster;

constexpr double fullAlpha = 0.999;
// All bitmaps of a text together; 256 MiB.
constexpr double mostPixels = 1 << 26;
// On the last of its way an element's mask opens for its shadow, which would be cut off where it rests.
constexpr double openingRemainder = 0.05;
// Enlarged by more than this, text is drawn from the large bitmap. Below it the large one, reduced, has no
// more to show than the one at rest.
constexpr double visibleEnlargement = 4.0 / 3;

Affine affineOf(const AffineTransform& t) { return {t.a, t.b, t.c, t.d, t.tx, t.ty}; }

double enlargementOf(const Affine& t) { return std::max(std::hypot(t.a, t.b), std::hypot(t.c, t.d)); }

// An emphasis beyond these is drawn at the nearer one and transformed for the rest of it.
double drawnScale(double emphasisScale) { return std::clamp(std::abs(emphasisScale), 1.0 / 16, 8.0); }

imaging::Color colorOf(const RGBAColor& c) { return {c.r, c.g, c.b, c.a}; }

// A marker behind a word.
Image highlightOf(const Rect& restRect, const RGBAColor& color, double pointSize, const Affine& rest) {
    constexpr double outsetEm = 0.15, radiusEm = 0.2;
    const Rect rect = imaging::grownBy(restRect, outsetEm * pointSize);
    const double radius = std::min(radiusEm * pointSize, std::min(rect.width, rect.height) / 2);
    return Image::roundedRectangle(rest.boundsOf(rect), radius * enlargementOf(rest), colorOf(color));
}

double pixelsOf(const Raster& raster, bool isTinted) {
    const Rect r = raster.bounds();
    return r.width * r.height * (raster.shadow && isTinted ? 2 : 1);
}

}   // namespace

// What one element is drawn with at one time.
struct KineticElementGroup::Frame {
    const KineticMath::ElementFrameState& state;
    Affine fromRest;   // from where it rests
    bool rests;        // it is not moved at all
    const RGBAColor& restFill;
    std::optional<Rect> clip;

    Image moved(const Image& image, double placementScale) const {
        if (placementScale == 1) return rests ? image : image.transformed(fromRest);
        return image.transformed(Affine::scaling(1 / placementScale, 1 / placementScale).then(fromRest));
    }
    Image finished(const Image& image) const {
        const Image faded = state.alpha < fullAlpha ? KineticImageFX::alphaMul(image, state.alpha) : image;
        return clip ? faded.cropped(*clip) : faded;
    }
};

std::unique_ptr<const KineticElementGroup> KineticElementGroup::make(const KineticTextLayout::Result& layout,
    const KineticStyle& style, const Window& window, imaging::Evaluator& evaluator) {
    std::unique_ptr<KineticElementGroup> group(new KineticElementGroup(layout, style, window, evaluator));
    if (group->elements_.empty()) return nullptr;
    return group;
}

KineticElementGroup::KineticElementGroup(const KineticTextLayout::Result& layout, const KineticStyle& style,
    const Window& window, imaging::Evaluator& evaluator)
    : style_(style), colorAnimated_(style.inPhase.color || style.outPhase.color), canvas_{layout.canvasHeight,
                                                                                      window.framesPerSec},
      rasterScale_(KineticRaster::peakScale(style)), pixelsLeft_(mostPixels) {
    if (layout.shadow) shadowReach_ = 3 * KineticRaster::padPx(layout.shadow, layout.canvasHeight);
    const std::vector<KineticMath::KineticElement> motions =
        KineticTextMotion::motionsOf(layout, style, {window.lengthSec, window.cardDelaySec});
    for (std::size_t i = 0; i < layout.elements.size(); ++i)
        add(layout.elements[i], layout, motions[i], evaluator);
}

void KineticElementGroup::add(const KineticTextLayout::Element& element,
    const KineticTextLayout::Result& layout, const KineticMath::KineticElement& motion,
    imaging::Evaluator& evaluator) {
    Elem elem;
    elem.motion = motion;
    const double scale = drawnScale(elem.motion.emphasisScale);
    elem.restTransform = AffineTransform::translation(-element.pivot.x, -element.pivot.y)
                             .concatenating(AffineTransform::scaling(scale, scale))
                             .concatenating(AffineTransform::translation(element.pivot.x, element.pivot.y));
    elem.fromRest = affineOf(elem.restTransform).inverse();
    elem.mask = imaging::grownBy(element.restRect, KineticTextMotion::maskOutsetEm * layout.pointSize);
    for (const KineticTextLayout::Fragment& fragment : element.fragments)
        if (auto raster = rasterised(fragment, elem, layout.shadow, evaluator)) {
            // Other fonts than the one that lines are measured by may leave their line; what rests is whole.
            elem.mask = imaging::unionOf(elem.mask, raster->rest.glyph.extent());
            elem.fragments.push_back(std::move(*raster));
        }
    if (elem.fragments.empty()) return;
    if (element.emphasis && element.emphasis->highlightColor)
        elem.highlight = highlightOf(element.restRect, *element.emphasis->highlightColor, layout.pointSize,
            affineOf(elem.restTransform));
    elements_.push_back(std::move(elem));
}

std::optional<KineticElementGroup::RasterFragment> KineticElementGroup::rasterised(
    const KineticTextLayout::Fragment& fragment, const Elem& elem, const std::optional<TextShadow>& shadow,
    imaging::Evaluator& evaluator) {
    rasterScale_ = KineticRaster::affordableScale(
        fragment.rect(), KineticRaster::padPx(shadow, canvas_.heightPx), rasterScale_);
    if (pixelsLeft_ <= 0) {
        isCut_ = true;
        return std::nullopt;
    }
    KineticRaster::Request request{fragment,
        {{elem.motion.pivotXPx, elem.motion.pivotYPx}, drawnScale(elem.motion.emphasisScale)}, 1, shadow,
        canvas_.heightPx};
    const auto rest = KineticRaster::drawn(request, evaluator);
    if (!rest) return std::nullopt;
    RasterFragment result{*rest, rest->baked, {}};
    pixelsLeft_ -= pixelsOf(*rest, colorAnimated_);
    if (colorAnimated_) {
        const Image tinted = colored(*rest, elem.motion.restFill);
        result.resting = evaluator.baked(tinted, imaging::pixelsCovering(tinted.extent()));
    }
    request.scale = rasterScale_;
    if (rasterScale_ > 1 && pixelsLeft_ > 0) {
        result.large = KineticRaster::drawn(request, evaluator);
        if (result.large) pixelsLeft_ -= pixelsOf(*result.large, colorAnimated_);
    }
    return result;
}

std::optional<Rect> KineticElementGroup::clipOf(
    const Elem& elem, const KineticMath::ElementFrameState& state) const {
    if (state.clip == ClipMask::none) return std::nullopt;
    const double opened = std::clamp(1 - std::abs(state.remainder) / openingRemainder, 0.0, 1.0);
    return imaging::grownBy(elem.mask, opened * shadowReach_);
}

Image KineticElementGroup::colored(const Raster& raster, const RGBAColor& color) const {
    if (!colorAnimated_) return raster.baked;
    const Image tinted = KineticImageFX::tint(raster.glyph, color);
    return raster.shadow ? tinted.over(*raster.shadow) : tinted;
}

Image KineticElementGroup::source(const RasterFragment& fragment, const Frame& frame) const {
    if (fragment.large && enlargementOf(frame.fromRest) > visibleEnlargement)
        return frame.moved(colored(*fragment.large, frame.state.color), rasterScale_);
    const bool hasRestColor = frame.state.progress >= 1 || frame.state.color == frame.restFill;
    return frame.moved(hasRestColor ? fragment.resting : colored(fragment.rest, frame.state.color), 1);
}

void KineticElementGroup::render(const Elem& elem, double localSec, std::vector<Image>& bottomToTop) const {
    const KineticMath::ElementFrameState state = KineticMath::stateAt(localSec, elem.motion, style_, canvas_);
    if (!state.visible) return;
    const Frame frame{state, elem.fromRest.then(affineOf(state.transform)),
        state.transform == elem.restTransform, elem.motion.restFill, clipOf(elem, state)};
    if (elem.highlight) bottomToTop.push_back(frame.finished(frame.moved(*elem.highlight, 1)));
    for (const RasterFragment& fragment : elem.fragments) {
        Image image = source(fragment, frame);
        if (state.hasPerspective())
            image = KineticImageFX::applyPerspective(
                image, {{elem.motion.pivotXPx, elem.motion.pivotYPx}, state.tiltXDeg, state.tiltYDeg,
                           canvas_.heightPx});
        if (state.gaussianRadius > 0) image = image.gaussianBlurred(state.gaussianRadius);
        if (state.motionBlurRadius)
            image = image.motionBlurred(*state.motionBlurRadius, state.motionBlurAngle);
        bottomToTop.push_back(frame.finished(image));
    }
}

std::optional<Image> KineticElementGroup::render(double localSec) const {
    std::vector<Image> bottomToTop;
    for (const Elem& elem : elements_) render(elem, localSec, bottomToTop);
    if (bottomToTop.empty()) return std::nullopt;
    return Image::stacked(bottomToTop);
}

}   // namespace tavix
