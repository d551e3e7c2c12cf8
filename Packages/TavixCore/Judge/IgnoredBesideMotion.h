// What a document writes although something else that it writes takes its place: beside a named motion or a
// formation, and on a device, which has a place of its own.
#pragma once

#include "TavixCore/Findings/CompositionFinding.h"
#include "TavixCore/Support/Json.h"

#include <vector>

namespace tavix::CompositionLint {

// Of the document as it is written: once read, what was ignored is gone. One finding a key.
std::vector<Finding> ignoredBesideMotion(const Json& document);

}   // namespace tavix::CompositionLint
