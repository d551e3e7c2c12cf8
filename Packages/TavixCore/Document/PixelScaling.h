// A document that is drawn at another size.
#pragma once

#include "TavixCore/Support/Type.h"

namespace tavix {

// Scales all that a document says in output pixels: points by both factors, lengths by the larger one.
void scalePixels(const Type& type, void* document, double across, double down);

}   // namespace tavix
