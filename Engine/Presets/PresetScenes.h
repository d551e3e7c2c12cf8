// Small films that show one preset each: what `presets NAME --preview` renders.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace tavix::engine {

class PlayArguments;

struct PresetScene {
    CompositionSpec spec;
    double fromSec = 0, toSec = 0;   // the part of it in which something happens
    std::filesystem::path assetRoot;
};

// Throws `UsageError` for a name that is not of the family, and for families that cannot be shown.
PresetScene presetScene(std::string_view family, const std::string& name, const PlayArguments& play);

}   // namespace tavix::engine
