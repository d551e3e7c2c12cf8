// Everything that keeps a document from being read, and not only the first of it.
#pragma once

#include "TavixCore/Findings/CompositionFinding.h"
#include "TavixCore/Support/Json.h"

#include <vector>

namespace tavix {

// Values of a wrong kind, words that mean nothing and keys that are missing, each at its path: those that are
// found when what is wrong is left out and the rest is read. At most twenty; none where it can be read.
std::vector<Finding> readingFaults(const Json& written);

}   // namespace tavix
