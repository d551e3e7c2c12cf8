// What the gallery tells of a device motion.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <string>
#include <type_traits>

namespace tavix {

enum class DeviceMotionCategory { entrance, exit, move, showcase };
enum class DeviceMotionOrigin { deviceMotionLab, tavixOriginal };   // of the table of frames, or written out

struct DeviceMotionMetadata {
    std::string referenceID;   // the catalog's own id; mostly the name of the motion
    std::string title;
    DeviceMotionCategory category = DeviceMotionCategory::entrance;
    DeviceMotionOrigin origin = DeviceMotionOrigin::deviceMotionLab;
    double naturalDurationSec = 1;
    bool uses3D = true;   // otherwise the device stays flat
    bool operator==(const DeviceMotionMetadata&) const = default;
};

const Names<DeviceMotionCategory>& namesOf(std::type_identity<DeviceMotionCategory>);
const Names<DeviceMotionOrigin>& namesOf(std::type_identity<DeviceMotionOrigin>);
const Fields<DeviceMotionMetadata>& fieldsOf(std::type_identity<DeviceMotionMetadata>);

}   // namespace tavix
