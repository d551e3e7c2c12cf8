// Reads a flow before it is run and says what is wrong with it, and what is likely to look bad. It holds the
// taste of a reel in plain rules and changes nothing.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace tavix {

struct FlowSpec;

namespace FlowSpecLint {

struct Finding {
    enum class Level { error, warning };

    Level level = Level::error;
    std::string message;
    bool operator==(const Finding&) const = default;
};

std::vector<Finding> lint(const FlowSpec& flow);

// What the flow asks of its text, in a line; nothing when it asks nothing.
std::optional<std::string> summary(const FlowSpec& flow);

const Names<Finding::Level>& namesOf(std::type_identity<Finding::Level>);

}   // namespace FlowSpecLint

}   // namespace tavix
