// How different two colours look, as WCAG 2 measures it.
#pragma once

#include "TavixCore/Values/RGBAColor.h"

namespace tavix::Contrast {

// From an sRGB value of 0 to 1 to linear light. WCAG 2 says 0.03928 where the standard says 0.04045; for
// eight-bit values they are the same.
double linear(double encoded);
// Of 0 (black) to 1 (white).
double relativeLuminance(const RGBAColor& color);
// 1 for the same luminance, 21 for black on white; in either order.
double ratio(double luminanceA, double luminanceB);

}   // namespace tavix::Contrast
