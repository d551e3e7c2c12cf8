// How one picture gives way to the next.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <type_traits>

namespace tavix {

enum class TransitionStyle { flip, wipe, push, crossZoom, dreamyZoom, crosswarp, ripple, fade };

// Whether it is a moment of its own rather than a way from one picture to the next.
bool isAccent(TransitionStyle style);

const Names<TransitionStyle>& namesOf(std::type_identity<TransitionStyle>);

}   // namespace tavix
