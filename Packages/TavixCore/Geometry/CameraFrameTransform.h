// A picture scaled and then moved: x' = scale x + translateX, and so for y.
#pragma once

#include "TavixCore/Values/PixelPoint.h"

namespace tavix {

struct CameraFrameTransform {
    double scale = 1;
    double translateX = 0, translateY = 0;

    PixelPoint apply(const PixelPoint& point) const {
        return {point.x * scale + translateX, point.y * scale + translateY};
    }
    bool operator==(const CameraFrameTransform&) const = default;
};

}   // namespace tavix
