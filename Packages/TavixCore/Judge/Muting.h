// Findings that the author does not want to hear of.
#pragma once

#include "TavixCore/Findings/CompositionFinding.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::CompositionLint {

// A code that mutes, and where it is written: "lint.mute[0]", or empty for the command line.
struct MutedCode {
    std::string code, path;
};

struct Told {
    std::vector<Finding> findings;
    std::vector<Finding> muted;

    std::string mutedNote() const;   // "2 findings are muted: text-small." or nothing
};

// Takes out the findings of muted rules, and tells of codes that are none. What could not be read at all
// cannot be muted.
Told told(std::vector<Finding> all, std::span<const MutedCode> mute);

}   // namespace tavix::CompositionLint
