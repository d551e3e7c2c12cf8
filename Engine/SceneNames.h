// The scenes of a document by their names, as people type them.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"

#include <cstddef>
#include <string>

namespace tavix::engine {

// The first scene of that display name. Throws `UsageError`, with the names that there are.
std::size_t sceneNamed(const CompositionSpec& spec, const std::string& name);

}   // namespace tavix::engine
