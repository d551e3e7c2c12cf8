// How far a layer is from its rest at a time: what its enter and exit phases and its keyframes add up to.
#pragma once

#include "TavixCore/Document/CompositionLayer.h"
#include "TavixPlatform/Imaging/Geometry.h"

namespace tavix {

struct LayerMotion {
    double opacity = 1;
    double dx = 0, dy = 0;   // fractions of the output height; y down
    double scale = 1, scaleX = 1, scaleY = 1;
    double rotationDeg = 0;   // clockwise on screen
    double skewXDeg = 0, skewYDeg = 0;
    double blurFraction = 0;   // of the output height

    // `windowSec` is how long the layer is shown, which tells when its exit begins.
    static LayerMotion at(const CompositionLayer& layer, double localSec, double windowSec);

    bool movesNothing() const;
    // About the anchor, in image coordinates.
    imaging::Affine transform(imaging::Point anchor, double outputHeight) const;
};

}   // namespace tavix
