// Where the device frame of a reel stands on its canvas.
#pragma once

#include "TavixCore/Geometry/CanvasGeometry.h"

namespace tavix {

struct EffectsSpec;

namespace CanvasGeometry {

// At rest, in output pixels, origin at the top left.
PixelRect deviceFrameRect(const EffectsSpec& spec);

}   // namespace CanvasGeometry

}   // namespace tavix
