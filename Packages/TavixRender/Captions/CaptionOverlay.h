// The captions of a narration over the frames of a reel: plain ones as bars, and those that move.
#pragma once

#include "TavixCore/Values/NormalizedPoint.h"
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Imaging/Image.h"
#include "TavixPlatform/Text/FontBook.h"
#include "TavixReel/Captions/CaptionBar.h"
#include "TavixRender/KineticText/KineticElementGroup.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavix {

struct Narration;

namespace CaptionLayout {

// A plain caption, measured and set.
struct SetCaption {
    Bar bar;
    BarRoom room;
    std::vector<text::TypesetLine> lines;
    double ascentPx, lineHeightPx;
    std::optional<std::string> note;   // a finished sentence where another font had to stand in
};
// Nothing for a text without lines. `position`: of the bar's middle, y down.
std::optional<SetCaption> layout(const std::string& text, const CaptionStyle& style,
    const std::optional<NormalizedPoint>& position, const CanvasSize& canvas, const text::FontBook& fonts);

}   // namespace CaptionLayout

// Captions as bars, each drawn once. Whoever makes it leaves out those that move. Immutable, so that any
// render thread may apply it.
class CaptionOverlay {
public:
    // Nothing when there is no caption to show; other placements than the lower third have no bar.
    static std::optional<CaptionOverlay> make(const Narration& narration, imaging::Size canvas,
        const text::FontBook& fonts, imaging::Evaluator& evaluator);

    // With the caption of that moment over the picture; the first one where several are due.
    imaging::Image apply(const imaging::Image& frame, double preCutSec) const;

private:
    struct Layer {
        imaging::Image image;
        double startSec, endSec, fadeSec;

        double alphaAt(double sec) const;
    };
    std::vector<Layer> layers_;
};

// Captions that move. Immutable, so that any render thread may apply it.
class KineticTextOverlay {
public:
    static std::optional<KineticTextOverlay> make(const Narration& narration, imaging::Size canvas,
        double framesPerSec, const text::FontBook& fonts, imaging::Evaluator& evaluator);

    // With the captions of that moment over the picture: of more than two, those that started last.
    imaging::Image apply(const imaging::Image& frame, double preCutSec) const;

private:
    struct Layer {
        std::shared_ptr<const KineticElementGroup> group;
        double startSec, endSec;
    };
    std::vector<Layer>
        layers_;   // by their start, and by their place in the narration where that is the same
};

}   // namespace tavix
