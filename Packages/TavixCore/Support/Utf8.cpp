#include "TavixCore/Support/Utf8.h"

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

}   // namespace tavix::utf8
