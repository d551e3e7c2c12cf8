// What a device layer shows: a phone, flat or as a model in space, with something on its screen.
#pragma once

#include "TavixCore/Animation/CompositionKeyframe.h"
#include "TavixCore/Device/DeviceChoreographyRef.h"
#include "TavixCore/Device/DeviceMockup.h"
#include "TavixCore/Device/DeviceMotionRef.h"
#include "TavixCore/Device/DevicePlacement.h"
#include "TavixCore/Device/DeviceScene.h"
#include "TavixCore/Device/ScreenSource.h"

#include <optional>
#include <vector>

namespace tavix {

struct DeviceContent {
    DeviceMockup mockup;
    ScreenSource screen = StillScreen{};
    std::vector<ScreenSource> screens;   // of a formation's devices in turn, in place of `screen`
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
