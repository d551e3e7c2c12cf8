// A text whose pieces move: bitmaps drawn once, and for every frame a graph of where each of them is. No text
// is shaped or drawn per frame.
#pragma once

#include "TavixCore/Typography/ElementFrameState.h"
#include "TavixCore/Typography/KineticStyle.h"
#include "TavixRender/KineticText/KineticRaster.h"

#include <memory>
#include <optional>
#include <vector>

namespace tavix {

// Immutable; safe on every thread.
class KineticElementGroup {
public:
    struct Window {
        double lengthSec = 0;
        double framesPerSec = 60;
        double cardDelaySec = 0;   // holds back the first element
    };

    // Null for a layout without any ink. The evaluator draws the shadows, here and now.
    static std::unique_ptr<const KineticElementGroup> make(const KineticTextLayout::Result& layout,
        const KineticStyle& style, const Window& window, imaging::Evaluator& evaluator);

    // At a time since the window opened; nothing when no element can be seen. What rests keeps its structural
    // hash from frame to frame.
    std::optional<imaging::Image> render(double localSec) const;

    // True when some of a text was left out because it would not fit into memory.
    bool isCut() const { return isCut_; }
    std::size_t elementCount() const { return elements_.size(); }
    int rasterScale() const { return rasterScale_; }

private:
    struct RasterFragment {
        KineticRaster::Raster rest;
        imaging::Image resting;                       // as it is shown at rest
        std::optional<KineticRaster::Raster> large;   // for when it is seen enlarged
    };
    struct Elem {
        KineticMath::KineticElement motion;
        AffineTransform restTransform;   // of its emphasis
        imaging::Affine fromRest;        // the inverse
        imaging::Rect mask;              // what cuts it off while it moves
        std::vector<RasterFragment> fragments;
        std::optional<imaging::Image> highlight;   // where it rests
    };
    struct Frame;   // of one element

    KineticElementGroup(const KineticTextLayout::Result& layout, const KineticStyle& style,
        const Window& window, imaging::Evaluator& evaluator);
    void add(const KineticTextLayout::Element& element, const KineticTextLayout::Result& layout,
        const KineticMath::KineticElement& motion, imaging::Evaluator& evaluator);
    std::optional<RasterFragment> rasterised(const KineticTextLayout::Fragment& fragment, const Elem& elem,
        const std::optional<TextShadow>& shadow, imaging::Evaluator& evaluator);
    std::optional<imaging::Rect> clipOf(const Elem& elem, const KineticMath::ElementFrameState& state) const;
    imaging::Image colored(const KineticRaster::Raster& raster, const RGBAColor& color) const;
    imaging::Image source(const RasterFragment& fragment, const Frame& frame) const;
    void render(const Elem& elem, double localSec, std::vector<imaging::Image>& bottomToTop) const;

    std::vector<Elem> elements_;
    KineticStyle style_;
    bool colorAnimated_;
    KineticMath::CanvasTiming canvas_;
    double shadowReach_ = 0;   // px
    int rasterScale_;
    double pixelsLeft_;
    bool isCut_ = false;
};

}   // namespace tavix
