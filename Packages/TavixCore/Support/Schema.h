// The JSON Schema (draft 2020-12) of a type.
#pragma once

#include "TavixCore/Support/Json.h"
#include "TavixCore/Support/Type.h"

#include <string_view>

namespace tavix {

// A document of its own; every record and union is a definition in it, described once.
Json schemaOf(const Type& type, std::string_view title);

}   // namespace tavix
