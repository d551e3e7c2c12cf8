// A colour: straight (not premultiplied) sRGB-encoded components, 0 to 1.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <optional>
#include <string_view>
#include <type_traits>

namespace tavix {

struct RGBAColor {
    double r = 0, g = 0, b = 0, a = 1;

    static const RGBAColor white, black;
    // A hexadecimal colour of 3, 4, 6 or 8 digits in any case, as in "#f80" or "1E2A44FF", with white space
    // around it allowed; nothing for any other text.
    static std::optional<RGBAColor> fromHex(std::string_view text);
    bool operator==(const RGBAColor&) const = default;
};

inline constexpr RGBAColor RGBAColor::white{1, 1, 1, 1};
inline constexpr RGBAColor RGBAColor::black{0, 0, 0, 1};

const Fields<RGBAColor>& fieldsOf(std::type_identity<RGBAColor>);

}   // namespace tavix
