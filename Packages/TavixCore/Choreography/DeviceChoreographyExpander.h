// Turns the name of a formation into its layers.
#pragma once

#include "TavixCore/Device/DeviceChoreographyRef.h"
#include "TavixCore/Document/CompositionLayer.h"
#include "TavixCore/Document/CompositionOutput.h"

#include <optional>
#include <vector>

namespace tavix {

struct CompositionSpec;

struct DeviceChoreography {
    std::vector<CompositionLayer> layers;
    double durationSec = 0;
};

namespace DeviceChoreographyExpander {

// Nothing when the source shows no device.
std::optional<DeviceChoreography> expand(DeviceChoreographyPreset preset, const CompositionLayer& source,
    const CompositionOutput& output, const DeviceChoreographyParams& params);

// Puts formations in the place of the layers that name them; scenes grow to their length unless they are
// measured in beats.
void bake(CompositionSpec& spec);

}   // namespace DeviceChoreographyExpander

}   // namespace tavix
