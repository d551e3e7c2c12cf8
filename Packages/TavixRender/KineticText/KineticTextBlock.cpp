#include "TavixRender/KineticText/KineticTextBlock.h"

namespace tavix {

KineticTextBlock::KineticTextBlock(const KineticTextLayout::Result& layout, const KineticStyle& style,
    const KineticElementGroup::Window& window, imaging::Evaluator& evaluator)
    : group_(KineticElementGroup::make(layout, style, window, evaluator)),
      measuredHeight_(unionRect(layout).height) {}

std::optional<imaging::Image> KineticTextBlock::render(double localSec) const {
    return group_ ? group_->render(localSec) : std::nullopt;
}

imaging::Rect KineticTextBlock::unionRect(const KineticTextLayout::Result& layout) {
    imaging::Rect all;
    for (const KineticTextLayout::Element& element : layout.elements)
        all = imaging::unionOf(all, element.restRect);
    return all;
}

}   // namespace tavix
