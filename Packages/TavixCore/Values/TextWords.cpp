#include "TavixCore/Values/TextWords.h"

#include "TavixBase/Utf8.h"

#include <utf8proc.h>

namespace tavix::KineticMath {
namespace {

char32_t firstCodePoint(std::string_view character) { return utf8::codePointAt(character, 0).value; }

// Of the first code point; none for no character.
utf8proc_category_t categoryOf(std::string_view character) {
    return character.empty() ? UTF8PROC_CATEGORY_CN
                             : utf8proc_category(static_cast<utf8proc_int32_t>(firstCodePoint(character)));
}

bool isNumber(utf8proc_category_t category) {
    return category >= UTF8PROC_CATEGORY_ND && category <= UTF8PROC_CATEGORY_NO;
}

}   // namespace

bool isWhitespace(std::string_view character) {
    return !character.empty() && utf8::isWhiteSpace(firstCodePoint(character));
}

bool isLineBreak(std::string_view character) {
    if (character.empty()) return false;
    const char32_t point = firstCodePoint(character);
    return (point >= 0x0A && point <= 0x0D) || point == 0x85 || point == 0x2028 || point == 0x2029;
}

bool isLetterOrNumber(std::string_view character) {
    const utf8proc_category_t category = categoryOf(character);
    return (category >= UTF8PROC_CATEGORY_LU && category <= UTF8PROC_CATEGORY_LO) || isNumber(category);
}

bool isUppercase(std::string_view character) { return categoryOf(character) == UTF8PROC_CATEGORY_LU; }

bool isLowercaseOrNumber(std::string_view character) {
    const utf8proc_category_t category = categoryOf(character);
    return category == UTF8PROC_CATEGORY_LL || isNumber(category);
}

std::string capitalized(std::string_view text) {
    if (text.empty()) return {};
    const utf8::CodePoint first = utf8::codePointAt(text, 0);
    if (!first.isValid) return std::string(text);
    std::string result;
    utf8::append(result, static_cast<char32_t>(utf8proc_toupper(static_cast<utf8proc_int32_t>(first.value))));
    return result.append(text.substr(first.lengthBytes));
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
