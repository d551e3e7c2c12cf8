#include "Engine/Console/Quantities.h"

#include "Engine/System/Errors.h"

#include <cctype>
#include <charconv>
#include <cstdio>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

namespace tavix::engine {

namespace {

using Unit = std::pair<std::string_view, double>;

constexpr double most = 1e15;

std::optional<std::int64_t> amount(const std::string& text, std::span<const Unit> units) {
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc()) return std::nullopt;
    std::string unit(rest, end);
    for (char& letter : unit) letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    while (unit.starts_with(' ')) unit.erase(0, 1);
    for (const auto& [name, factor] : units)
        if (unit == name && number * factor >= 1 && number * factor <= most)
            return static_cast<std::int64_t>(number * factor);
    return std::nullopt;
}

}   // namespace

std::int64_t bytesNamed(const std::string& text, const std::string& option) {
    static constexpr Unit units[] = {{"", 1}, {"b", 1}, {"kb", 1e3}, {"mb", 1e6}, {"gb", 1e9}, {"k", 1e3},
        {"m", 1e6}, {"g", 1e9}, {"kib", 0x1p10}, {"mib", 0x1p20}, {"gib", 0x1p30}};
    if (const auto bytes = amount(text, units)) return *bytes;
    throw UsageError(option + " takes an amount as in 10MB, 1.5GB or 512MiB, not \"" + text + "\".");
}

std::int64_t bitsPerSecNamed(const std::string& text, const std::string& option) {
    static constexpr Unit units[] = {{"", 1}, {"k", 1e3}, {"m", 1e6}};
    if (const auto bits = amount(text, units)) return *bits;
    throw UsageError(option + " takes bits a second as in 8M or 800k, not \"" + text + "\".");
}

std::string shownBytes(std::int64_t bytes) {
    char text[64];
    if (bytes < 1'000'000)
        std::snprintf(text, sizeof text, "%.0f kB", double(bytes) / 1e3);
    else if (bytes < 1'000'000'000)
        std::snprintf(text, sizeof text, "%.1f MB", double(bytes) / 1e6);
    else
        std::snprintf(text, sizeof text, "%.2f GB", double(bytes) / 1e9);
    return text;
}

}   // namespace tavix::engine
