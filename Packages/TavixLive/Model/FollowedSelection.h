// What is selected, in a document that somebody else has changed.
#pragma once

#include "TavixLive/Operations/EditState.h"

namespace tavix {

// The scene and the layer that were selected before, wherever they stand now; nothing where they are gone.
Selection followedSelection(const EditState& before, const CompositionSpec& now);

}   // namespace tavix
