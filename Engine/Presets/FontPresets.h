// The fonts that have a short name, and which face draws each on this machine.
#pragma once

#include "Engine/Presets/Preset.h"

#include <vector>

namespace tavix::engine::FontPresets {

std::vector<Preset> all();

}   // namespace tavix::engine::FontPresets
