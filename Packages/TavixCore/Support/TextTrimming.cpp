#include "TavixCore/Support/TextTrimming.h"

#include <algorithm>

namespace tavix {

std::string_view trimmed(std::string_view text) {
    static constexpr std::string_view space = " \t\n\v\f\r";
    const std::size_t first = text.find_first_not_of(space);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(space) - first + 1);
}

std::string lowered(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(),
        [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return result;
}

}   // namespace tavix
