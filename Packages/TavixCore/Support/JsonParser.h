// Reads JSON text (RFC 8259), strict in its grammar and with messages that say line and column.
#pragma once

#include "TavixCore/Support/Json.h"

#include <cstddef>
#include <string_view>

namespace tavix {

// What a document may be before it is refused. A document of a few megabytes is a very large one; these
// limits keep a hostile one from eating the machine.
struct JsonLimits {
    std::size_t maxBytes = 64u << 20;
    std::size_t maxValues = 10'000'000;
    std::size_t maxDepth = 512;
};

// Of equal keys in one object the last wins. An escaped half of a surrogate pair without its partner reads as
// U+FFFD, and so does NUL, where paths, lines of text and messages would end; a number too small for a float
// reads as zero. Throws a `DecodingError`.
Json parseJson(std::string_view text, const JsonLimits& limits = {});

}   // namespace tavix
