// The soft shadow under a text; lengths are fractions of the canvas height.
#pragma once

#include "TavixCore/Support/Tables.h"
#include "TavixCore/Values/NormalizedVec2.h"
#include "TavixCore/Values/RGBAColor.h"

#include <type_traits>

namespace tavix {

struct TextShadow {
    RGBAColor color = RGBAColor::black;
    double opacity = 0.55;
    double radiusFraction = 0.008;
    NormalizedVec2 offset{0, 0.004};

    static const TextShadow standard;
    bool operator==(const TextShadow&) const = default;
};

inline constexpr TextShadow TextShadow::standard{};

const Fields<TextShadow>& fieldsOf(std::type_identity<TextShadow>);

}   // namespace tavix
