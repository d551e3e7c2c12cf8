// Collects the named definitions of a JSON Schema (draft 2020-12) while codecs describe themselves. A record
// that is met again, or inside itself, is a reference to its first description.
#pragma once

#include "TavixCore/Support/Json.h"

#include <string>
#include <string_view>
#include <utility>

namespace tavix {

class SchemaBook {
public:
    // A reference to the definition of that name; `describe` makes it, once.
    template <class Describe> Json reference(std::string_view name, Describe describe) {
        if (!definitions_.find(name)) {
            definitions_.set(name, Json());   // taken, so that recursion ends
            Json description = describe();
            definitions_.set(name, std::move(description));
        }
        return JsonObject{{"$ref", "#/$defs/" + std::string(name)}};
    }

    // The whole document: `root` with the definitions beside it.
    Json document(Json root, std::string_view title) && {
        JsonObject schema{{"$schema", "https://json-schema.org/draft/2020-12/schema"}, {"title", title}};
        schema.merge(*root.object());
        schema.set("$defs", std::move(definitions_));
        return schema;
    }

private:
    JsonObject definitions_;
};

}   // namespace tavix
