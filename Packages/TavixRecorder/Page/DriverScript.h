// The text of driver.js, which the build puts into the program.
#pragma once

#include <string_view>

namespace tavix::recorder {

extern const std::string_view driverScript;

}   // namespace tavix::recorder
