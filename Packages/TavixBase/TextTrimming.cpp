#include "TavixBase/TextTrimming.h"

#include "TavixBase/Utf8.h"

namespace tavix {

std::string_view trimmed(std::string_view text) {
    std::size_t begin = text.size(), end = 0;   // of what is not white
    for (std::size_t at = 0; at < text.size();) {
        const utf8::CodePoint point = utf8::codePointAt(text, at);
        if (!utf8::isWhiteSpace(point.value)) {
            if (end == 0) begin = at;
            end = at + point.lengthBytes;
        }
        at += point.lengthBytes;
    }
    return begin < end ? text.substr(begin, end - begin) : std::string_view();
}

std::string lowered(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const utf8::CodePoint point = utf8::codePointAt(text, at);
        if (point.isValid)
            utf8::append(result, utf8::lowerCase(point.value));
        else
            result += text[at];
        at += point.lengthBytes;
    }
    return result;
}

}   // namespace tavix
