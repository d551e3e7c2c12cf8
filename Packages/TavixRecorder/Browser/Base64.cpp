#include "TavixRecorder/Browser/Base64.h"

#include "TavixBase/Failure.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tavix::recorder {

namespace {

constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t noLetter = 64;

constexpr std::array<std::uint8_t, 256> valuesOfLetters() {
    std::array<std::uint8_t, 256> values{};
    values.fill(noLetter);
    for (std::size_t i = 0; i < letters.size(); ++i)
        values[static_cast<unsigned char>(letters[i])] = static_cast<std::uint8_t>(i);
    return values;
}

[[noreturn]] void refuse() { throw Failure("The browser sent a picture that cannot be read."); }

}   // namespace

std::string base64(std::string_view bytes) {
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        std::uint32_t three = 0;
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - at);
        for (std::size_t i = 0; i < 3; ++i)
            three = three << 8 | (i < count ? static_cast<unsigned char>(bytes[at + i]) : 0);
        for (std::size_t i = 0; i < 4; ++i) text += i <= count ? letters[three >> (18 - 6 * i) & 63] : '=';
    }
    return text;
}

std::vector<std::byte> fromBase64(std::string_view text) {
    static constexpr auto values = valuesOfLetters();
    if (text.size() % 4 != 0) refuse();
    std::size_t padding = 0;
    while (padding < 2 && padding < text.size() && text[text.size() - 1 - padding] == '=') ++padding;
    std::vector<std::byte> bytes(text.size() / 4 * 3);
    for (std::size_t from = 0, to = 0; from < text.size(); from += 4) {
        std::uint32_t three = 0;
        for (std::size_t i = from; i < from + 4; ++i) {
            const std::uint8_t value =
                i >= text.size() - padding ? 0 : values[static_cast<unsigned char>(text[i])];
            if (value == noLetter) refuse();
            three = three << 6 | value;
        }
        for (const int shift : {16, 8, 0}) bytes[to++] = static_cast<std::byte>(three >> shift & 255);
    }
    bytes.resize(bytes.size() - padding);
    return bytes;
}

}   // namespace tavix::recorder
