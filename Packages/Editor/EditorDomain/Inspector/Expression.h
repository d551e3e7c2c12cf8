// Arithmetic in number fields: "1080/3", "(2+0.5)*4", "+10" and "*2" go on from the value that is there.
#pragma once

#include <optional>
#include <string_view>

namespace tavix {

// Decimal points or commas, the signs + - * / and parentheses; what comes behind a number as its unit is
// passed over ("12 px", "40%"): a per cent is a hundredth. Nothing for a text that is none of this, or whose
// value is not finite. A text that begins with * or / or with a doubled sign ("++5", "--5") goes on from
// `current`.
std::optional<double> evaluated(std::string_view text, double current);

}   // namespace tavix
