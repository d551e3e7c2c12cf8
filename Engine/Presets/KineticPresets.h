// The named animations of text, as `presets` lists them and resolves them.
#pragma once

#include "Engine/Presets/Preset.h"

#include <string>
#include <vector>

namespace tavix::engine {

class PlayArguments;

namespace KineticPresets {

std::vector<Preset> all();
// {"style": all of its numbers, "notes": what was changed}. Throws `UsageError` for an unknown name.
Json resolved(const std::string& name, const PlayArguments& play);

}   // namespace KineticPresets

}   // namespace tavix::engine
