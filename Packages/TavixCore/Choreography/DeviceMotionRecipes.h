// The device motions that are written out one by one, because their frames answer to the intensity each in
// its own way.
#pragma once

#include "TavixCore/Choreography/MotionScript.h"

#include <string_view>

namespace tavix::DeviceMotionRecipes {

// `i` is the intensity, 1 being usual; `d` is +1 forward and -1 reversed. Poses are pitch, yaw and roll.
using Recipe = MotionScript (*)(double i, double d);

// nullptr for a name without a recipe.
Recipe recipe(std::string_view name);

}   // namespace tavix::DeviceMotionRecipes
