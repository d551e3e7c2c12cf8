#include "TavixCore/Findings/LintReport.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include <array>
#include <charconv>

namespace tavix::CompositionLint {

std::string fmt(double number) {
    constexpr double largestWhole = 9.0e18;   // what an integer holds
    if (std::abs(number) < largestWhole && number == std::trunc(number))
        return std::to_string(static_cast<std::int64_t>(number));
    std::array<char, 32> text{};   // not printf: its decimal point is the locale's
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::general, 3);
    return {text.data(), end.ptr};
}

Wording::Wording(double number) : text(fmt(number)) {}

std::string worded(std::string_view pattern, std::initializer_list<Wording> values) {
    std::string message;
    for (const Wording& value : values) {
        const std::size_t gap = pattern.find("{}");
        message.append(pattern.substr(0, gap)).append(value.text);
        pattern.remove_prefix(gap + 2);
    }
    return message.append(pattern);
}

std::string apart(double number, double other) {
    constexpr int shortest = 4, longest = 17;
    const auto written = [](double value, int digits) {
        std::array<char, 32> text{};
        const auto end =
            std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, digits);
        return std::string(text.data(), end.ptr);
    };
    std::string text = fmt(number), otherText = fmt(other);
    for (int digits = shortest; text == otherText && digits <= longest; ++digits)
        text = written(number, digits), otherText = written(other, digits);
    return text;
}

std::string listed(std::span<const std::string_view> words) {
    std::string list;
    for (const std::string_view word : words) list.append(list.empty() ? "" : ", ").append(word);
    return list;
}

}   // namespace tavix::CompositionLint
