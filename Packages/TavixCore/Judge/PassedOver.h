// What reading a document passes over in silence, told: keys, words and values that count for nothing, or for
// something else than what is written.
#pragma once

#include "TavixCore/Findings/CompositionFinding.h"
#include "TavixCore/Support/Json.h"
#include "TavixCore/Support/Type.h"

#include <vector>

namespace tavix::CompositionLint {

// Of the document as it is written. Each names what is legal in its place, and what may have been meant.
std::vector<Finding> passedOver(const Json& document);
// The same of a document of any type.
std::vector<Finding> passedOver(const Json& document, const Type& type);

}   // namespace tavix::CompositionLint
