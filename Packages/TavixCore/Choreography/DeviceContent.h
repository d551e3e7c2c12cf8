// What a device layer shows: a phone, flat or as a model in space, with something on its screen.
#pragma once

#include "TavixCore/Choreography/DeviceChoreographyRef.h"
#include "TavixCore/Choreography/DeviceMockup.h"
#include "TavixCore/Choreography/DeviceMotionRef.h"
#include "TavixCore/Choreography/DevicePlacement.h"
#include "TavixCore/Choreography/DeviceScene.h"
#include "TavixCore/Choreography/ScreenSource.h"
#include "TavixCore/Composition/CompositionKeyframe.h"

#include <optional>
#include <vector>

namespace tavix {

struct DeviceContent {
    DeviceMockup mockup;
    ScreenSource screen = StillScreen{};
    double basePaddingPx = 82;
    std::optional<DevicePlacementSpec> placement;
    std::vector<CompositionKeyframe> screenOpacity;
    std::optional<DeviceScene3D> scene3D;   // present: the device is a model in space
    std::optional<DeviceMotionRef> motionPreset;
    std::optional<DeviceChoreographyRef> choreographyPreset;
    bool operator==(const DeviceContent&) const = default;
};

const Fields<DeviceContent>& fieldsOf(std::type_identity<DeviceContent>);

}   // namespace tavix
