// More room around every device in a preview; the document itself stays as it is.
#pragma once

#include "TavixLive/Operations/EditState.h"

#include <memory>

namespace tavix {

// The overscan is what a device is shrunk to, 0.1 to 1.
DevicePlacementSpec overscanned(DevicePlacementSpec placement, double overscan);
// The document of a state; the very same one without an overscan.
std::shared_ptr<const CompositionSpec> overscanned(
    const std::shared_ptr<const EditState>& edited, double overscan);

}   // namespace tavix
