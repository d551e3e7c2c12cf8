// Turns the name of a device motion into the motion.
#pragma once

#include "TavixCore/Choreography/DeviceMotion.h"
#include "TavixCore/Device/DeviceMotionRef.h"

namespace tavix::DeviceMotionExpander {

DeviceMotion expand(const DeviceMotionPreset& preset, const DeviceMotionParams& params);

// Gives every layer that names a motion the tracks of that motion, and clears the name.
void bake(CompositionSpec& spec);

}   // namespace tavix::DeviceMotionExpander
