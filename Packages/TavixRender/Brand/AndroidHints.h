// The resources of an Android application: the colours of its theme and its launcher icon.
#pragma once

#include "TavixRender/Brand/AppHints.h"

namespace tavix::AppHints {

// A colour of such a resource: #RGB, #ARGB, #RRGGBB or #AARRGGBB.
std::optional<RGBAColor> androidColor(std::string_view text);

std::optional<Hints> androidHints(const std::filesystem::path& bundle);

}   // namespace tavix::AppHints
