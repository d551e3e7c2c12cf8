// A JSON Schema as a page for people, in Markdown.
#pragma once

#include "TavixCore/Support/Json.h"

#include <string>

namespace tavix::engine {

// One chapter a definition, in the order in which a reader meets them.
std::string documentReference(const Json& schema);

}   // namespace tavix::engine
