// Findings at the places that the author wrote. A rule sees the layers that a formation became, and the
// keyframes of a named motion; the author sees one layer with a name in it.
#pragma once

#include "TavixCore/Findings/CompositionFinding.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavix {
struct CompositionSpec;
}

namespace tavix::CompositionLint {

// The path in the document as it was written of a path in the document as it was read.
std::string authoredPath(std::string_view path, const CompositionSpec& spec);

// The findings with such paths; what several layers of one formation have in common is told once.
std::vector<Finding> atAuthoredPaths(std::vector<Finding> findings, const CompositionSpec& spec);

}   // namespace tavix::CompositionLint
