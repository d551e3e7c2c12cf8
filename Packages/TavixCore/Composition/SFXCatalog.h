// The sounds that come with the program.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <type_traits>

namespace tavix::SFXCatalog {

enum class Sound { whoosh, whip, ding };

const Names<Sound>& namesOf(std::type_identity<Sound>);

}   // namespace tavix::SFXCatalog
