// A problem of a composition, told to an author who mends the document by its path.
#pragma once

#include "TavixCore/Findings/LintRule.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tavix::CompositionLint {

struct Finding {
    Level level = Level::error;
    std::string path;   // keys and [indices] from the root: "scenes[2].layers[0].fromSec"
    std::string message;
    std::optional<std::string> suggestion;
    Rule rule = Rule::unreadable;

    std::string_view code() const { return codeOf(rule); }
    // What is told; by which rule follows from it.
    bool operator==(const Finding& other) const {
        return level == other.level && path == other.path && message == other.message &&
               suggestion == other.suggestion;
    }
};

// A finding of a rule has the level of the rule.
inline Finding findingOf(
    Rule rule, std::string path, std::string message, std::optional<std::string> suggestion = {}) {
    return {entryOf(rule).level, std::move(path), std::move(message), std::move(suggestion), rule};
}

}   // namespace tavix::CompositionLint
