#include "TavixCore/Device/DeviceMockup.h"

#include "TavixCore/Device/DeviceCatalog.h"
#include "TavixCore/Support/FieldTables.h"

namespace tavix {

DeviceMockup DeviceMockup::bundled(const BundledDevice& device) {
    return {.framePath = {},
        .screen = device.screen,
        .screenCornerRadiusFraction = device.screenCornerRadiusFraction,
        .bundledID = device.id};
}

const Fields<DeviceMockup>& fieldsOf(std::type_identity<DeviceMockup>) {
    using M = DeviceMockup;
    static const Fields<M> table{"DeviceMockup",
        {field<&M::framePath>("framePath", "A picture of the device with a hole for its screen.")
                .as(Role::picture),
            field<&M::screen>("screen", "The screen's place, in shares of the frame picture.")
                .measuredIn(Unit::ownSides),
            field<&M::screenCornerRadiusFraction>(
                "screenCornerRadiusFraction", "Corner radius of the screen.")
                .measuredIn(Unit::shorterSides),
            field<&M::bundledID>(
                "bundledID", "A device of the catalog, as `tavix presets devices` lists them.")
                .as(Role::device)}};
    return table;
}

}   // namespace tavix
