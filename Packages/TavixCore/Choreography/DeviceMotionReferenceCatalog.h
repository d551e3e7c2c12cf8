// The device motions that are tables of frames, and how frames become a motion.
#pragma once

#include "TavixCore/Choreography/DeviceMotion.h"
#include "TavixCore/Device/DeviceMotionFrame.h"
#include "TavixCore/Device/DeviceMotionMetadata.h"
#include "TavixCore/Device/DeviceMotionRef.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::DeviceMotionReferenceCatalog {

struct Definition {
    std::string_view name;
    DeviceMotionMetadata metadata;
    std::vector<DeviceMotionFrame> frames;
};

// In the order of the gallery. A motion that a recipe alone makes is not among them.
std::span<const Definition> definitions();

// Nothing for a name without frames.
const Definition* definition(std::string_view name);

// The frames of a definition at a length, an intensity and a direction. Where it starts and stands is left to
// the caller. Throws `std::logic_error` for a name without frames.
DeviceMotion expand(std::string_view name, const DeviceMotionParams& params);

// Of any motion, with frames or without.
DeviceMotionMetadata metadata(const DeviceMotionPreset& preset);
// The text for menus.
std::string label(const DeviceMotionPreset& preset);

}   // namespace tavix::DeviceMotionReferenceCatalog
