// Numbers in sentences.
#pragma once

#include <string>

namespace tavix {

// A number with so many digits after the point.
std::string decimals(double number, int digits);
// As messages about times show it: "2.50".
inline std::string twoDecimals(double number) { return decimals(number, 2); }

}   // namespace tavix
