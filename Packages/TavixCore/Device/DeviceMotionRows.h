// The table of device motions: the one place that knows their names.
#pragma once

#include "TavixCore/Device/DeviceMotionMetadata.h"

#include <span>
#include <string_view>

namespace tavix {

struct DeviceMotionRow {
    std::string_view name, title;
    DeviceMotionCategory category;
    double naturalSec;
    bool uses3D;
    std::string_view frames;             // in the short form; empty: a recipe alone makes the motion
    std::string_view label = {};         // of menus; empty: the title
    std::string_view referenceID = {};   // empty: the name
};

// In the order of the gallery: the motions with frames, then those without.
std::span<const DeviceMotionRow> deviceMotionRows();

// The row of a name; nullptr for an unknown one.
const DeviceMotionRow* deviceMotionRow(std::string_view name);

}   // namespace tavix
