// The flat devices that come with the program and the named motions and formations of devices, as `presets`
// lists them and plays them out.
#pragma once

#include "Engine/Presets/Preset.h"

#include <string>
#include <vector>

namespace tavix::engine {

class PlayArguments;

namespace DevicePresets {

std::vector<Preset> devices();
std::vector<Preset> motions();
std::vector<Preset> formations();

// All that a named one becomes in a document. Throws `UsageError` for an unknown name.
Json expandedMotion(const std::string& name, const PlayArguments& play);
Json expandedFormation(const std::string& name, const PlayArguments& play);
Json expandedDevice(const std::string& name, const PlayArguments& play);

}   // namespace DevicePresets

}   // namespace tavix::engine
