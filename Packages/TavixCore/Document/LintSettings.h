// What a document says about how it wants to be judged.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <string>
#include <type_traits>
#include <vector>

namespace tavix {

struct LintSettings {
    std::vector<std::string> mute;   // codes of rules that are not told
    bool operator==(const LintSettings&) const = default;
};

const Fields<LintSettings>& fieldsOf(std::type_identity<LintSettings>);

}   // namespace tavix
