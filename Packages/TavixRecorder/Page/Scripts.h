// The scripts that are put into pages. The build makes texts of the program of them.
#pragma once

#include <string_view>

namespace tavix::recorder {

extern const std::string_view driverScript;   // driver.js
// clock.js: a function to be called with the frames in a second, in the page's own world, before its scripts.
extern const std::string_view clockScript;

}   // namespace tavix::recorder
