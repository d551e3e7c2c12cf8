// From light to a picture: the curve that a film's highlights roll off on.
#pragma once

#include "TavixPlatform/Imaging/BytePool.h"
#include "TavixPlatform/Scene3D/Renderer.h"

#include <memory>

namespace tavix::DeviceStudio {

// Of one channel: linear light from 0 up, to linear display light from 0 to 1. Rises throughout; 0 stays 0.
// Krzysztof Narkowicz, "ACES Filmic Tone Mapping Curve", 2015: the academy's reference and output transforms
// as one rational function. A value below 0 or not a number gives 0.
double acesToneCurve(double linear);

// The curve on straight colour, encoded for the screen and premultiplied again. Steps of a byte are dithered,
// so that a soft gradient over the body does not band; clear pixels stay clear.
scene3d::EncodedFrame applyACES(
    const scene3d::LinearFrame& frame, const std::shared_ptr<imaging::BytePool>& pool = nullptr);

}   // namespace tavix::DeviceStudio
