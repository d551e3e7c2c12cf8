#include "TavixRender/Judge/Contrast.h"

#include <algorithm>
#include <cmath>

namespace tavix::Contrast {

double linear(double encoded) {
    const double v = std::clamp(encoded, 0.0, 1.0);
    return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
}

double relativeLuminance(const RGBAColor& color) {
    return 0.2126 * linear(color.r) + 0.7152 * linear(color.g) + 0.0722 * linear(color.b);
}

double ratio(double luminanceA, double luminanceB) {
    const auto [dark, light] = std::minmax(luminanceA, luminanceB);
    return (light + 0.05) / (dark + 0.05);
}

}   // namespace tavix::Contrast
