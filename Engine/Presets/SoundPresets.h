// The sounds of cues, as `presets` lists them.
#pragma once

#include "Engine/Presets/Preset.h"

#include <vector>

namespace tavix::engine {

namespace SoundPresets {

// With the length and the peak of each, as they are heard at gain 1.
std::vector<Preset> all();

}   // namespace SoundPresets

}   // namespace tavix::engine
