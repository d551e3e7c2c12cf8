#include "TavixCore/Device/DeviceMotionMetadata.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Names<DeviceMotionCategory>& namesOf(std::type_identity<DeviceMotionCategory>) {
    using enum DeviceMotionCategory;
    static const Names<DeviceMotionCategory> table{"device motion category",
        {{entrance, "entrance"}, {exit, "exit"}, {move, "move"}, {showcase, "showcase"}}};
    return table;
}

const Names<DeviceMotionOrigin>& namesOf(std::type_identity<DeviceMotionOrigin>) {
    using enum DeviceMotionOrigin;
    static const Names<DeviceMotionOrigin> table{
        "device motion origin", {{deviceMotionLab, "deviceMotionLab"}, {tavixOriginal, "tavixOriginal"}}};
    return table;
}

const Fields<DeviceMotionMetadata>& fieldsOf(std::type_identity<DeviceMotionMetadata>) {
    using M = DeviceMotionMetadata;
    static const Fields<M> table{
        "DeviceMotionMetadata", {field<&M::referenceID>("referenceID", "The catalog's own id."),
                                    field<&M::title>("title", "Its title in the gallery."),
                                    field<&M::category>("category", "Where in a scene it belongs."),
                                    field<&M::origin>("origin", "Where it comes from."),
                                    field<&M::naturalDurationSec>("naturalDurationSec", "Its usual length.")
                                        .measuredIn(Unit::seconds),
                                    field<&M::uses3D>("uses3D", "Whether the device is a model in space.")}};
    return table;
}

}   // namespace tavix
