#include "TavixCore/Typography/KineticStyle.h"
#include "TavixPlatform/Text/FontBook.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"
#include "TavixRender/Composition2D/TextCompositionLayer.h"
#include "TavixRender/Judge/ContentShape.h"
#include "TavixRender/KineticText/KineticImageFX.h"
#include "TavixRender/KineticText/KineticTextMotion.h"

#include <algorithm>
#include <utility>

namespace tavix {
namespace {

using imaging::Affine;
using imaging::Rect;

// Longer than any text that a film shows; measuring more would take its time.
constexpr std::size_t mostTextBytes = 20'000;

Rect inkOf(const KineticTextLayout::Fragment& fragment) {
    const text::LinePart part = fragment.part();
    const Rect ink = fragment.line.inkBounds(part.range, part.span);
    if (ink.isEmpty()) return {};
    return {fragment.lineOriginX + ink.x, fragment.baselineY + ink.y, ink.width, ink.height};
}

Affine affineOf(const AffineTransform& t) { return {t.a, t.b, t.c, t.d, t.tx, t.ty}; }

class TextShape final : public ContentGeometry {
public:
    TextShape(KineticTextLayout::Result layout, KineticStyle style, double windowSec, double framesPerSec)
        : layout_(std::move(layout)), style_(std::move(style)), timing_{layout_.canvasHeight, framesPerSec},
          motions_(KineticTextMotion::motionsOf(layout_, style_, {windowSec, 0})) {
        for (const KineticTextLayout::Element& element : layout_.elements) {
            std::vector<Rect>& ink = inks_.emplace_back();
            for (const KineticTextLayout::Fragment& fragment : element.fragments)
                if (const Rect rect = inkOf(fragment); !rect.isEmpty()) ink.push_back(rect);
        }
    }

    ContentShape at(double localSec) const override {
        ContentShape shape;
        shape.opacity = 0;
        for (std::size_t i = 0; i < motions_.size(); ++i) {
            const auto state = KineticMath::stateAt(localSec, motions_[i], style_, timing_);
            if (!state.visible || inks_[i].empty()) continue;
            shape.opacity = std::max(shape.opacity, state.alpha);
            for (const Rect& ink : inks_[i]) addPart(shape, moved(ink, i, state), i, state);
        }
        return shape;
    }
    const KineticTextLayout::Result* layout() const override { return &layout_; }

private:
    Outline moved(const Rect& ink, std::size_t element, const KineticMath::ElementFrameState& state) const {
        const Outline outline = Outline::of(ink).transformed(affineOf(state.transform));
        if (!state.hasPerspective()) return outline;
        const KineticImageFX::Tilt tilt{{motions_[element].pivotXPx, motions_[element].pivotYPx},
            state.tiltXDeg, state.tiltYDeg, timing_.heightPx};
        return outline.mapped([&](imaging::Point p) { return KineticImageFX::seenInPerspective(p, tilt); });
    }

    void addPart(ContentShape& shape, Outline part, std::size_t element,
        const KineticMath::ElementFrameState& state) const {
        if (state.clip != ClipMask::none) {
            Rect mask = imaging::grownBy(
                layout_.elements[element].restRect, KineticTextMotion::maskOutsetEm * layout_.pointSize);
            for (const Rect& ink : inks_[element]) mask = imaging::unionOf(mask, ink);
            part = part.cut(mask);
        }
        if (!part.isEmpty()) shape.parts.push_back(std::move(part));
    }

    KineticTextLayout::Result layout_;
    KineticStyle style_;
    KineticMath::CanvasTiming timing_;
    std::vector<KineticMath::KineticElement> motions_;
    std::vector<std::vector<Rect>> inks_;   // at rest, of each element's fragments
};

}   // namespace

std::unique_ptr<ContentGeometry> textGeometry(const TextContent& text, const CompositionLayer& layer,
    const LayerPosition& position, const ShapeSetting& setting) {
    if (text.text.size() > mostTextBytes) return nullptr;
    const KineticStyle style = TextCompositionLayer::styleOf(
        text, ResolvedComposition::presetSeed(setting.spec.seed, position.scene, position.layer));
    const NormalizedPoint center{
        layer.position.x / setting.canvas.width, layer.position.y / setting.canvas.height};
    auto layout = TextCompositionLayer::layout(text,
        {setting.canvas, center, setting.spec.fonts, setting.assets.root()}, style, setting.assets.fonts());
    if (!layout) return nullptr;
    return std::make_unique<TextShape>(std::move(*layout), style, position.windowSec, setting.framesPerSec);
}

}   // namespace tavix
