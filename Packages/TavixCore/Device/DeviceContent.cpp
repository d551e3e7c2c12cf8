#include "TavixCore/Device/DeviceContent.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<DeviceContent>& fieldsOf(std::type_identity<DeviceContent>) {
    using D = DeviceContent;
    static const Fields<D> table{"DeviceContent",
        {field<&D::screen>("screen", "What the screen shows."),
            field<&D::screens>("screens",
                "What the devices of a formation show, one after another and over again; without it all show "
                "`screen`.")
                .unlessDefault(),
            field<&D::mockup>("mockup", "The frame of a flat device."),
            field<&D::basePaddingPx>("basePaddingPx", "Space around a flat device at scale 1, in pixels.")
                .as(Role::pixelLength),
            field<&D::screenOpacity>("screenOpacity", "Opacity of the screen, in time.").unlessDefault(),
            field<&D::placement>("placement", "Where the device sits, in time."),
            field<&D::scene3D>("scene3D", "Makes the device a model in space."),
            field<&D::motionPreset>("motionPreset", "A named motion; reading turns it into tracks.")
                .tolerant(),
            field<&D::choreographyPreset>(
                "choreographyPreset", "A named formation; reading turns it into layers.")
                .tolerant()}};
    return table;
}

}   // namespace tavix
