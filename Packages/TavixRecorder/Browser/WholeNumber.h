// Numbers in sentences, without their fractions.
#pragma once

#include <cmath>
#include <string>

namespace tavix::recorder {

// The nearest one; halves go away from zero.
inline std::string whole(double number) { return std::to_string(std::lround(number)); }

}   // namespace tavix::recorder
