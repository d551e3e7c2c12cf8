// The grammar of the `--background` argument: a catalog id, a hexadecimal colour, a gradient or a picture
// file.
#pragma once

#include "TavixCore/Theme/BackgroundFill.h"

#include <string>
#include <string_view>

namespace tavix::BackgroundSelector {

std::string catalogIDs();   // joined by ", "

// Both throw a `Failure` that says what was expected.
BackgroundFill resolve(std::string_view text);
// "<hex>,<hex>[,...][@degrees]": the colours evenly spaced.
LinearGradient parseGradient(std::string_view text);

}   // namespace tavix::BackgroundSelector
