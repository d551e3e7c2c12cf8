// A size as people write it: 1080x1920.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"

#include <string>

namespace tavix::engine {

// Throws a `UsageError` for anything else, and for a side outside the range.
// The option is the one that the text was given to.
imaging::Size sizeNamed(
    const std::string& text, int leastPx, int mostPx, const std::string& option = "--size");

}   // namespace tavix::engine
