// What is asked of colours, on their encoded components.
#pragma once

#include "TavixCore/Values/RGBAColor.h"

namespace tavix {

// The luma of ITU-R BT.709; alpha plays no part.
constexpr double luminance(const RGBAColor& c) { return 0.2126 * c.r + 0.7152 * c.g + 0.0722 * c.b; }

// A share of the way from one colour to another, alpha included.
constexpr RGBAColor movedTowards(const RGBAColor& from, const RGBAColor& to, double share) {
    const auto move = [share](double a, double b) { return a + (b - a) * share; };
    return {move(from.r, to.r), move(from.g, to.g), move(from.b, to.b), move(from.a, to.a)};
}

}   // namespace tavix
