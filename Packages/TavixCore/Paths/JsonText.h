// Changes a document in its text. What a change does not touch keeps its bytes: order, spaces, line breaks,
// the way numbers are written, and comments where there are any.
#pragma once

#include "TavixCore/Paths/JsonComments.h"
#include "TavixCore/Paths/JsonPatch.h"

#include <string>
#include <string_view>

namespace tavix {

// The value that a text says. Throws a `DecodingError` with line and column.
Json parseJson(std::string_view text, JsonDialect dialect);

// The text after the patch; what it says is what `applyPatch` makes of what the text said. New values are
// laid out as the text is. Throws as `parseJson` and `applyPatch` do, and then nothing has been changed.
std::string patchedText(
    std::string_view text, const JsonPatch& patch, JsonDialect dialect = JsonDialect::strict);

// The text with as little change as makes it say this value.
std::string textSaying(std::string_view text, const Json& wanted, JsonDialect dialect = JsonDialect::strict);

}   // namespace tavix
