// Sparse tracks of a device in space: its pose, single numbers such as its depth, and turns that hide a
// change.
#pragma once

#include "TavixCore/Values/Vector3.h"

#include <type_traits>

namespace tavix {

struct DevicePoseKeyframe {
    double tSec = 0;
    Vector3 tiltDegrees;
    bool operator==(const DevicePoseKeyframe&) const = default;
};

struct DeviceScalarKeyframe {
    double tSec = 0;
    double value = 0;
    bool operator==(const DeviceScalarKeyframe&) const = default;
};

struct CardFlip {
    double atSec = 0;
    double revealSec = 0;
    bool operator==(const CardFlip&) const = default;
};

const Fields<DevicePoseKeyframe>& fieldsOf(std::type_identity<DevicePoseKeyframe>);
const Fields<DeviceScalarKeyframe>& fieldsOf(std::type_identity<DeviceScalarKeyframe>);
const Fields<CardFlip>& fieldsOf(std::type_identity<CardFlip>);

}   // namespace tavix
