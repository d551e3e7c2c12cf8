// The document that a new bundle begins with: two scenes that need no files.
#pragma once

#include <string_view>

namespace tavix::engine {

// As a person would write it down: what belongs together stands on one line.
std::string_view starterDocument();

}   // namespace tavix::engine
