#include "TavixCore/Composition/CompositionResolution.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace tavix {

bool hasErrors(std::span<const CompositionLint::Finding> findings) {
    return std::ranges::any_of(
        findings, [](const auto& finding) { return finding.level == CompositionLint::Level::error; });
}

std::string decimals(double number, int digits) {
    std::array<char, std::numeric_limits<double>::max_exponent10 + 16> text{};
    const auto written =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed, digits);
    return {text.data(), written.ptr};
}

}   // namespace tavix
