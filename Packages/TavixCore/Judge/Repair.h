// What mends a finding, as a change of the document that its author wrote.
#pragma once

#include "TavixCore/Findings/CompositionFinding.h"
#include "TavixCore/Paths/JsonPatch.h"

#include <string_view>

namespace tavix::CompositionLint {

// Where a path as "scenes[2].layers[0].fromSec" leads in the document as it is written; as far as it leads
// where the rest is not there, as a key that is missing.
JsonPointer pointerOf(std::string_view path, const Json& written);

// Of a finding at its authored path. Empty where it is not certain what is meant, or where it cannot be done.
JsonPatch repairOf(const Finding& finding, const Json& written);

// Whether mending what this rule finds gives what was meant all along: another spelling, or a value that is
// drawn alike.
bool keepsIntent(Rule rule);

}   // namespace tavix::CompositionLint
