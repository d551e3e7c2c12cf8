// White space off the ends of what people type.
#pragma once

#include <string>
#include <string_view>

namespace tavix {

// Without spaces, tabs and line ends at both ends.
std::string_view trimmed(std::string_view text);
// With the letters A to Z in lower case; all else as it is.
std::string lowered(std::string_view text);

}   // namespace tavix
