#include "TavixBase/Utf8.h"

#include <utf8proc.h>

namespace tavix::utf8 {

std::size_t lengthAt(std::string_view text, std::size_t at) {
    const auto byte = [&](std::size_t offset) {
        return at + offset < text.size() ? static_cast<unsigned char>(text[at + offset]) : 0u;
    };
    const auto isWithin = [&](std::size_t offset, unsigned least, unsigned most) {
        return byte(offset) >= least && byte(offset) <= most;
    };
    const auto continues = [&](std::size_t offset) { return isWithin(offset, 0x80, 0xBF); };
    if (at >= text.size()) return 0;
    const unsigned lead = byte(0);
    if (lead < 0x80) return 1;
    if (lead < 0xC2) return 0;
    if (lead < 0xE0) return continues(1) ? 2 : 0;
    if (lead < 0xF0) {
        const bool second = isWithin(1, lead == 0xE0 ? 0xA0 : 0x80, lead == 0xED ? 0x9F : 0xBF);
        return second && continues(2) ? 3 : 0;
    }
    if (lead > 0xF4) return 0;
    const bool second = isWithin(1, lead == 0xF0 ? 0x90 : 0x80, lead == 0xF4 ? 0x8F : 0xBF);
    return second && continues(2) && continues(3) ? 4 : 0;
}

void append(std::string& text, char32_t codePoint) {
    const auto put = [&](char32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
    if (codePoint < 0x80) return put(codePoint);
    if (codePoint < 0x800) {
        put(0xC0 | (codePoint >> 6));
    } else if (codePoint < 0x10000) {
        put(0xE0 | (codePoint >> 12));
        put(0x80 | ((codePoint >> 6) & 0x3F));
    } else {
        put(0xF0 | (codePoint >> 18));
        put(0x80 | ((codePoint >> 12) & 0x3F));
        put(0x80 | ((codePoint >> 6) & 0x3F));
    }
    put(0x80 | (codePoint & 0x3F));
}

CodePoint codePointAt(std::string_view text, std::size_t at) {
    const std::size_t length = lengthAt(text, at);
    if (length == 0) return {};
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[at + i]); };
    char32_t value = length == 1 ? byte(0) : byte(0) & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) value = (value << 6) | (byte(i) & 0x3Fu);
    return {value, length, true};
}

bool isWhiteSpace(char32_t codePoint) {
    if ((codePoint >= 0x09 && codePoint <= 0x0D) || codePoint == 0x85)
        return true;   // white by property, controls by category
    switch (utf8proc_category(static_cast<utf8proc_int32_t>(codePoint))) {
    case UTF8PROC_CATEGORY_ZS:
    case UTF8PROC_CATEGORY_ZL:
    case UTF8PROC_CATEGORY_ZP: return true;
    default: return false;
    }
}

char32_t lowerCase(char32_t codePoint) {
    return static_cast<char32_t>(utf8proc_tolower(static_cast<utf8proc_int32_t>(codePoint)));
}

}   // namespace tavix::utf8
