// The JSON Schemas that authors can ask for by name.
#pragma once

#include "TavixCore/Support/Json.h"
#include "TavixCore/Support/Type.h"

#include <span>
#include <string_view>

namespace tavix {

struct DocumentSchema {
    std::string_view name, meaning;
    TypeGetter type;

    Json schema() const;
};

// The whole document first, then its parts.
std::span<const DocumentSchema> documentSchemas();
// The one of that name, or nothing.
const DocumentSchema* documentSchema(std::string_view name);

}   // namespace tavix
