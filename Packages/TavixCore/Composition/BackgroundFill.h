// What stands behind everything: a picture, a colour or a gradient. Its kind is required in a document.
#pragma once

#include "TavixCore/Composition/BackgroundImage.h"
#include "TavixCore/Composition/LinearGradient.h"
#include "TavixCore/Support/RGBAColor.h"
#include "TavixCore/Support/Tables.h"

#include <type_traits>
#include <variant>

namespace tavix {

using BackgroundFill = std::variant<BackgroundImage, RGBAColor, LinearGradient>;

const Alternatives<BackgroundFill>& alternativesOf(std::type_identity<BackgroundFill>);

}   // namespace tavix
