#include "TavixRender/DeviceScene/DevicePassPlan.h"

#include <algorithm>

namespace tavix {

DevicePassPlan devicePassPlan(imaging::Size output, DeviceQuality quality) {
    using scene3d::Samples, scene3d::TextureDetail;
    constexpr int longestOfSmallPx = 2048;
    const int longest = std::max(output.width, output.height);
    if (quality == DeviceQuality::rough)
        return {Samples::four, 1, Samples::four, TextureDetail::quick, 2, true};
    if (quality == DeviceQuality::preview)
        return {Samples::four, 1, Samples::four, TextureDetail::quick, 1, true};
    if (longest <= longestOfSmallPx) return {Samples::sixtyFour, 2, Samples::sixteen};
    if (2 * longest > scene3d::Pass::mostSidePx)
        return {Samples::sixteen, 1, Samples::sixteen, TextureDetail::fine};
    return {Samples::sixteen, 2, Samples::four};
}

int halvingsOfScreen(double texelsPerPixel) {
    constexpr double enoughToHalve = 1.8;
    int halvings = 0;
    for (; texelsPerPixel >= enoughToHalve && halvings < 8; texelsPerPixel /= 2) ++halvings;
    return halvings;
}

}   // namespace tavix
