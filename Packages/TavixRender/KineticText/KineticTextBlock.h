// A block of moving text as layers and title cards keep it.
#pragma once

#include "TavixRender/KineticText/KineticElementGroup.h"

namespace tavix {

class KineticTextBlock {
public:
    KineticTextBlock() = default;   // of nothing
    KineticTextBlock(const KineticTextLayout::Result& layout, const KineticStyle& style,
        const KineticElementGroup::Window& window, imaging::Evaluator& evaluator);

    const KineticElementGroup* group() const { return group_.get(); }   // null when there is nothing to draw
    double measuredHeight() const { return measuredHeight_; }           // px, of all elements together
    std::optional<imaging::Image> render(double localSec) const;

    // Of all elements as they rest; the zero rectangle when there are none.
    static imaging::Rect unionRect(const KineticTextLayout::Result& layout);

private:
    std::unique_ptr<const KineticElementGroup> group_;
    double measuredHeight_ = 0;
};

}   // namespace tavix
