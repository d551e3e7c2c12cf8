// The JSON Schemas of the documents of reels, by name.
#pragma once

#include "TavixCore/Project/DocumentSchemas.h"

namespace tavix {

std::span<const DocumentSchema> reelSchemas();

}   // namespace tavix
