// What a document writes to no effect: parameters that a transition's style has no use for, and the looks of
// words that a text does not have.
#pragma once

#include "TavixCore/Findings/CompositionFinding.h"
#include "TavixCore/Support/Json.h"

#include <vector>

namespace tavix::CompositionLint {

// Of the document as it is written. One finding a key or index.
std::vector<Finding> withoutEffect(const Json& document);

}   // namespace tavix::CompositionLint
