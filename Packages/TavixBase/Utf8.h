// Well-formed UTF-8, as the Unicode standard defines it in table 3-7.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tavix::utf8 {

inline constexpr std::string_view replacement = "\xEF\xBF\xBD";   // U+FFFD

// The bytes of the character that begins at `at`, or 0 when none does: a stray or missing continuation byte,
// an overlong form, a surrogate, or a code point past U+10FFFF.
std::size_t lengthAt(std::string_view text, std::size_t at);
void append(std::string& text, char32_t codePoint);

struct CodePoint {
    char32_t value = 0xFFFD;
    std::size_t lengthBytes = 1;
    bool isValid = false;   // a byte that begins no character stands for itself
};
CodePoint codePointAt(std::string_view text, std::size_t at);

bool isWhiteSpace(char32_t codePoint);   // has the Unicode property White_Space
char32_t lowerCase(char32_t codePoint);

}   // namespace tavix::utf8
