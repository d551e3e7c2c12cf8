// The fonts that have a short name.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace tavix {

struct FontOption {
    std::string id;
    std::string displayName;
    std::optional<std::string> postScriptName;   // absent: the system's own font
    std::optional<std::string> fontPath;
    bool operator==(const FontOption&) const = default;
};

const Fields<FontOption>& fieldsOf(std::type_identity<FontOption>);

namespace FontCatalog {

const FontOption& system();
const std::vector<FontOption>& iosTop10();
const std::vector<FontOption>& standardOptions();   // `system`, then `iosTop10`

// The option that a short name means, whatever its case: `system`, `app` (the font of the recorded
// application, the system's own where none is known) or an id of `iosTop10`. Nothing for any other text,
// which is then a font name or a path.
std::optional<FontOption> resolve(std::string_view value);

}   // namespace FontCatalog

}   // namespace tavix
