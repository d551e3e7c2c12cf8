// White space off the ends of what people type.
#pragma once

#include <string>
#include <string_view>

namespace tavix {

// Without what is white space to Unicode at both ends.
std::string_view trimmed(std::string_view text);
// In lower case, code point by code point; a byte that is no UTF-8 stays as it is.
std::string lowered(std::string_view text);

}   // namespace tavix
