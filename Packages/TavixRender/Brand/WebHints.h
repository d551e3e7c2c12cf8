// The manifest of a web application (W3C Web Application Manifest): its theme colour and its icons.
#pragma once

#include "TavixRender/Brand/AppHints.h"

namespace tavix::AppHints {

std::optional<Hints> webHints(const std::filesystem::path& bundle);

}   // namespace tavix::AppHints
