// What stands behind everything: a picture, a colour or a gradient. Its kind is required in a document.
#pragma once

#include "TavixCore/Support/Tables.h"
#include "TavixCore/Theme/BackgroundImage.h"
#include "TavixCore/Values/LinearGradient.h"
#include "TavixCore/Values/RGBAColor.h"

#include <type_traits>
#include <variant>

namespace tavix {

using BackgroundFill = std::variant<BackgroundImage, RGBAColor, LinearGradient>;

const Alternatives<BackgroundFill>& alternativesOf(std::type_identity<BackgroundFill>);

}   // namespace tavix
