#include "TavixPlatform/Text/PlainText.h"

#include <glib.h>

#include <algorithm>

namespace tavix::text {
namespace {

struct Point {
    char32_t value;
    std::size_t lengthBytes;
};

constexpr char32_t replacement = 0xFFFD;

Point pointAt(std::string_view text, std::size_t at) {
    const gunichar value = g_utf8_get_char_validated(
        text.data() + at, static_cast<gssize>(std::min<std::size_t>(text.size() - at, 6)));
    // Zero is told as an incomplete character by some versions of this function.
    if (text[at] == '\0') return {0, 1};
    if (value == static_cast<gunichar>(-1) || value == static_cast<gunichar>(-2)) return {replacement, 1};
    return {value, static_cast<std::size_t>(g_unichar_to_utf8(value, nullptr))};
}

bool isLineBreak(char32_t point) {
    return (point >= 0x0A && point <= 0x0D) || point == 0x85 || point == 0x2028 || point == 0x2029;
}

bool isLeftOut(char32_t point) {
    const bool isControl = point < 0x20 || (point >= 0x7F && point < 0xA0);
    const bool isNonCharacter = (point & 0xFFFE) == 0xFFFE || (point >= 0xFDD0 && point <= 0xFDEF);
    return (isControl && point != '\t') || isNonCharacter;
}

void append(Paragraph& paragraph, char32_t point, std::size_t at) {
    char bytes[6];
    const int length = g_unichar_to_utf8(point, bytes);
    paragraph.text.append(bytes, static_cast<std::size_t>(length));
    paragraph.points.push_back(point);
    paragraph.sourceOfPoint.push_back(static_cast<std::uint32_t>(at));
}

}   // namespace

std::vector<Paragraph> paragraphsOf(std::string_view text) {
    std::vector<Paragraph> paragraphs(1);
    const auto close = [&](std::size_t at) {
        paragraphs.back().source.end = at;
        paragraphs.back().sourceOfPoint.push_back(static_cast<std::uint32_t>(at));
    };
    for (std::size_t at = 0; at < text.size();) {
        const Point point = pointAt(text, at);
        std::size_t next = at + point.lengthBytes;
        if (isLineBreak(point.value)) {
            if (point.value == '\r' && next < text.size() && text[next] == '\n') ++next;
            close(at);
            paragraphs.emplace_back().source.begin = next;
        } else if (!isLeftOut(point.value)) {
            append(paragraphs.back(), point.value == '\t' ? U' ' : point.value, at);
        }
        at = next;
    }
    close(text.size());
    return paragraphs;
}

}   // namespace tavix::text
