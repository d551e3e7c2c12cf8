// Formations are written for a wide frame. Where they do not fit, in a narrower one above all, their devices
// stand closer together, a little smaller and, where there is room above and below, in two rows.
#pragma once

#include "TavixCore/Device/DeviceChoreographyRef.h"
#include "TavixCore/Document/CompositionLayer.h"
#include "TavixCore/Document/CompositionOutput.h"

#include <vector>

namespace tavix {

// The layers of one formation, in order. Whatever of them is meant to be seen is then seen whole; what comes
// from outside, flies by or leaves still does. Nothing changes where all fits.
void fitToFrame(
    DeviceChoreographyPreset preset, std::vector<CompositionLayer>& layers, const CompositionOutput& output);

}   // namespace tavix
