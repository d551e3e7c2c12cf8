// Findings as people read them; machines read `findingAsJson`.
#pragma once

#include "TavixBase/Finding.h"

#include <string>

namespace tavix::engine {

// A line of the log of a render, with the mark of its level.
std::string markedLine(const Finding& finding);

}   // namespace tavix::engine
