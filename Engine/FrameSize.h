// A size as people write it: 1080x1920.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"

#include <string>

namespace tavix::engine {

// Throws a `UsageError` for anything else, and for a side outside the range.
imaging::Size sizeNamed(const std::string& text, int leastPx, int mostPx);

}   // namespace tavix::engine
