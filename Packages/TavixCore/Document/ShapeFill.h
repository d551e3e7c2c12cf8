// What a shape is painted with. An unknown kind reads as a solid colour.
#pragma once

#include "TavixCore/Support/Tables.h"
#include "TavixCore/Values/LinearGradient.h"
#include "TavixCore/Values/RGBAColor.h"

#include <type_traits>
#include <variant>

namespace tavix {

using ShapeFill = std::variant<RGBAColor, LinearGradient>;

const Alternatives<ShapeFill>& alternativesOf(std::type_identity<ShapeFill>);

}   // namespace tavix
