// Reads a flow before it is run and says what is wrong with it, and what is likely to look bad. It holds the
// taste of a reel in plain rules and changes nothing.
#pragma once

#include "TavixBase/Finding.h"

#include <optional>
#include <string>
#include <vector>

namespace tavix {

struct FlowSpec;

namespace FlowSpecLint {

using tavix::Finding;

// Errors and warnings, in the order of the rules.
std::vector<Finding> lint(const FlowSpec& flow);

// What the flow asks of its text, in a line; nothing when it asks nothing.
std::optional<std::string> summary(const FlowSpec& flow);

}   // namespace FlowSpecLint

}   // namespace tavix
