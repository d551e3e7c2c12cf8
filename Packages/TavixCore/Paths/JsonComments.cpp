#include "TavixCore/Paths/JsonComments.h"

#include <algorithm>

namespace tavix {
namespace {

// Past the comment that begins here; here when none does.
std::size_t endOfComment(std::string_view text, std::size_t at) {
    const std::string_view mark = text.substr(at, 2);
    if (mark == "//") return std::min(text.find('\n', at), text.size());
    if (mark != "/*") return at;
    const std::size_t end = text.find("*/", at + 2);
    return end == std::string_view::npos ? text.size() : end + 2;
}

}   // namespace

std::string withoutComments(std::string_view text) {
    std::string blanked(text);
    bool isQuoted = false;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = isQuoted ? at : endOfComment(text, at);
        if (end == at) {
            if (text[at] == '"') isQuoted = !isQuoted;
            at += isQuoted && text[at] == '\\' ? 2 : 1;
        }
        for (; at < end; ++at)
            if (text[at] != '\n' && text[at] != '\r') blanked[at] = ' ';
    }
    return blanked;
}

std::string withoutLastCommas(std::string text) {
    bool isQuoted = false;
    std::size_t comma = std::string::npos;   // the last mark, where that was a comma after a value
    char last = '[';
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char mark = text[at];
        if (mark == '"') isQuoted = !isQuoted;
        if (isQuoted && mark == '\\') ++at;
        if (!isQuoted && (mark == '}' || mark == ']') && comma != std::string::npos) text[comma] = ' ';
        if (mark == ' ' || mark == '\t' || mark == '\r' || mark == '\n') continue;
        const bool endsValue = mark == ',' && !isQuoted && last != ',' && last != '[' && last != '{';
        comma = endsValue ? at : std::string::npos;
        last = isQuoted ? '"' : mark;
    }
    return text;
}

}   // namespace tavix
