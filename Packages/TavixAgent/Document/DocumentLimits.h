// How much of a kind a document may hold before it is refused: what is far beyond any film would keep the
// machine busy for hours.
#pragma once

#include "TavixAgent/Document/DocumentFile.h"

namespace tavix {

// Throws `DocumentError` that says which layer holds too much of what, and how much it may hold.
void requireBounded(const DocumentFile& document);

}   // namespace tavix
