#include "TavixCore/Document/DeviceAnimationBake.h"

#include "TavixCore/Choreography/DeviceChoreographyExpander.h"
#include "TavixCore/Choreography/DeviceMotionExpander.h"
#include "TavixCore/Document/CompositionSpec.h"

#include <cstddef>

namespace tavix {

void bakeDeviceAnimations(CompositionSpec& spec) {
    for (CompositionScene& scene : spec.scenes)
        for (std::size_t i = 0; i < scene.layers.size(); ++i) scene.layers[i].origin = {i};
    DeviceChoreographyExpander::bake(spec);
    DeviceMotionExpander::bake(spec);
}

}   // namespace tavix
