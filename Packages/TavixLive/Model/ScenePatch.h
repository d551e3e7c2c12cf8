// Follows a patch scene by scene: what it does not touch is neither written nor read again.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Paths/JsonPatch.h"

namespace tavix {

// As `applyTo(document, patch)`, and with its failures; in the time that the touched scenes take.
CompositionSpec followed(CompositionSpec document, const JsonPatch& patch);

}   // namespace tavix
