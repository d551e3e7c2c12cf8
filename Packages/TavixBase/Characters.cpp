#include "TavixBase/Characters.h"

#include "TavixBase/Utf8.h"

#include <utf8proc.h>

namespace tavix {

std::vector<std::string_view> characters(std::string_view text) {
    std::vector<std::string_view> result;
    utf8proc_int32_t breakState = 0, previous = 0;
    std::size_t start = 0;
    for (std::size_t at = 0; at < text.size();) {
        const utf8::CodePoint point = utf8::codePointAt(text, at);
        const auto current = static_cast<utf8proc_int32_t>(point.value);
        if (at > start && utf8proc_grapheme_break_stateful(previous, current, &breakState)) {
            result.push_back(text.substr(start, at - start));
            start = at;
        }
        previous = current;
        at += point.lengthBytes;
    }
    if (start < text.size()) result.push_back(text.substr(start));
    return result;
}

}   // namespace tavix
