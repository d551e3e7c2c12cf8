// One channel of a layer's transform.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <type_traits>

namespace tavix {

enum class AnimProperty { opacity, x, y, scale, scaleX, scaleY, rotationDeg, skewXDeg, skewYDeg, blur };

const Names<AnimProperty>& namesOf(std::type_identity<AnimProperty>);

}   // namespace tavix
