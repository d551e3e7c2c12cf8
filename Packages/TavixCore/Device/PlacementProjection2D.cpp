#include "TavixCore/Device/PlacementProjection2D.h"

#include <algorithm>

namespace tavix::PlacementProjection2D {

CameraFrameTransform transform(const PixelRect& identityFrameRect,
    const DevicePlacementTrajectory::Placement& placement, double outputHeightPx) {
    const double scale = std::max(placement.scale, leastPlacementScale);
    const PixelPoint center = identityFrameRect.center();
    return {scale, placement.offset.x * outputHeightPx + center.x * (1 - scale),
        placement.offset.y * outputHeightPx + center.y * (1 - scale)};
}

}   // namespace tavix::PlacementProjection2D
