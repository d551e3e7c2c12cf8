// Where a composition enters the system.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"

#include <filesystem>

namespace tavix {

struct LoadedCompositionProject {
    std::filesystem::path bundlePath;
    CompositionSpec spec;
};

namespace CompositionProjectService {

// Throws a `Failure` for a path that is no bundle, and passes on what reading one throws. A pack that was cut
// off is taken back first, so that the document and its files belong together.
LoadedCompositionProject load(const std::filesystem::path& bundle);

// As `CompositionProjectBundle::save`.
void save(const CompositionSpec& spec, const std::filesystem::path& bundle);

}   // namespace CompositionProjectService

}   // namespace tavix
