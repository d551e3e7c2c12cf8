// The soft shadow under a recording or a device, in output pixels.
#pragma once

#include "TavixCore/Support/Tables.h"
#include "TavixCore/Values/RGBAColor.h"

#include <type_traits>

namespace tavix {

struct Shadow {
    double radius = 40;
    double opacity = 0.45;
    double offsetY = 24;   // downwards
    RGBAColor color = RGBAColor::black;

    static const Shadow standard;
    bool operator==(const Shadow&) const = default;
};

inline constexpr Shadow Shadow::standard{};

const Fields<Shadow>& fieldsOf(std::type_identity<Shadow>);

}   // namespace tavix
