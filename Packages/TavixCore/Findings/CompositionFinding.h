// A problem of a composition, told to an author who mends the document by its path.
#pragma once

#include "TavixBase/Finding.h"
#include "TavixCore/Findings/LintRule.h"

#include <optional>
#include <string>
#include <utility>

namespace tavix::CompositionLint {

using tavix::Finding;

// A finding of a rule has the level and the code of the rule.
inline Finding findingOf(
    Rule rule, std::string path, std::string message, std::optional<std::string> suggestion = {}) {
    const RuleEntry& entry = entryOf(rule);
    return {entry.level, std::move(path), std::move(message), std::move(suggestion), entry.code};
}

}   // namespace tavix::CompositionLint
