// Which lines of a text changed, for reading.
#pragma once

#include <string>
#include <string_view>

namespace tavix {

// Lines that went after "-" and lines that came after "+", in their order; each stretch begins with
// "@@ line N". At most some dozens of lines, and then how many more there are.
std::string lineDifference(std::string_view before, std::string_view after);

}   // namespace tavix
