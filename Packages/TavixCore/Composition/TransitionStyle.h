// How one picture gives way to the next.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <type_traits>

namespace tavix {

enum class TransitionStyle { flip, wipe, push, crossZoom, dreamyZoom, crosswarp, ripple, fade };

const Names<TransitionStyle>& namesOf(std::type_identity<TransitionStyle>);

}   // namespace tavix
