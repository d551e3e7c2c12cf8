#include "TavixCore/Values/RGBAColor.h"

#include "TavixBase/TextTrimming.h"
#include "TavixCore/Support/FieldTables.h"

#include <algorithm>
#include <array>
#include <string>

namespace tavix {

namespace {

// The value of a hexadecimal digit, or 16 for any other character.
int digitValue(char c) {
    static constexpr std::string_view digits = "0123456789abcdef";
    const char lower = c >= 'A' && c <= 'F' ? static_cast<char>(c - 'A' + 'a') : c;
    return static_cast<int>(std::min(digits.find(lower), digits.size()));
}

bool isHexDigit(char c) { return digitValue(c) < 16; }

}   // namespace

std::optional<RGBAColor> RGBAColor::fromHex(std::string_view text) {
    text = trimmed(text);
    if (text.starts_with('#')) text.remove_prefix(1);
    if (!std::all_of(text.begin(), text.end(), isHexDigit)) return std::nullopt;
    const bool isShort = text.size() == 3 || text.size() == 4;
    const std::size_t channelCount = isShort ? text.size() : text.size() / 2;
    if (!isShort && text.size() != 6 && text.size() != 8) return std::nullopt;
    std::array<double, 4> channels{0, 0, 0, 1};
    for (std::size_t i = 0; i < channelCount; ++i) {
        const char high = text[isShort ? i : 2 * i], low = text[isShort ? i : 2 * i + 1];
        channels[i] = (16 * digitValue(high) + digitValue(low)) / 255.0;
    }
    return RGBAColor{channels[0], channels[1], channels[2], channels[3]};
}

const Fields<RGBAColor>& fieldsOf(std::type_identity<RGBAColor>) {
    static const Fields<RGBAColor> table{"RGBAColor",
        {field<&RGBAColor::r>("r", "Red, in sRGB.").measuredIn(Unit::fraction).required().legal(0, 1),
            field<&RGBAColor::g>("g", "Green, in sRGB.").measuredIn(Unit::fraction).required().legal(0, 1),
            field<&RGBAColor::b>("b", "Blue, in sRGB.").measuredIn(Unit::fraction).required().legal(0, 1),
            field<&RGBAColor::a>("a", "Opacity; the colour is not multiplied by it.")
                .measuredIn(Unit::fraction)
                .required()
                .legal(0, 1)}};
    return table;
}

}   // namespace tavix
