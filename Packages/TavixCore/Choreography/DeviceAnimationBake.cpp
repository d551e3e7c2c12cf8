#include "TavixCore/Document/DeviceAnimationBake.h"

#include "TavixCore/Choreography/DeviceChoreographyExpander.h"
#include "TavixCore/Choreography/DeviceMotionExpander.h"

namespace tavix {

void bakeDeviceAnimations(CompositionSpec& spec) {
    DeviceChoreographyExpander::bake(spec);
    DeviceMotionExpander::bake(spec);
}

}   // namespace tavix
