#include "TavixCore/Values/TextWords.h"

#include "TavixCore/Support/Utf8.h"

#include <utf8proc.h>

namespace tavix::KineticMath {
namespace {

struct CodePoint {
    utf8proc_int32_t value;
    std::size_t lengthBytes;
};

CodePoint firstCodePoint(std::string_view text) {
    constexpr utf8proc_int32_t replacement = 0xFFFD;
    utf8proc_int32_t value = 0;
    const utf8proc_ssize_t length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
        static_cast<utf8proc_ssize_t>(text.size()), &value);
    if (length <= 0) return {replacement, 1};
    return {value, static_cast<std::size_t>(length)};
}

}   // namespace

std::vector<std::string_view> characters(std::string_view text) {
    std::vector<std::string_view> result;
    utf8proc_int32_t breakState = 0, previous = 0;
    std::size_t start = 0;
    for (std::size_t at = 0; at < text.size();) {
        const CodePoint point = firstCodePoint(text.substr(at));
        if (at > start && utf8proc_grapheme_break_stateful(previous, point.value, &breakState)) {
            result.push_back(text.substr(start, at - start));
            start = at;
        }
        previous = point.value;
        at += point.lengthBytes;
    }
    if (start < text.size()) result.push_back(text.substr(start));
    return result;
}

bool isWhitespace(std::string_view character) {
    if (character.empty()) return false;
    const utf8proc_int32_t point = firstCodePoint(character).value;
    if ((point >= 0x09 && point <= 0x0D) || point == 0x85)
        return true;   // white by property, controls by category
    switch (utf8proc_category(point)) {
    case UTF8PROC_CATEGORY_ZS:
    case UTF8PROC_CATEGORY_ZL:
    case UTF8PROC_CATEGORY_ZP: return true;
    default: return false;
    }
}

bool isLineBreak(std::string_view character) {
    if (character.empty()) return false;
    const utf8proc_int32_t point = firstCodePoint(character).value;
    return (point >= 0x0A && point <= 0x0D) || point == 0x85 || point == 0x2028 || point == 0x2029;
}

bool isLetterOrNumber(std::string_view character) {
    if (character.empty()) return false;
    const utf8proc_category_t category = utf8proc_category(firstCodePoint(character).value);
    return (category >= UTF8PROC_CATEGORY_LU && category <= UTF8PROC_CATEGORY_LO) ||
           (category >= UTF8PROC_CATEGORY_ND && category <= UTF8PROC_CATEGORY_NO);
}

std::string lowercased(std::string_view text) {
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const CodePoint point = firstCodePoint(text.substr(at));
        utf8::append(result, static_cast<char32_t>(utf8proc_tolower(point.value)));
        at += point.lengthBytes;
    }
    return result;
}

std::vector<Word> words(std::string_view text) {
    std::vector<Word> result;
    std::size_t position = 0;
    bool isInside = false;
    for (const std::string_view character : characters(text)) {
        if (isWhitespace(character)) {
            isInside = false;
        } else {
            if (!isInside) result.push_back({{}, {position, position}});
            isInside = true;
            result.back().text += character;
            result.back().range.end = position + 1;
        }
        ++position;
    }
    return result;
}

}   // namespace tavix::KineticMath
