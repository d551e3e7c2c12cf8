#include "TavixReelRender/Canvas/CutDressingOverlay.h"

#include <algorithm>
#include <cmath>

namespace tavix {

namespace {

imaging::Color lightOf(CutDressing::Style style, double alpha) {
    const bool isLeak = style == CutDressing::Style::lightLeak;
    return {1, isLeak ? 0.72 : 1, isLeak ? 0.42 : 1, alpha};
}

}   // namespace

imaging::Image CutDressingOverlay::apply(
    const imaging::Image& frame, double compositionSec, const imaging::Rect& bounds) const {
    constexpr double invisible = 0.001;
    if (seamsSec_.empty()) return frame;
    const double nearest = *std::ranges::min_element(
        seamsSec_, {}, [compositionSec](double seamSec) { return std::abs(compositionSec - seamSec); });
    const double alpha = dressing_.alpha(compositionSec, nearest);
    if (!(alpha > invisible)) return frame;
    return imaging::Image::solid(lightOf(dressing_.style, alpha)).cropped(bounds).over(frame);
}

}   // namespace tavix
