// The version of the core library.
#pragma once

#include <string_view>

namespace tavix::TavixVersion {

inline constexpr std::string_view current = "0.5.4";

}   // namespace tavix::TavixVersion
