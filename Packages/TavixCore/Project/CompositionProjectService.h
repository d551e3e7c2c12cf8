// Where a composition enters the system.
#pragma once

#include "TavixCore/Composition/CompositionSpec.h"

#include <filesystem>

namespace tavix {

struct LoadedCompositionProject {
    std::filesystem::path bundlePath;
    CompositionSpec spec;
};

namespace CompositionProjectService {

// Throws a `Failure` for a path that is no bundle, and passes on what reading one throws.
LoadedCompositionProject load(const std::filesystem::path& bundle);

}   // namespace CompositionProjectService

}   // namespace tavix
