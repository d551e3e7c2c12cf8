// The sounds that come with the program.
#pragma once

#include "TavixCore/Document/TransitionStyle.h"
#include "TavixCore/Support/Tables.h"

#include <type_traits>

namespace tavix::SFXCatalog {

enum class Sound { whoosh, whip, ding };

// What is heard with a transition.
Sound sound(TransitionStyle style);

const Names<Sound>& namesOf(std::type_identity<Sound>);

}   // namespace tavix::SFXCatalog
