#include "TavixCore/Support/Decimals.h"

#include <array>
#include <charconv>
#include <limits>

namespace tavix {

std::string decimals(double number, int digits) {
    std::array<char, std::numeric_limits<double>::max_exponent10 + 16> text{};
    const auto written =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed, digits);
    return {text.data(), written.ptr};
}

}   // namespace tavix
