// What a shape is painted with. An unknown kind reads as a solid colour.
#pragma once

#include "TavixCore/Composition/LinearGradient.h"
#include "TavixCore/Support/RGBAColor.h"
#include "TavixCore/Support/Tables.h"

#include <type_traits>
#include <variant>

namespace tavix {

using ShapeFill = std::variant<RGBAColor, LinearGradient>;

const Alternatives<ShapeFill>& alternativesOf(std::type_identity<ShapeFill>);

}   // namespace tavix
