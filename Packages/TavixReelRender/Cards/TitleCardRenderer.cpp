#include "TavixReelRender/Cards/TitleCardRenderer.h"

#include "TavixRender/Assets/CompositionAssets.h"
#include "TavixRender/Composition2D/FillCompositionLayer.h"
#include "TavixRender/Compositor/CanvasDrawing.h"
#include "TavixRender/KineticText/KineticTextLayout.h"

#include <algorithm>
#include <cmath>

namespace tavix {

namespace {

using imaging::Image;

constexpr double gapFraction = 0.035;    // of the canvas height, between parts
constexpr double opticalMiddle = 0.47;   // of the canvas height, from the top

// A margin is a fraction of the width, and a style's inset one of the height.
CaptionStyle styleOf(const CardText& text, const imaging::Rect& canvas) {
    CaptionStyle style;
    style.fontName = text.fontName;
    style.fontPath = text.fontPath;
    style.fontSizeFraction = text.sizeFraction;
    style.fontWeight = text.fontWeight;
    style.textColor = text.color;
    style.textShadow = text.shadow;
    style.safeInsetFraction =
        std::max((1 - text.maxWidthFraction) / 2, 0.0) * canvas.width / std::max(canvas.height, 1.0);
    style.maxBarWidthFraction = text.maxWidthFraction;
    style.strokeWidthFraction = text.strokeWidthFraction;
    style.strokeColor = text.strokeColor;
    style.textGradient = text.textGradient;
    return style;
}

// Its middle stands at a fraction of the canvas height, from the top.
std::optional<KineticTextLayout::Result> laidOutAt(
    double sizeFraction, const CardText& text, double middleFraction, const LayerBuild& build) {
    KineticTextLayout::Request request{
        text.text, text.emphasis, styleOf(text, build.bounds), text.kinetic.scope};
    request.style.fontSizeFraction = sizeFraction;
    request.position = NormalizedPoint{0.5, middleFraction};
    request.colorAnimated = text.kinetic.inPhase.color || text.kinetic.outPhase.color;
    request.width = build.bounds.width;
    request.height = build.bounds.height;
    request.alignment = text.alignment;
    return KineticTextLayout::build(request, build.fonts);
}

// Smaller where a word would be broken: a headline in pieces is no headline.
std::optional<KineticTextLayout::Result> laidOut(
    const CardText& text, double middleFraction, const LayerBuild& build) {
    constexpr double step = 0.94, least = 0.4;   // of the size that was asked for
    std::optional<KineticTextLayout::Result> layout;
    for (double part = 1; part >= least; part *= step) {
        layout = laidOutAt(text.sizeFraction * part, text, middleFraction, build);
        if (!layout || std::ranges::none_of(layout->lines, &KineticTextLayout::Line::breaksWord))
            return layout;
    }
    return laidOutAt(text.sizeFraction, text, middleFraction, build);   // no size helps
}

double heightOf(const CardText& text, const LayerBuild& build) {
    const auto layout = laidOut(text, 0.5, build);
    return layout ? KineticTextBlock::unionRect(*layout).height : 0;
}

// A text that rises out of a mask begins below it and ends above it: a large one has further to go than the
// usual way, or half of it stands there from the first frame on.
KineticStyle outOfItsMask(
    KineticStyle style, const KineticTextLayout::Result& layout, const LayerBuild& build) {
    constexpr double maskRoomEms = 0.08;   // of a mask around its line, on each side
    double linePx = 0;
    for (const KineticTextLayout::Line& line : layout.lines) linePx = std::max(linePx, line.box.height);
    const double leastWay = (linePx + 2 * maskRoomEms * layout.pointSize) / build.bounds.height;
    for (KineticPhase* phase : {&style.inPhase, &style.outPhase})
        if (phase->clipToBounds == ClipMask::line && phase->offset.y != 0)
            phase->offset.y = std::copysign(std::max(std::abs(phase->offset.y), leastWay), phase->offset.y);
    return style;
}

KineticTextBlock blockOf(
    const CardText& text, double middleFraction, double cardSec, const LayerBuild& build) {
    const auto layout = laidOut(text, middleFraction, build);
    if (!layout) return {};
    if (layout->note) tell(build.log, Finding::warning(RenderCode::fontMissing, *layout->note));
    return {*layout, outOfItsMask(text.kinetic, *layout, build), {cardSec, build.framesPerSec, text.delaySec},
        build.evaluator};
}

// Places of the parts that are there, from the top down.
class Stack {
public:
    Stack(double canvasHeight, std::initializer_list<double> heights)
        : gap_(gapFraction * canvasHeight), cursor_(opticalMiddle * canvasHeight) {
        double total = -gap_;
        for (const double height : heights)
            if (height > 0) total += height + gap_;
        cursor_ -= total / 2;
    }
    // The middle of the next part, in pixels from the top.
    double middleOf(double height) {
        const double middle = cursor_ + height / 2;
        cursor_ += height + gap_;
        return middle;
    }

private:
    double gap_, cursor_;
};

}   // namespace

TitleCardRenderer::TitleCardRenderer(
    const TitleCard& card, const BackgroundFill& wallpaper, const LayerBuild& build)
    : bounds_(build.bounds),
      background_(FillCompositionLayer::drawn(card.background ? *card.background : wallpaper, build)) {
    const double height = bounds_.height;
    const auto logo = logoOf(card, build);
    const double logoPx = logo ? logo->extent().height : 0;
    const double headlinePx = heightOf(card.headline, build);
    const double sublinePx = card.subline ? heightOf(*card.subline, build) : 0;
    Stack stack(height, {logoPx, headlinePx, sublinePx});
    if (logo) {
        const double middle = stack.middleOf(logoPx);
        placedLogo_ =
            logo->translated((bounds_.width - logo->extent().width) / 2, height - middle - logoPx / 2);
    }
    if (headlinePx > 0)
        headline_ = blockOf(card.headline, stack.middleOf(headlinePx) / height, card.durationSec, build);
    if (sublinePx > 0)
        subline_ = blockOf(*card.subline, stack.middleOf(sublinePx) / height, card.durationSec, build);
}

std::optional<Image> TitleCardRenderer::logoOf(const TitleCard& card, const LayerBuild& build) const {
    if (!card.showLogo || !card.logoPath || !(card.logoSizeFraction > 0)) return std::nullopt;
    const auto picture = build.images.image(CompositionAssets::resolved(*card.logoPath, build.assetRoot));
    if (!picture || picture->isEmpty()) return std::nullopt;
    const double height = card.logoSizeFraction * bounds_.height;
    const imaging::Rect extent = picture->extent();
    const imaging::Rect target{0, 0, extent.width * height / extent.height, height};
    return build.evaluator.baked(picture->placedInto(target), imaging::pixelsCovering(target));
}

Image TitleCardRenderer::frame(double localSec) const {
    std::vector<Image> bottomToTop{background_};
    if (placedLogo_) bottomToTop.push_back(*placedLogo_);
    for (const KineticTextBlock* block : {&headline_, &subline_})
        if (const auto text = block->render(localSec)) bottomToTop.push_back(*text);
    return Image::stacked(bottomToTop).cropped(bounds_);
}

}   // namespace tavix
