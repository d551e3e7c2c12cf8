#include "TavixCore/Device/DeviceContent.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<DeviceContent>& fieldsOf(std::type_identity<DeviceContent>) {
    using D = DeviceContent;
    static const Fields<D> table{"DeviceContent",
        {field<&D::screen>("screen", "What the screen shows."),
            field<&D::screens>("screens",
                "What the devices of a formation show, one after another and over again; without it all show `screen`.")
                .unlessDefault(),
            field<&D::mockup>(
                "mockup", "The frame of a flat device, and of one in space where no model can be had."),
            field<&D::basePaddingPx>("basePaddingPx",
                "Free space between the canvas's edge and the device at scale 1. It makes the size of a device in space too.")
                .measuredIn(Unit::pixels)
                .as(Role::pixelLength),
            field<&D::screenOpacity>("screenOpacity", "Opacity of the screen over time, 0 to 1.")
                .unlessDefault(),
            field<&D::placement>(
                "placement", "Where the device stands, over time, about the middle of the canvas."),
            field<&D::scene3D>("scene3D",
                "Makes the device a model in space. It then stands where `placement` says: the layer's `position` does not move it."),
            field<&D::motionPreset>("motionPreset",
                "A named motion. Reading puts its `scene3D` (but for an authored finish), `placement`, `enter` and `tracks` in the place of the layer's own.")
                .tolerant(),
            field<&D::choreographyPreset>("choreographyPreset",
                "A named formation. Reading puts its devices, each a layer of its own, in the place of this layer.")
                .tolerant()}};
    return table;
}

}   // namespace tavix
