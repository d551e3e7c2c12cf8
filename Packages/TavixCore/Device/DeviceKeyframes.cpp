#include "TavixCore/Device/DeviceKeyframes.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<DevicePoseKeyframe>& fieldsOf(std::type_identity<DevicePoseKeyframe>) {
    using K = DevicePoseKeyframe;
    static const Fields<K> table{"DevicePoseKeyframe",
        {field<&K::tSec>("tSec", "When, from the layer's start.").measuredIn(Unit::seconds).required(),
            field<&K::tiltDegrees>("tiltDegrees",
                "The pose then; x tips the top away, y turns the screen to the right, z turns clockwise.")
                .measuredIn(Unit::degrees)
                .required()}};
    return table;
}

const Fields<DeviceScalarKeyframe>& fieldsOf(std::type_identity<DeviceScalarKeyframe>) {
    using K = DeviceScalarKeyframe;
    static const Fields<K> table{"DeviceScalarKeyframe",
        {field<&K::tSec>("tSec", "When, from the layer's start.").measuredIn(Unit::seconds).required(),
            field<&K::value>("value", "The value at that time.").required()}};
    return table;
}

const Fields<CardFlip>& fieldsOf(std::type_identity<CardFlip>) {
    static const Fields<CardFlip> table{
        "CardFlip", {field<&CardFlip::atSec>("atSec", "When the device starts to turn.")
                            .measuredIn(Unit::seconds)
                            .required(),
                        field<&CardFlip::revealSec>("revealSec", "When the new screen shows.")
                            .measuredIn(Unit::seconds)
                            .required()}};
    return table;
}

}   // namespace tavix
