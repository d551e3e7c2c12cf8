#include "Engine/Console/Printable.h"

#include "TavixBase/Utf8.h"

#include <algorithm>

namespace tavix::engine {

namespace {

enum class LineEnds { kept, shown };

// Nobody reads more of one sentence.
constexpr std::size_t mostLineBytes = 4000;

void appendControl(std::string& out, unsigned char control) {
    constexpr char32_t symbols = 0x2400, symbolOfDelete = 0x2421;
    utf8::append(out, control == 0x7F ? symbolOfDelete : symbols + control);
}

// U+0080 to U+009F, which are two bytes long.
bool isC1(std::string_view character) {
    return character.size() == 2 && character[0] == '\xC2' && static_cast<unsigned char>(character[1]) < 0xA0;
}

std::string shown(std::string_view text, LineEnds lineEnds) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = utf8::lengthAt(text, at);
        const std::string_view character = text.substr(at, std::max<std::size_t>(length, 1));
        const auto first = static_cast<unsigned char>(character.front());
        const bool isKept = lineEnds == LineEnds::kept && (first == '\n' || first == '\t');
        if (length == 0 || isC1(character))
            out += utf8::replacement;
        else if ((first < 0x20 || first == 0x7F) && !isKept)
            appendControl(out, first);
        else
            out += character;
        at += character.size();
    }
    return out;
}

}   // namespace

std::string printable(std::string_view text) { return shown(text, LineEnds::kept); }

std::string printableLine(std::string_view text) {
    if (text.size() <= mostLineBytes) return shown(text, LineEnds::shown);
    const std::string_view head = text.substr(0, mostLineBytes / 2),
                           tail = text.substr(text.size() - mostLineBytes / 2);
    return shown(head, LineEnds::shown) + " … " + shown(tail, LineEnds::shown);
}

}   // namespace tavix::engine
